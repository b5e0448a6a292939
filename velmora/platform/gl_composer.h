// platform/gl_composer.h: the one GL way from a view tree to pixels, for a window as for a picture.
//
// Units: frames in points, target in pixels (= points × scale).
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/platform/color.h"
#include "velmora/platform/composer.h"
#include "velmora/platform/export.h"
#include "velmora/platform/gl_context.h"
#include "velmora/platform/text_texture_cache.h"

/// Where a tree is composed: the bound framebuffer and what it starts from.
struct VELGLComposerTarget {
  int32_t width = 0;   ///< pixels
  int32_t height = 0;  ///< pixels
  double scale = 1.0;  ///< pixels per point
  VELColor background;
};

/// Draws layers and texts, back to front, as textured rectangles.
///
/// A layer as large as its frame, and a text that is not turned or turned by quarters, lies on whole pixels
/// and keeps its own pixels unchanged. Colours are not premultiplied; over an opaque background the result is
/// opaque. It sets all GL state that it needs and leaves blending on, scissoring off, and nothing bound but
/// the framebuffer. After a lost context it makes its objects again. A layer of another GL context is not
/// drawn.
class VELMORA_API VELGLComposer : public VELComposer {
 public:
  /// @param context where it draws, held strongly
  explicit VELGLComposer(std::shared_ptr<VELGLContext> context);
  VELGLComposer(const VELGLComposer&) = delete;
  VELGLComposer& operator=(const VELGLComposer&) = delete;
  ~VELGLComposer() override;

  /// Clears the bound framebuffer and draws the tree onto it. The context must be current.
  /// @return false when the driver refuses the composer's program; then only the background is drawn
  bool drawTree(VELView& root, const VELGLComposerTarget& target);

  VELTextTextureCache& textCache() { return _texts; }

 private:
  void composeLayer(const VELGLLayer& layer, const VELRect& frame) override;
  void composeText(const VELAttributedText& text, uint32_t colorCode, const VELSize& size,
                   const VELAffineTransform& transform, const VELRect& frame) override;

  struct Vertex {
    float x, y;  ///< pixels, origin top left
    float u, v;
  };
  struct Quad {
    uint32_t texture;
    uint32_t colorCode;  ///< 0xAABBGGRR: colour added to the texture's, alpha multiplied with it
    uint32_t filter;
  };

  bool prepareProgram();
  bool isLost() const { return _context->hasLost(_generation); }
  void setState(const VELGLComposerTarget& target);
  /// @param centre of the rectangle, @p x and @p y its half sides as vectors; all in pixels
  void addQuad(const Quad& quad, VELPoint centre, VELPoint x, VELPoint y, bool isBottomUp);
  void drawQuads(const VELGLComposerTarget& target);

  std::shared_ptr<VELGLContext> _context;
  VELTextTextureCache _texts;
  double _scale = 1.0;
  std::vector<Vertex> _vertices;  ///< four a quad, kept between frames for their capacity
  std::vector<Quad> _quads;
  uint32_t _generation;  ///< of the context, when program and buffer were made
  uint32_t _program = 0;
  uint32_t _buffer = 0;
  int32_t _pixelSizeSlot = -1;
  int32_t _colorSlot = -1;
  bool _isRefused = false;
};
