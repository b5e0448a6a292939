// rendering/brush_shader_controller.h: which program the shapes of a render context are drawn with.
#pragma once

#include <cstdint>

#include "velmora/rendering/shader_attributes.h"

/// Switches programs and attribute arrays of the current GL context, only where something changes.
class VELBrushShaderController {
 public:
  /// The fixed attribute slots: position 0, colour 1, texture place 2. (The spelling is part of the
  /// interface.)
  static void o_getBufferValuesForPostion(uint32_t& position, uint32_t& color, uint32_t& texture);
  /// Assumes no program active: a replay starts with it.
  static void o_reset(VELShaderAttributes& attributes);
  static void o_enableBuffers();
  static void o_disableBuffers();
  /// Make a program of the current GL context the one that draws. The textures of the brush are bound
  /// already.
  static void o_applyDefaultBrushShader(VELShaderAttributes& attributes);
  static void o_applyTextureBrushShader(VELShaderAttributes& attributes);
  static void o_applyPalettedTextureBrushShader(VELShaderAttributes& attributes);
  static void o_applyColoredTextureBrushShader(VELShaderAttributes& attributes);
};
