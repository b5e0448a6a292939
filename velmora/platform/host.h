// platform/host.h: who shows a view tree: a window, or a picture in memory.
#pragma once

#include <memory>

#include "velmora/platform/display_link.h"
#include "velmora/platform/export.h"
#include "velmora/platform/gl_context.h"
#include "velmora/platform/view.h"

/// Gives charts their GL context, their beat and their density. Outlives the views that it shows.
class VELMORA_API VELHost {
 public:
  virtual ~VELHost() = default;
  virtual const std::shared_ptr<VELGLContext>& glContext() const = 0;
  virtual const std::shared_ptr<VELDisplayLink>& displayLink() const = 0;
  /// Pixels per point.
  virtual double contentScale() const = 0;
  /// The topmost view; charts are added below it.
  virtual const std::shared_ptr<VELView>& rootView() const = 0;
};
