// platform/window_host_gl_test.cpp: a real window under the events of a real X server.
#include "velmora/platform/sdl/window_host.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/platform/x_screen.h"
#include "velmora/platform/label_view.h"
#include "velmora/platform/touch.h"

namespace {

/// Takes every finger and every turn of the wheel.
struct Taker : VELView {
  std::vector<VELTouch> touches;
  std::vector<VELWheel> wheels;
  std::function<void()> onTouched = [] {};
  bool onTouch(const VELTouch& touch) override {
    touches.push_back(touch);
    onTouched();
    return true;
  }
  bool onWheel(const VELWheel& wheel) override {
    wheels.push_back(wheel);
    return true;
  }
};

class WindowHost : public testing::Test {
 protected:
  void SetUp() override {
    if (!_screen.failure().empty()) GTEST_SKIP() << _screen.failure();
    open({.title = "chart", .size = {300.0, 200.0}});
  }

  void open(const VELWindowOptions& options) {
    std::string failure;
    _host = VELWindowHost::create(options, &failure);
    ASSERT_TRUE(_host) << failure;
    ASSERT_TRUE(_screen.takeWindow(options.title));
    _taker = std::make_shared<Taker>();
    _host->rootView()->addSubview(_taker);
    rest();
    _taker->setFrame({0.0, 0.0, 1e4, 1e4});
    rest();
  }
  /// Turns until nothing happened for a tenth of a second.
  void rest() {
    for (int i = 0; i < 200 && _host->isOpen(); ++i) {
      const double before = _host->seconds();
      _host->step(0.1);
      if (_host->seconds() - before >= 0.1) return;
    }
  }
  template <typename Condition>
  bool comes(Condition condition) {
    const double end = _host->seconds() + 5.0;
    while (!condition() && _host->isOpen() && _host->seconds() < end) _host->step(0.05);
    return condition();
  }

  void expectTouches(const std::vector<VELTouch>& expected) const {
    ASSERT_EQ(_taker->touches.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
      const VELTouch& touch = _taker->touches[i];
      EXPECT_EQ(std::pair(touch.id, touch.phase), std::pair(expected[i].id, expected[i].phase)) << i;
      EXPECT_EQ(touch.location, expected[i].location) << i;
      EXPECT_EQ(touch.isMouse, touch.id == -1);
      EXPECT_TRUE(touch.seconds > 0.0 && touch.seconds <= _host->seconds());
    }
  }

  /// One for the process, which cannot change its display.
  static XScreen& screen() {
    static XScreen screen;
    return screen;
  }
  XScreen& _screen = screen();
  // The driver stays loaded with it: what it keeps for itself the leak sanitizer knows by its name.
  std::shared_ptr<VELGLContext> _other = VELGLContext::create();
  std::shared_ptr<VELWindowHost> _host;
  std::shared_ptr<Taker> _taker;
};

/// What the process does on a signal.
auto handlerOf(int signal) {
  struct sigaction action {};
  sigaction(signal, nullptr, &action);
  return action.sa_handler;
}

void pushFinger(uint32_t type, int64_t finger, float x, float y, int64_t device = 7) {
  SDL_Event event{};
  event.tfinger.type = type;
  event.tfinger.touchId = device;
  event.tfinger.fingerId = finger;
  event.tfinger.x = x;
  event.tfinger.y = y;
  SDL_PushEvent(&event);
}

}  // namespace

// First: once connected, a process stays so.
TEST(WindowHostRefusals, WhatIsMissingIsNamedInOneSentence) {
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  unsetenv("SDL_VIDEODRIVER");
  const std::pair<VELWindowOptions, const char*> rows[] = {
      {{.size = {0.0, 10.0}}, "without a size"},
      {{.size = {10.0, std::numeric_limits<double>::infinity()}}, "without a size"},
      {{.contentScale = -1.0}, "density"},
      {{.contentScale = 1e-300}, "density"},
  };
  for (const auto& [options, named] : rows) {
    std::string failure;
    EXPECT_EQ(VELWindowHost::create(options, &failure), nullptr);
    EXPECT_NE(failure.find(named), std::string::npos) << failure;
  }
  if (VELWindowHost::hasDisplay()) GTEST_SKIP() << "here is a panel without a desktop";
  std::string failure;
  EXPECT_EQ(VELWindowHost::create({}, &failure), nullptr);
  EXPECT_NE(failure.find("neither DISPLAY"), std::string::npos) << failure;
  EXPECT_EQ(std::count(failure.begin(), failure.end(), '\n'), 0);
  // The one that is set is the one that is named.
  for (const auto& [variable, value] :
       {std::pair("DISPLAY", ":54321"), std::pair("SDL_VIDEODRIVER", "nonesuch")}) {
    setenv(variable, value, 1);
    EXPECT_EQ(VELWindowHost::create({}, &failure), nullptr);
    EXPECT_NE(failure.find(std::string("'") + value + "'"), std::string::npos) << failure;
  }
  unsetenv("SDL_VIDEODRIVER");
}

TEST_F(WindowHost, TheMouseIsAFingerWhileItsLeftButtonIsDownAndHasAWheel) {
  _screen.movePointer(10, 20);
  _screen.click(3);  // the right button says nothing
  _screen.button(1, true);
  _screen.movePointer(60, 80);
  _screen.button(1, false);
  _screen.movePointer(30, 40);
  for (const unsigned button : {4u, 5u, 7u}) _screen.click(button);
  ASSERT_TRUE(comes([&] { return _taker->wheels.size() >= 3; }));
  expectTouches({{-1, VELTouchPhase_Began, {10.0, 20.0}},
                 {-1, VELTouchPhase_Moved, {60.0, 80.0}},
                 {-1, VELTouchPhase_Ended, {60.0, 80.0}}});
  const VELPoint turns[] = {{0.0, 1.0}, {0.0, -1.0}, {1.0, 0.0}};
  for (size_t i = 0; i < std::size(turns); ++i) {
    const VELWheel& wheel = _taker->wheels[i];
    EXPECT_EQ((VELPoint{wheel.deltaX, wheel.deltaY}), turns[i]) << i;
    EXPECT_EQ(wheel.location, (VELPoint{30.0, 40.0}));
  }
}

TEST_F(WindowHost, EveryFingerHasANumberOfItsOwnUntilItIsLifted) {
  pushFinger(SDL_FINGERDOWN, 501, 0.5f, 0.25f);
  pushFinger(SDL_FINGERDOWN, 501, 0.0f, 0.0f, 8);  // the same name on another device
  pushFinger(SDL_FINGERMOTION, 501, 0.25f, 0.5f);
  pushFinger(SDL_FINGERDOWN, 77, 0.5f, 0.5f, SDL_MOUSE_TOUCHID);  // made up for a mouse
  pushFinger(SDL_FINGERUP, 501, 0.25f, 0.5f);
  pushFinger(SDL_FINGERUP, 501, 0.25f, 0.5f);  // unknown by now
  pushFinger(SDL_FINGERDOWN, 502, 1.0f, 1.0f);
  SDL_Event away{};
  away.window.type = SDL_WINDOWEVENT;
  away.window.event = SDL_WINDOWEVENT_FOCUS_LOST;
  away.window.windowID = SDL_GetWindowID(SDL_GL_GetCurrentWindow());
  SDL_PushEvent(&away);
  pushFinger(SDL_FINGERMOTION, 502, 0.0f, 1.0f);
  ASSERT_TRUE(comes([&] { return _taker->touches.size() >= 7; }));
  rest();
  expectTouches({{0, VELTouchPhase_Began, {150.0, 50.0}},
                 {1, VELTouchPhase_Began, {0.0, 0.0}},
                 {0, VELTouchPhase_Moved, {75.0, 100.0}},
                 {0, VELTouchPhase_Ended, {75.0, 100.0}},
                 {0, VELTouchPhase_Began, {300.0, 200.0}},
                 {1, VELTouchPhase_Cancelled, {0.0, 0.0}},
                 {0, VELTouchPhase_Cancelled, {300.0, 200.0}}});
}

TEST_F(WindowHost, APressIsPlacedInTheSizeThatTheWindowHasByThenAndOthersWindowsAreOthers) {
  SDL_Window* const window = SDL_GL_GetCurrentWindow();
  _screen.resize(600, 400);
  for (int i = 0, width = 0; i < 1000 && width != 600; ++i) {
    SDL_Delay(1);
    SDL_PumpEvents();
    SDL_GetWindowSize(window, &width, nullptr);
  }
  pushFinger(SDL_FINGERDOWN, 1, 0.75f, 0.75f);  // outside of the root view as it was
  SDL_Event press{};
  press.button.type = SDL_MOUSEBUTTONDOWN;
  press.button.button = SDL_BUTTON_LEFT;
  SDL_PushEvent(&press);  // over no window in particular

  const uint32_t other = SDL_GetWindowID(window) + 1;
  for (const SDL_EventType type : {SDL_MOUSEBUTTONUP, SDL_MOUSEMOTION, SDL_MOUSEWHEEL, SDL_FINGERDOWN}) {
    SDL_Event event{};
    event.type = type;
    // All events of a mouse hold their window at the same place.
    (type == SDL_FINGERDOWN ? event.tfinger.windowID : event.button.windowID) = other;
    if (type == SDL_MOUSEBUTTONUP) event.button.button = SDL_BUTTON_LEFT;
    SDL_PushEvent(&event);
  }
  rest();
  expectTouches({{0, VELTouchPhase_Began, {450.0, 300.0}}, {-1, VELTouchPhase_Began, {0.0, 0.0}}});
  EXPECT_TRUE(_taker->wheels.empty());
}

TEST_F(WindowHost, TheRootViewFollowsAThousandSizesAndADensityKeepsThePixels) {
  VELSize toldSize;
  _host->setSizeChanged([&](const VELSize& size) { toldSize = size; });
  for (unsigned i = 0; i < 1000; ++i) {
    _screen.resize(i % 7 == 0 ? 1 : 100 + i % 400, 50 + i % 300);
    _host->step(0.0);
  }
  _screen.resize(300, 240);
  EXPECT_TRUE(comes([&] { return toldSize == VELSize{300.0, 240.0}; }));
  EXPECT_EQ(_host->rootView()->frame(), (VELRect{0.0, 0.0, 300.0, 240.0}));

  for (const double scale : {1.5, -1.0, std::numeric_limits<double>::quiet_NaN()})
    _host->setContentScale(scale);
  rest();
  EXPECT_EQ(_host->contentScale(), 1.5);
  EXPECT_EQ(_host->rootView()->frame().size(), (VELSize{200.0, 160.0}));
  const VELBitmap picture = _host->picture();
  EXPECT_EQ(std::pair(picture.width(), picture.height()), std::pair(300, 240));
  EXPECT_EQ(_host->glContext()->gl().getError(), VELGL_NO_ERROR);
  _screen.movePointer(30, 60);
  _screen.button(1, true);
  ASSERT_TRUE(comes([&] { return !_taker->touches.empty(); }));
  EXPECT_EQ(_taker->touches[0].location, (VELPoint{20.0, 40.0}));
}

TEST_F(WindowHost, OnlyAChangeIsPresentedAndOnRestTheProcessSleeps) {
  const auto label = std::make_shared<VELLabelView>(VELRect{10.0, 10.0, 50.0, 20.0});
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"a new view", [&] { _host->rootView()->addSubview(label); }},
      {"a text", [&] { label->setText("one"); }},
      {"a colour", [&] { label->setTextColor(VELColor(1.0f, 0.0f, 0.0f)); }},
      {"a place",
       [&] {
         label->setFrame({20.0, 10.0, 50.0, 20.0});
       }},
      {"a turn", [&] { label->setTransform(VELAffineTransform::rotation(0.5)); }},
      {"a view that hides", [&] { label->setHidden(true); }},
      {"the background", [&] { _host->setBackgroundColor(VELColor(0.0f, 1.0f, 0.0f)); }},
      {"a lost context", [&] { _host->glContext()->setLost(); }},
  };
  rest();
  for (const auto& [name, change] : changes) {
    const uint64_t before = _host->presentedFrames();
    change();
    rest();
    EXPECT_EQ(_host->presentedFrames(), before + 1) << name;
  }
  EXPECT_EQ(_screen.pixelAt(100, 100), 0x00FF00u);

  const double begin = _host->seconds();
  const uint64_t before = _host->presentedFrames();
  int beats = 0;
  const uint64_t key = _host->displayLink()->add([&](double) { ++beats; });
  EXPECT_TRUE(_host->step(1.0));
  EXPECT_GE(_host->seconds() - begin, 1.0) << "it came back although nothing happened";
  EXPECT_EQ(_host->presentedFrames(), before);
  EXPECT_EQ(beats, 0);
  _host->displayLink()->remove(key);
}

// Of several charts in the window the first ones drew into what is gone, the last ones did not.
TEST_F(WindowHost, ABeatInWhichTheContextIsLostIsNotPresentedAndTheNextOneIs) {
  rest();
  std::vector<uint64_t> presented;
  const uint64_t key = _host->displayLink()->add([&](double) {
    if (presented.empty()) _host->glContext()->setLost();
    presented.push_back(_host->presentedFrames());
  });
  const uint64_t before = _host->presentedFrames();
  _host->setBackgroundColor(VELColor(0.0f, 0.0f, 1.0f));
  rest();
  EXPECT_EQ(presented, (std::vector<uint64_t>{before, before}));
  EXPECT_EQ(_host->presentedFrames(), before + 1);
  EXPECT_EQ(_screen.pixelAt(100, 100), 0x0000FFu);
  _host->displayLink()->remove(key);
}

TEST_F(WindowHost, AnAwaitedDisplayBeatsAtItsPeriodAndAHiddenOneNotAtAll) {
  size_t beats = 0;
  const uint64_t key = _host->displayLink()->add([&](double) { ++beats; }, true);
  const uint64_t frames = _host->presentedFrames();
  const auto turnFor = [&](double seconds) {
    beats = 0;
    for (const double end = _host->seconds() + seconds; _host->seconds() < end;) _host->step(0.02);
    return beats;
  };
  const size_t inHalfASecond = turnFor(0.5);
  EXPECT_GE(inHalfASecond, 10u);  // a machine under load may miss some
  EXPECT_LE(inHalfASecond, 33u);
  EXPECT_EQ(_host->presentedFrames(), frames) << "nothing that shows was changed";

  _screen.hide();
  rest();
  EXPECT_EQ(turnFor(0.2), 0u);
  _screen.show();
  EXPECT_TRUE(comes([&] { return _host->presentedFrames() > frames; })) << "it was to be drawn anew";
  _host->displayLink()->remove(key);
}

TEST_F(WindowHost, TimersAndTheLoopEndAsToldFromInside) {
  int calls = 0;
  uint64_t key = 0;
  key = _host->addTimer(0.01, [&](double seconds) {
    EXPECT_LE(seconds, _host->seconds());
    EXPECT_FALSE(_host->step(0.0)) << "a turn inside a turn";
    if (++calls == 3) _host->removeTimer(key), _host->stop();
  });
  _host->run();
  EXPECT_EQ(calls, 3);
  EXPECT_TRUE(_host->isOpen());
  EXPECT_TRUE(_host->step(0.05)) << "a stop is used up by the run that it ended";
  EXPECT_EQ(calls, 3);

  // A view that lets go of everything, itself too, in the middle of its touch.
  const std::weak_ptr<VELWindowHost> watched = _host;
  VELWindowHost* const host = _host.get();
  _taker->onTouched = [&] {
    _host->rootView()->addSubview(std::make_shared<VELView>());
    _taker->removeFromSuperview();
    _taker.reset();
    _host.reset();
  };
  pushFinger(SDL_FINGERDOWN, 1, 0.5f, 0.5f);
  host->run();
  EXPECT_TRUE(watched.expired());
}

TEST_F(WindowHost, ACallFromOutsideOfTheLoopMayLetGoOfTheHostToo) {
  std::weak_ptr<VELWindowHost> watched = _host;
  _host->setContentScaleChanged([&](double) { _host.reset(); });
  _host->setContentScale(2.0);
  EXPECT_TRUE(watched.expired());

  open({.title = "wide", .size = {1e6, 50.0}});
  EXPECT_EQ(_host->rootView()->frame().size().width, 16384.0) << "as much as a driver draws into";
  watched = _host;
  VELWindowHost* const host = _host.get();
  const uint64_t key = _host->addTimer(1e3, [last = std::move(_host)](double) {});
  host->addTimer(1e3, [](double) {});
  host->removeTimer(key);
  EXPECT_TRUE(watched.expired());
}

TEST_F(WindowHost, AClosedWindowAndASignalEndTheLoopAndViewsLiveOn) {
  std::string failure;
  EXPECT_FALSE(VELWindowHost::create({}, &failure));
  EXPECT_NE(failure.find("has a window already"), std::string::npos);

  pushFinger(SDL_FINGERDOWN, 1, 0.5f, 0.5f);
  ASSERT_TRUE(comes([&] { return _taker->touches.size() == 1; }));
  _screen.askToClose();
  _host->run();
  EXPECT_FALSE(_host->isOpen() || _host->wasInterrupted() || _host->step(1.0));
  ASSERT_EQ(_taker->touches.size(), 2u);
  EXPECT_EQ(_taker->touches[1].phase, VELTouchPhase_Cancelled);
  const auto context = _host->glContext();
  _host.reset();
  EXPECT_EQ(handlerOf(SIGINT), SIG_DFL) << "the application ends by it as it did before";
  EXPECT_TRUE(context->makeCurrent()) << "the views of a closed window still free what they have";

  for (const int signal : {SIGINT, SIGTERM}) {
    open({.title = "again", .size = {100.0, 80.0}, .contentScale = 2.0});
    EXPECT_EQ(_host->rootView()->frame().size(), (VELSize{100.0, 80.0}));
    EXPECT_EQ(_host->picture().width(), 200);
    _host->addTimer(0.05, [signal](double) { std::raise(signal); });
    EXPECT_NE(handlerOf(signal), SIG_DFL);
    _host->run();
    EXPECT_TRUE(_host->wasInterrupted());
    EXPECT_FALSE(_host->isOpen());
    EXPECT_EQ(handlerOf(signal), SIG_DFL) << "the second one ends the process";
    _host.reset();

    open({});
    for (int i = 0; i < 3; ++i) std::raise(signal);  // one request, told by several
    const auto insist = [signal] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      std::raise(signal);
    };
    EXPECT_EXIT(insist(), testing::KilledBySignal(signal), "") << "also while the loop does not turn";
    _host.reset();
    open({});
    EXPECT_TRUE(_host->step(0.0) && !_host->wasInterrupted()) << "the next window is not its business";
    _host.reset();
  }
  std::signal(SIGTERM, SIG_IGN);
  open({});
  EXPECT_EQ(handlerOf(SIGTERM), SIG_IGN) << "what the application wants comes first";
  _host.reset();
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_IGN);
}
