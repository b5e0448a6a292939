// platform/offscreen_host_gl_test.cpp: what a host without a window accepts, and its end.
#include "velmora/platform/offscreen/offscreen_host.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

namespace {

/// Does as told when it is laid out.
struct Watcher : VELView {
  std::function<void()> onLayout = [] {};
  void layoutSubviews() override { onLayout(); }
};

}  // namespace

TEST(OffscreenHost, SizesAndScalesThatMakeNoPictureAreNamed) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const auto context = VELGLContext::create();
  ASSERT_TRUE(context && context->makeCurrent());
  const std::string limit = std::to_string(context->gl().getInteger(VELGL_MAX_TEXTURE_SIZE));
  const struct {
    VELSize size;
    double scale;
    std::string named;
  } rows[] = {
      {{0.0, 720.0}, 1.0, "0 x 720 points"},       {{1280.0, -3.0}, 1.0, "1280 x -3 points"},
      {{kNaN, 720.0}, 1.0, "nan x 720 points"},    {{1280.0, kInf}, 1.0, "1280 x inf points"},
      {{10.0, 10.0}, 0.0, "scale of 0 "},          {{10.0, 10.0}, -2.0, "scale of -2 "},
      {{10.0, 10.0}, kInf, "scale of inf "},       {{1e9, 10.0}, 1.0, "at most " + limit},
      {{10.0, 10.0}, 1e300, "at most " + limit},   {{1e300, 1e300}, 1e300, "at most " + limit},
      {{40000.0, 10.0}, 1.0, "40000 x 10 pixels"},
  };
  for (const auto& row : rows) {
    std::string failure;
    EXPECT_EQ(VELOffscreenHost::create(row.size, row.scale, &failure), nullptr) << row.named;
    EXPECT_NE(failure.find(row.named), std::string::npos) << failure;
    EXPECT_EQ(VELOffscreenHost::create(row.size, row.scale), nullptr);
  }
}

// An application may close its chart in answer to a refresh.
TEST(OffscreenHost, ARefreshSurvivesTheEndOfItsHost) {
  for (const bool settles : {false, true})
    for (const bool endsInLayout : {false, true}) {
      auto host = VELOffscreenHost::create({10.0, 10.0}, 1.0);
      ASSERT_TRUE(host);
      const std::weak_ptr<VELOffscreenHost> watched = host;
      const auto view = std::make_shared<Watcher>();
      if (endsInLayout) view->onLayout = [&] { host.reset(); };
      host->rootView()->addSubview(view);
      int beats = 0;
      host->displayLink()->add([&](double) { ++beats, host.reset(); });
      EXPECT_TRUE(settles ? host->settle(1.0) : (host->tick(1.0), true));
      EXPECT_EQ(beats, 1);
      EXPECT_TRUE(watched.expired());
    }
}
