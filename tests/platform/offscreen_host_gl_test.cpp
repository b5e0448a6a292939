// platform/offscreen_host_gl_test.cpp: what a host without a window accepts, and its beat.
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

TEST(OffscreenHost, ThePictureHasSizeTimesScalePixelsOfTheOpaqueBackground) {
  const struct {
    VELSize size;
    double scale;
    int32_t width, height;
  } rows[] = {{{32.0, 20.0}, 1.0, 32, 20},
              {{32.0, 20.0}, 2.0, 64, 40},
              {{33.0, 21.0}, 1.5, 50, 32},
              {{0.1, 0.1}, 1.0, 1, 1}};
  for (const auto& row : rows) {
    const auto host = VELOffscreenHost::create(row.size, row.scale);
    ASSERT_TRUE(host);
    EXPECT_EQ(host->rootView()->frame(), (VELRect{0.0, 0.0, row.size.width, row.size.height}));
    host->setBackgroundColor(VELColor::fromColorCode(0x20C08040u));
    const VELBitmap picture = host->picture();
    ASSERT_EQ(picture.width(), row.width);
    ASSERT_EQ(picture.height(), row.height);
    for (int32_t y = 0; y < row.height; ++y)
      for (int32_t x = 0; x < row.width; ++x) ASSERT_EQ(picture.colorCodeAt(x, y), 0xFFC08040u);
  }
}

TEST(OffscreenHost, ABeatLaysOutThenCallsThenLaysOutWhatTheCallChanged) {
  const auto host = VELOffscreenHost::create({10.0, 10.0}, 1.0);
  ASSERT_TRUE(host);
  std::string log;
  const auto view = std::make_shared<Watcher>();
  view->onLayout = [&] { log += 'L'; };
  host->rootView()->addSubview(view);
  host->displayLink()->add([&](double seconds) {
    log += seconds == 0.25 ? 'T' : '?';
    EXPECT_EQ(VELGLContext::current(), host->glContext().get());
    view->setNeedsLayout();
  });
  const auto other = VELOffscreenHost::create({10.0, 10.0}, 1.0);
  host->tick(0.25);
  EXPECT_EQ(log, "LTL");
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
