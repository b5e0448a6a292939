// platform/touch_router_test.cpp: which view gets which finger, and that none is left without an end.
#include "velmora/platform/touch_router.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Watcher : VELView {
  Watcher(const VELRect& frame, char mark, bool takes, std::string& out)
      : VELView(frame), name(mark), isTaker(takes), log(out) {}
  bool onTouch(const VELTouch& touch) override {
    log += {name, "bmec"[touch.phase], static_cast<char>('0' + touch.id), ' '};
    onTouched();
    return isTaker;
  }
  bool onWheel(const VELWheel&) override {
    log += {name, 'w', ' '};
    return isTaker;
  }
  char name;
  bool isTaker;
  std::string& log;
  std::function<void()> onTouched = [] {};
};

class TouchRouter : public testing::Test {
 protected:
  TouchRouter() {
    root->addSubview(left);
    root->addSubview(right);
    left->addSubview(inner);
  }
  void touch(VELTouchPhase phase, double x, double y, int64_t id = 1) {
    router.touch({id, phase, {x, y}, 1.0});
  }
  void began(double x, double y, int64_t id = 1) { touch(VELTouchPhase_Began, x, y, id); }
  void moved(double x, double y, int64_t id = 1) { touch(VELTouchPhase_Moved, x, y, id); }
  void ended(double x, double y, int64_t id = 1) { touch(VELTouchPhase_Ended, x, y, id); }

  std::string log;
  std::shared_ptr<Watcher> root = std::make_shared<Watcher>(VELRect{0, 0, 100, 100}, 'O', false, log);
  std::shared_ptr<Watcher> left = std::make_shared<Watcher>(VELRect{0, 0, 40, 100}, 'L', true, log);
  std::shared_ptr<Watcher> right = std::make_shared<Watcher>(VELRect{60, 0, 40, 100}, 'R', true, log);
  std::shared_ptr<Watcher> inner = std::make_shared<Watcher>(VELRect{10, 10, 10, 10}, 'i', false, log);
  VELTouchRouter router{root};
};

}  // namespace

TEST_F(TouchRouter, TheViewThatTakesABeginningGetsTheRestWhereverItGoes) {
  const struct {
    const char* name;
    std::function<void()> act;
    const char* log;
    size_t held;
  } rows[] = {
      {"bubbles up", [&] { began(15, 15), moved(80, 15), ended(-5, 500); }, "ib1 Lb1 Lm1 Le1 ", 0},
      {"nobody takes it", [&] { began(50, 50), moved(10, 50), ended(10, 50); }, "Ob1 ", 0},
      {"two fingers", [&] { began(5, 5), began(70, 5, 2), moved(5, 6), ended(70, 6, 2); }, "Lb1 Rb2 Lm1 Re2 ",
       1},
      {"begun twice", [&] { began(5, 5), began(70, 5); }, "Lb1 Lc1 Rb1 ", 1},
      {"no place", [&] { began(kNaN, 5), began(5, kInf); }, "", 0},
      {"no place later", [&] { began(5, 5), moved(5, kNaN), ended(kNaN, 5); }, "Lb1 Lc1 ", 0},
      {"all cancelled", [&] { began(5, 5), began(70, 5, 2), router.cancelAll(2.0), ended(5, 5); },
       "Lb1 Rb2 Lc1 Rc2 ", 0},
      {"wheel",
       [&] {
         EXPECT_TRUE(router.wheel({{15, 15}, 0, 1}) && !router.wheel({{50, 5}}));
       },
       "iw Lw Ow ", 0},
      {"wheel of no number",
       [&] {
         EXPECT_FALSE(router.wheel({{15, 15}, kNaN, 1}) || router.wheel({{kNaN, 5}, 0, 1}));
       },
       "", 0},
  };
  for (const auto& row : rows) {
    log.clear();
    row.act();
    EXPECT_EQ(log, row.log) << row.name;
    EXPECT_EQ(router.heldFingers(), row.held) << row.name;
    log.clear();
    router.cancelAll(3.0);
  }
}

TEST_F(TouchRouter, AViewThatLeavesIsCancelledAndOneThatDiesIsForgotten) {
  began(5, 5);
  left->removeFromSuperview();
  moved(6, 6), moved(7, 7);
  EXPECT_EQ(log, "Lb1 Lc1 ");

  log.clear();
  right->isTaker = true;
  began(70, 5);
  right->removeFromSuperview();
  right.reset();
  moved(71, 5), ended(71, 5);
  EXPECT_EQ(log, "Rb1 ");
  EXPECT_EQ(router.heldFingers(), 0u);

  // Inside its own touch.
  log.clear();
  root->addSubview(left);
  left->onTouched = [&] { left->removeFromSuperview(), router.cancelAll(2.0); };
  began(5, 5);
  left->onTouched = [] {};
  moved(6, 6);
  EXPECT_EQ(log, "Lb1 Lc1 ");
  root.reset();
  began(5, 5);
  EXPECT_EQ(log, "Lb1 Lc1 ");
}
