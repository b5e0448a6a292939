// support/recording_host.h: a host on a GL context that records, for whole charts without a driver.
#pragma once

#include <memory>
#include <utility>

#include "tests/support/recording_gl.h"
#include "velmora/platform/host.h"

class RecordingHost final : public VELHost {
 public:
  explicit RecordingHost(double contentScale = 1.0,
                         std::shared_ptr<VELGLContext> context = std::make_shared<RecordingGLContext>())
      : _context(std::move(context)), _contentScale(contentScale) {}

  const std::shared_ptr<VELGLContext>& glContext() const override { return _context; }
  const std::shared_ptr<VELDisplayLink>& displayLink() const override { return _displayLink; }
  double contentScale() const override { return _contentScale; }
  const std::shared_ptr<VELView>& rootView() const override { return _rootView; }

  RecordingGL& gl() { return static_cast<RecordingGLContext&>(*_context).gl(); }
  /// One refresh with the layouts around it.
  void tick() {
    _rootView->layoutIfNeeded();
    _displayLink->tick(0.0);
    _rootView->layoutIfNeeded();
  }
  void settle() {
    for (int i = 0; i < 16 && _rootView->isTreeDirty(); ++i) tick();
  }

 private:
  std::shared_ptr<VELGLContext> _context;
  std::shared_ptr<VELDisplayLink> _displayLink = std::make_shared<VELDisplayLink>();
  std::shared_ptr<VELView> _rootView = std::make_shared<VELView>();
  double _contentScale;
};
