// rendering/shader_attributes.h: the GL state that the commands of one render context share.
#pragma once

#include <cstdint>

#include "velmora/rendering/brush_atlas_controller.h"
#include "velmora/rendering/matrix.h"

/// Matrices, attribute slots and the active program of one render context during its replay.
struct VELShaderAttributes {
  uint32_t sa_projectionUniform = 0;  ///< where the active program takes `sa_totalMatrix`
  VELMatrix sa_projectionMatrix = VELMatrixIdentity();
  uint32_t sa_viewUniform = 0;
  VELMatrix sa_viewMatrix = VELMatrixIdentity();
  VELMatrix sa_totalMatrix = VELMatrixIdentity();  ///< projection × view × origin of the drawing area
  uint32_t sa_positionBuffer = 0;                  ///< attribute slots that buffers are bound to
  uint32_t sa_colorBuffer = 1;
  uint32_t sa_textureBuffer = 2;
  uint32_t sa_positionSlot = 0;  ///< attribute locations in the active program
  uint32_t sa_colorSlot = 0;
  uint32_t sa_texCoordSlot = 0;
  VELBrushAtlasController sa_brushAtlas;
  bool sa_defaultShaderActivated = false;  ///< at most one of the four is set
  bool sa_textureShaderActivated = false;
  bool sa_palettedTextureShaderActivated = false;
  bool sa_coloredTextureShaderActivated = false;

  bool isAnyShaderActivated() const {
    return sa_defaultShaderActivated || sa_textureShaderActivated || sa_palettedTextureShaderActivated ||
           sa_coloredTextureShaderActivated;
  }
};
