// platform/gl_context.h: one OpenGL ES 2.0 context of the platform.
#pragma once

#include <cstdint>
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

  /// Makes the context current on this thread; false when the platform refuses. Cheap when it is already. A
  /// lost context is first replaced by a fresh one; while there is none to be had it stays lost, which is
  /// said once on stderr, and every later call tries again.
  bool makeCurrent();
  virtual VELGL& gl() = 0;

  /// Counts the contexts of the platform that stood behind this object, from 1.
  ///
  /// What has names in GL remembers the generation that it made them in. In a later one those names mean
  /// nothing, or something else: they are never deleted, and everything is made again from the CPU side.
  uint32_t generation() const { return _generation; }
  /// True from the moment that the loss is known until the context is made current again.
  bool isLost() const { return _isLost; }
  /// True when the names made in @p generation mean nothing any more.
  bool hasLost(uint32_t generation) const { return _isLost || generation != _generation; }
  /// Tells that the driver lost everything; for hosts and systems that say so.
  void setLost() { _isLost = true; }
  /// Asks the driver whether it lost everything since, where it can tell. The context must be current.
  /// @return `isLost`
  bool checkLost();

  /// Takes the errors that GL has noted in this context, which must be current, and logs the first one with
  /// its code in hexadecimal. An error here is a fault of the library: debug builds ask after every frame.
  /// @return false when there was one
  bool checkErrors();
  /// Takes the errors without a word: those that others left, before the library's own calls are judged.
  void forgetErrors();
  /// How many times `checkErrors` found an error, in any context of the process.
  static uint64_t errorCount();
  /// How many times `forgetErrors` did.
  static uint64_t forgottenErrorCount();

 protected:
  /// May call `setLost` when it learns of the loss only here.
  virtual bool doMakeCurrent() = 0;
  /// Whether the driver reports a reset. The context is current.
  virtual bool doCheckLost() { return false; }
  /// Puts a fresh context of the platform in the place of the lost one; false when there is none to be had
  /// now.
  virtual bool doReplace() = 0;

 private:
  bool replace();
  uint32_t takeErrors();

  uint32_t _generation = 1;
  bool _isLost = false;
  bool _isRefusalTold = false;
};

/// Makes a context current for the length of a block, then the one that was current before. What frees GL
/// objects uses it: an owner may die while another context is at work.
class VELMORA_API VELGLContextScope {
 public:
  explicit VELGLContextScope(VELGLContext& context);
  /// For freeing what was made in @p generation. When those names mean nothing any more the context is not
  /// current here, and a lost one is not replaced for it.
  VELGLContextScope(VELGLContext& context, uint32_t generation);
  VELGLContextScope(const VELGLContextScope&) = delete;
  VELGLContextScope& operator=(const VELGLContextScope&) = delete;
  ~VELGLContextScope();

  /// False when the context could not be made current: make no GL call then.
  bool isCurrent() const { return _isCurrent; }

 private:
  VELGLContext* _previous;
  bool _isEntered;
  bool _isCurrent;
};
