#include "velmora/platform/gl_context.h"

#include <cstdio>

namespace {

VELGLContext* currentContext = nullptr;
uint64_t errors = 0;

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

bool VELGLContext::checkErrors() {
  const uint32_t first = gl().getError();
  if (first == VELGL_NO_ERROR) return true;
  for (int i = 1; i < mostErrors && gl().getError() != VELGL_NO_ERROR;) ++i;
  ++errors;
  std::fprintf(stderr, "OpenGL noted the error 0x%x\n", first);
  return false;
}

uint64_t VELGLContext::errorCount() { return errors; }

VELGLContextScope::VELGLContextScope(VELGLContext& context)
    : _previous(VELGLContext::current()), _isCurrent(context.makeCurrent()) {}

VELGLContextScope::~VELGLContextScope() {
  if (_isCurrent && _previous && _previous != VELGLContext::current()) _previous->makeCurrent();
}
