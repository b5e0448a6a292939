// platform/offscreen/offscreen_host.h: charts without a window, as pictures.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "velmora/platform/bitmap.h"
#include "velmora/platform/color.h"
#include "velmora/platform/export.h"
#include "velmora/platform/gl_composer.h"
#include "velmora/platform/gl_layer.h"
#include "velmora/platform/host.h"

/// A host whose screen is a piece of memory. Its beat comes from `tick`; it reads no clock.
class VELMORA_API VELOffscreenHost : public VELHost {
  /// Only `create` can make one: no host exists that was not checked.
  struct Checked {
    explicit Checked() = default;
  };

 public:
  /// @param sizeInPoints of the root view; the picture has size × scale pixels, rounded
  /// @param contentScale pixels per point
  /// @param failure when given, takes the reason in one sentence
  /// @return null when the size or the scale is not positive and finite, when the picture has more pixels a
  /// side than GL can hold, or when the machine has no GL
  static std::shared_ptr<VELOffscreenHost> create(const VELSize& sizeInPoints, double contentScale,
                                                  std::string* failure = nullptr);
  VELOffscreenHost(Checked, std::shared_ptr<VELGLContext> context, const VELSize& sizeInPoints,
                   double contentScale);
  VELOffscreenHost(const VELOffscreenHost&) = delete;
  VELOffscreenHost& operator=(const VELOffscreenHost&) = delete;
  ~VELOffscreenHost() override;

  const std::shared_ptr<VELGLContext>& glContext() const override { return _context; }
  const std::shared_ptr<VELDisplayLink>& displayLink() const override { return _displayLink; }
  double contentScale() const override { return _contentScale; }
  const std::shared_ptr<VELView>& rootView() const override { return _rootView; }

  int32_t pixelWidth() const { return _target.width(); }
  int32_t pixelHeight() const { return _target.height(); }
  /// What shows where no view draws; opaque black at first.
  const VELColor& backgroundColor() const { return _backgroundColor; }
  void setBackgroundColor(const VELColor& color) { _backgroundColor = color; }

  /// One refresh at a time in seconds: lays out what asked for it, beats the display link, lays out again
  /// what its listeners changed.
  void tick(double seconds);
  /// Refreshes until nothing in the tree waits for another one, at most 16 times: the labels of a chart make
  /// room for themselves only after they were drawn once.
  /// @return false when something still waits, such as a surface that redraws at every refresh
  bool settle(double seconds);
  /// The tree as it stands, composed now; opaque. Empty when GL refuses. What a lost GL context took along is
  /// drawn again by the next `tick`.
  VELBitmap picture();
  VELGLComposer& composer() { return _composer; }

 private:
  bool prepareTarget(int32_t width, int32_t height);
  bool renewTarget();

  // In this order: the views go first, then what draws them, the context last.
  std::shared_ptr<VELGLContext> _context;
  VELGLLayer _target;
  uint32_t _generation = 0;   ///< of the context, when the framebuffer was made
  uint32_t _framebuffer = 0;  ///< 0 until the target is complete
  VELGLComposer _composer;
  std::shared_ptr<VELDisplayLink> _displayLink;
  std::shared_ptr<VELView> _rootView;
  double _contentScale;
  VELColor _backgroundColor;
};
