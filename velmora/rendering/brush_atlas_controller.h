// rendering/brush_atlas_controller.h: the colour ramps of all gradients of a frame, in one texture.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/rendering/brush.h"
#include "velmora/rendering/texture.h"

/// Gives every gradient of a frame a row of a 256 by 256 texture.
///
/// Always true: row 0 belongs to no gradient and its first texel is transparent black, which is what solid
/// colours sample, so that one program draws both.
class VELBrushAtlasController {
 public:
  static constexpr int32_t size = 256;  ///< texels of a row, and rows

  VELBrushAtlasController();

  /// Gives a gradient with a ramp of `size` colours the next row, unless it has one in this frame or no row
  /// is left; then it keeps its former row number. Other brushes are ignored.
  void o_addBrush(const VELBrushPtr& brush);
  /// A new frame: rows are given out from 1 again. The texels stay.
  void o_clearAtlas();
  /// Binds the texture to unit 0, uploading it first when texels changed. The GL context must be current.
  void o_applyTextureAtlas();

 private:
  std::vector<VELBrushPtr> _storedBrushes;
  int32_t _lastBrushIndex = 0;
  std::vector<uint32_t> _textureData;
  std::unique_ptr<VELTextureOpenGL> _atlas;
  bool _atlasValid = false;
};
