#include "velmora/platform/gl_context.h"

namespace {
VELGLContext* currentContext = nullptr;
}  // namespace

VELGLContext* VELGLContext::current() { return currentContext; }

VELGLContext::~VELGLContext() {
  if (currentContext == this) currentContext = nullptr;
}

bool VELGLContext::makeCurrent() {
  if (!doMakeCurrent()) return false;
  currentContext = this;
  return true;
}

VELGLContextScope::VELGLContextScope(VELGLContext& context)
    : _previous(VELGLContext::current()), _isCurrent(context.makeCurrent()) {}

VELGLContextScope::~VELGLContextScope() {
  if (_isCurrent && _previous && _previous != VELGLContext::current()) _previous->makeCurrent();
}
