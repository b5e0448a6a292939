// platform/gl_context.h: one OpenGL ES 2.0 context of the platform.
#pragma once

#include <memory>
#include <string>

#include "velmora/platform/export.h"
#include "velmora/platform/gl.h"

/// A GL context. The process has at most one current context, the last made current through this class.
/// Create contexts with `std::make_shared`: what lives in a context holds it weakly.
class VELMORA_API VELGLContext : public std::enable_shared_from_this<VELGLContext> {
 public:
  /// A new context of the platform, not tied to any window; null when the machine has none.
  /// (Implemented by the platform's GL folder.) Several may live at once; each has objects of its own.
  static std::shared_ptr<VELGLContext> create();
  /// Why the last `create` answered null, in one sentence that says what to install; empty after a success.
  static std::string lastFailure();
  /// The context made current last, or null.
  static VELGLContext* current();

  VELGLContext() = default;
  VELGLContext(const VELGLContext&) = delete;
  VELGLContext& operator=(const VELGLContext&) = delete;
  /// Forgets the context when it is the current one.
  virtual ~VELGLContext();

  /// Makes the context current on this thread; false when the platform refuses. Cheap when it is already.
  bool makeCurrent();
  virtual VELGL& gl() = 0;

 protected:
  virtual bool doMakeCurrent() = 0;
};

/// Makes a context current for the length of a block, then the one that was current before. What frees GL
/// objects uses it: an owner may die while another context is at work.
class VELMORA_API VELGLContextScope {
 public:
  explicit VELGLContextScope(VELGLContext& context);
  VELGLContextScope(const VELGLContextScope&) = delete;
  VELGLContextScope& operator=(const VELGLContextScope&) = delete;
  ~VELGLContextScope();

  /// False when the context could not be made current: make no GL call then.
  bool isCurrent() const { return _isCurrent; }

 private:
  VELGLContext* _previous;
  bool _isCurrent;
};
