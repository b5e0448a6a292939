// Scrolling and zooming of every kind of axis, in every place.
#include "tests/axes/axis_kinds.h"

namespace {

/// Calls `test` with axes of each kind, X and Y, horizontal and vertical, flipped and not.
template <class Test>
void inEveryPlace(Test test) {
  const struct {
    AxisMaker make;
    double min, max;
  } rows[] = {{kNumeric, -3, 5},         {kLogarithmic, 0.5, 4000}, {kLogarithmic, -300, -2},
              {kDateTime, 1.6e9, 1.7e9}, {kCategory, -0.5, 99},     {kCategoryDates, 3, 8}};
  for (const auto& row : rows)
    for (int place = 0; place < 8; ++place) {
      OneAxisChart chart(row.make, (place & 1) != 0, (place & 2) != 0);
      chart.axis->setFlipCoordinates((place & 4) != 0);
      chart.show(row.min, row.max);
      SCOPED_TRACE(testing::Message() << chart.axis->className() << ' ' << row.min << " place " << place);
      test(*chart.axis);
    }
}

TEST(AxisGestures, TheValueUnderTheFingerStaysUnderTheFinger) {
  inEveryPlace([](VELAxisBase& axis) {
    const double value = axis.getCurrentCoordinateCalculator()->getDataValueFrom(120);
    const double sign = axis.isXAxis() ? 1.0 : -1.0;
    const VELRangePtr range = axis.visibleRange();
    const auto helper = axis.getCurrentInteractivityHelper();
    axis.scrollByPixels(sign * 230, VELClipMode_None);  // two moves between two frames
    EXPECT_EQ(helper->scrollInMinDirection(*range, sign * 23)->maxAsDouble(), range->maxAsDouble());
    EXPECT_EQ(helper->scrollInMaxDirection(*range, sign * 230)->maxAsDouble(),
              axis.visibleRange()->maxAsDouble());
    axis.scrollByPixels(sign * -150, static_cast<VELClipMode>(3));
    EXPECT_NEAR(axis.getCurrentCoordinateCalculator()->getCoordinateFrom(value), 200, 1e-4);
    // As the pinch gesture splits its fraction: from the left, and upwards from the bottom.
    const double share = (axis.isHorizontalAxis() ? 270.0 : 400.0 - 270.0) / 400.0;
    const double held = axis.currentCoordinateCalculator()->getDataValueFrom(270);
    const bool isInverted = axis.flipCoordinates() != (axis.isHorizontalAxis() != axis.isXAxis());
    for (const double f : {-0.5, 0.25})
      axis.zoomByFractionMin((isInverted ? 1 - share : share) * f, (isInverted ? share : 1 - share) * f);
    EXPECT_NEAR(axis.getCurrentCoordinateCalculator()->getCoordinateFrom(held), 270, 1e-4);
  });
}

TEST(AxisGestures, WhatWouldBeNoRangeIsNotSet) {
  inEveryPlace([](VELAxisBase& axis) {
    const VELRangePtr before = axis.visibleRange()->clone();
    for (const double bad : {kNaN, kInf, -kInf}) {
      axis.scrollByPixels(bad, VELClipMode_StopAtLimits);
      axis.zoomByFractionMin(bad, 0);
    }
    for (const double f : {-0.5, -0.7}) axis.zoomByFractionMin(f, f);
    EXPECT_TRUE(axis.visibleRange()->equals(before)) << *axis.visibleRange();
    for (const double f : {-0.3, 0.5}) {
      for (int i = 0; i < 2000; ++i) axis.zoomByFractionMin(f, f * 0.7);
      const VELRange& range = *axis.visibleRange();
      EXPECT_TRUE(axis.isVisibleRangeValid()) << "after a long way in and out: " << range;
      EXPECT_GE(range.maxAsDouble() - range.minAsDouble(), 9e-13 * std::abs(range.maxAsDouble()));
      const auto helper = axis.getCurrentInteractivityHelper();
      EXPECT_TRUE(axis.isValidRange(helper->zoomByFractionMin(range, 1e4, 0)));
      EXPECT_TRUE(axis.isValidRange(helper->zoomByFractionMin(range, 0, 1e4)));
    }
  });
}

TEST(AxisGestures, ClipModesStopAtTheDataAndAtWhatWasSeenBefore) {
  constexpr auto kHold = VELClipMode_HoldEnd, kStop = VELClipMode_StopAtLimits,
                 kOther = static_cast<VELClipMode>(2);
  // 40 points are a tenth of a range. The data reaches from 10 to 110.
  const struct {
    AxisMaker make;
    double min, max;
    std::vector<double> pixels;
    VELClipMode mode;
    double wantedMin, wantedMax;
  } rows[] = {{kNumeric, 20, 40, {-400}, VELClipMode_None, 40, 60},
              {kNumeric, 20, 40, {400}, kOther, 0, 20},
              {kNumeric, 20, 40, {400}, kHold, 10, 20},
              {kNumeric, 90, 110, {-40}, kHold, 92, 110},
              {kNumeric, 20, 40, {400}, kStop, 10, 30},
              {kNumeric, 90, 110, {-40}, kStop, 90, 110},
              {kNumeric, 0, 200, {40}, kStop, 0, 200},  // zoomed out: no jump
              {kNumeric, 0, 200, {40}, kHold, 0, 180},
              {kDateTime, -30, 70, {-40, 20, 200}, kStop, -30, 70},  // back to its start
              {kLogarithmic, 11, 1100, {400}, kStop, 10, 1000}};
  for (const auto& row : rows) {
    OneAxisChart chart(row.make);
    chart.add(doubles(10, 110));
    chart.show(row.min, row.max);
    for (const double pixels : row.pixels) chart.axis->scrollByPixels(pixels, row.mode);
    expectRange(chart.axis->visibleRange(), row.wantedMin, row.wantedMax);
  }
}

TEST(AxisGestures, LimitsAndConstraintsBoundWhatAGestureReaches) {
  OneAxisChart chart(kDateTime), powers(kLogarithmic);
  chart.axis->setVisibleRangeLimit(doubles(0, 1000));
  chart.axis->setMinimalZoomConstrain(50);
  chart.axis->setMaximalZoomConstrain(400.0f);
  chart.show(100, 300);
  const auto expectAfterZoom = [&chart](double minFraction, double maxFraction, double min, double max) {
    chart.axis->zoomByFractionMin(minFraction, maxFraction);
    expectRange(chart.axis->visibleRange(), min, max);
  };
  chart.axis->scrollByPixels(399, VELClipMode_None);
  expectAfterZoom(0, 0, 0, 200);
  expectAfterZoom(0.5, 0.5, 0, 300);
  expectAfterZoom(0, 9, 0, 400);
  expectAfterZoom(-0.75, -0.25, 262.5, 312.5);  // in the proportion that was asked for
  chart.show(0, 30);                            // narrower than allowed: it stays, and may grow
  expectAfterZoom(-0.1, -0.1, 0, 30);
  expectAfterZoom(0, 0.1, 0, 33);
  chart.show(-100, 100);  // outside the limit: no jump
  chart.axis->scrollByPixels(20, VELClipMode_None);
  expectAfterZoom(0, 0, -100, 100);

  // The other end gives way as far as the narrowest span, whatever stops the one.
  chart.show(0, 60);
  expectAfterZoom(0.5, -0.6, 0, 50);
  chart.add(doubles(0, 100));
  chart.show(0, 100);
  for (int i = 0; i < 30; ++i) chart.axis->scrollByPixels(-16, VELClipMode_HoldEnd);
  expectAfterZoom(0, 0, 50, 100);
  const auto helper = chart.axis->getCurrentInteractivityHelper();
  for (const double max : {9.0, 20.0})  // on one side, on both
    expectRange(helper->clip(*doubles(-5, max), *doubles(0, 10), *doubles(0, 10), VELClipMode_StopAtLimits),
                0, 10);

  powers.axis->setMinimalZoomConstrain(1);
  powers.show(1, 1e4);
  powers.axis->zoomByFractionMin(-0.5, -0.5);
  expectRange(powers.axis->visibleRange(), std::pow(10, 1.5), std::pow(10, 2.5));
}

TEST(AxisGestures, PixelsOfAnAxisWithoutLengthMoveNothing) {
  for (const AxisMaker make : {kNumeric, kLogarithmic})
    for (const double length : {0.0, 0.5, 1.0})
      for (const bool isFlipped : {false, true}) {
        const auto surface = std::make_shared<FakeSurface>();
        surface->frame = {0, 0, length, 100};
        const auto axis = make();
        axis->setParentSurface(surface);
        axis->setFlipCoordinates(isFlipped);
        axis->setVisibleRange(doubles(2, 10));
        axis->scrollByPixels(0.1, VELClipMode_None);
        expectRange(axis->visibleRange(), 2, 10);
        const auto helper = axis->getCurrentInteractivityHelper();
        expectRange(helper->scrollInMaxDirection(*axis->visibleRange(), 0.1), 2, 10);
      }
}

}  // namespace
