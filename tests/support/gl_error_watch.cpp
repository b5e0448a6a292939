#include "tests/support/gl_error_watch.h"

#include <gtest/gtest.h>

#include "velmora/platform/gl_context.h"

namespace {

bool areErrorsExpected = false;

class GLErrorWatch : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override {
    _before = count();
    areErrorsExpected = false;
  }
  void OnTestEnd(const testing::TestInfo&) override {
    VELGLContext* const context = VELGLContext::current();
    if (context && !context->isLost()) context->checkErrors();
    if (areErrorsExpected) return;
    EXPECT_EQ(count(), _before) << "GL noted an error, see stderr";
  }
  static uint64_t count() { return VELGLContext::errorCount() + VELGLContext::forgottenErrorCount(); }
  uint64_t _before = 0;
};

[[maybe_unused]] const bool isWatching = [] {
  testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<GLErrorWatch>().release());
  return true;
}();

}  // namespace

void expectGLErrorsInThisTest() { areErrorsExpected = true; }
