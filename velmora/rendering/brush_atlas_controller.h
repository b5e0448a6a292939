// rendering/brush_atlas_controller.h: the colour ramps of all gradients of a frame, in one texture.
#pragma once

#include <cstdint>
#include <vector>

#include "velmora/rendering/brush.h"
#include "velmora/rendering/texture.h"

/// Gives every gradient of a frame a row of a 256 by 256 texture.
///
/// A brush knows one row only, that of the atlas which registered it last. Whoever draws with it in turns in
/// several render contexts registers it before each shape; that is cheap as long as the row is right.
///
/// Always true: row 0 belongs to no gradient and its first texel is transparent black, which is what solid
/// colours sample, so that one program draws both.
class VELMORA_API VELBrushAtlasController {
 public:
  static constexpr int32_t size = 256;  ///< texels of a row, and rows

  VELBrushAtlasController();

  /// Gives a gradient with a ramp of `size` colours the next row, or tells it again the one that it has in
  /// this frame. When no row is left, it keeps its former row number. Other brushes are ignored.
  void o_addBrush(const VELBrushPtr& brush);
  /// True when the brush has a row in this frame and knows it.
  bool hasRowOf(const VELBrush2D& brush) const {
    const auto row = static_cast<uint32_t>(brush.gradientIndex());  // a negative one is beyond every row
    return row - 1 < _storedBrushes.size() && _storedBrushes[row - 1].get() == &brush;
  }
  /// A new frame: rows are given out from 1 again. The texels stay.
  void o_clearAtlas();
  /// Binds the texture to unit 0, uploading first the rows whose texels changed, or all of them where GL does
  /// not have it. The GL context must be current.
  void o_applyTextureAtlas();

 private:
  std::vector<VELBrushPtr> _storedBrushes;  ///< the first one has row 1
  int32_t _lastBrushIndex = 0;
  VELTextureOpenGL _atlas;
  bool _atlasValid = false;
};
