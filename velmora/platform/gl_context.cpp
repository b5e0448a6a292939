#include "velmora/platform/gl_context.h"

#include <cstdio>

namespace {

VELGLContext* currentContext = nullptr;
uint64_t errors = 0;
uint64_t forgottenErrors = 0;

// A lost context may answer every question with an error.
constexpr int mostErrors = 16;

}  // namespace

VELGLContext* VELGLContext::current() { return currentContext; }

VELGLContext::~VELGLContext() {
  if (currentContext == this) currentContext = nullptr;
}

bool VELGLContext::makeCurrent() {
  const bool isReady = !_isLost && doMakeCurrent();
  if (!isReady && !(_isLost && replace() && doMakeCurrent())) return false;
  currentContext = this;
  return true;
}

bool VELGLContext::replace() {
  // What made the lost context current, made a name of it that nobody may use.
  if (currentContext == this) currentContext = nullptr;
  // Making the fresh context current is part of setting it up.
  _isLost = false;
  if (!doReplace()) {
    _isLost = true;
    if (!_isRefusalTold)
      std::fprintf(stderr,
                   "The OpenGL context was lost and the driver gives no new one yet; charts stand still "
                   "until it does.\n");
    _isRefusalTold = true;
    return false;
  }
  _isRefusalTold = false;
  ++_generation;
  return true;
}

bool VELGLContext::checkLost() {
  if (!_isLost && current() == this) _isLost = doCheckLost();
  return _isLost;
}

uint32_t VELGLContext::takeErrors() {
  const uint32_t first = gl().getError();
  if (first == VELGL_NO_ERROR) return first;
  for (int i = 1; i < mostErrors && gl().getError() != VELGL_NO_ERROR;) ++i;
  return first;
}

bool VELGLContext::checkErrors() {
  const uint32_t first = takeErrors();
  if (first == VELGL_NO_ERROR) return true;
  ++errors;
  std::fprintf(stderr, "OpenGL noted the error 0x%x\n", first);
  return false;
}

void VELGLContext::forgetErrors() { forgottenErrors += takeErrors() == VELGL_NO_ERROR ? 0 : 1; }

uint64_t VELGLContext::errorCount() { return errors; }

uint64_t VELGLContext::forgottenErrorCount() { return forgottenErrors; }

VELGLContextScope::VELGLContextScope(VELGLContext& context)
    : _previous(VELGLContext::current()), _isEntered(context.makeCurrent()), _isCurrent(_isEntered) {}

VELGLContextScope::VELGLContextScope(VELGLContext& context, uint32_t generation)
    : _previous(VELGLContext::current()),
      _isEntered(!context.hasLost(generation) && context.makeCurrent()),
      // The loss may have become known only now.
      _isCurrent(_isEntered && !context.hasLost(generation)) {}

VELGLContextScope::~VELGLContextScope() {
  if (_isEntered && _previous && _previous != VELGLContext::current()) _previous->makeCurrent();
}
