#include "tests/axes/fake_chart.h"
#include "velmora/axes/label_culling.h"
#include "velmora/platform/text.h"

namespace {

VELRect inChart(const VELAxisBase& axis, const VELView& label) {
  const VELRect panel = axis.axisPanel()->frameInChart();
  return label.frame().offsetBy(panel.x, panel.y);
}

std::vector<VELRect> shownLabels(const VELAxisBase& axis) {
  std::vector<VELRect> shown;
  for (const auto& label : axis.axisPanel()->tickLabels())
    if (!label->isHidden()) shown.push_back(inChart(axis, *label));
  return shown;
}

/// Labels within the view, and a gap of four points between any two.
void expectReadable(const FakeChart& chart, const VELNumericAxis& axis) {
  const auto labels = shownLabels(axis);
  const VELRect& view = chart.surface->bounds;
  for (size_t i = 0; i < labels.size(); ++i) {
    EXPECT_TRUE(labels[i].x >= view.x - 0.01 && labels[i].right() <= view.right() + 0.01 &&
                labels[i].y >= view.y - 0.01 && labels[i].bottom() <= view.bottom() + 0.01)
        << "cut";
    for (size_t k = i + 1; k < labels.size(); ++k) {
      const VELRect &a = labels[i], &b = labels[k];
      EXPECT_GE(axis.isHorizontalAxis() ? std::max(b.x - a.right(), a.x - b.right())
                                        : std::max(b.y - a.bottom(), a.y - b.bottom()),
                4.0 - 1e-3);
    }
  }
}

// Sizes, sides and ranges of many kinds: labels never overlap, are never cut, and the areas come to rest.
TEST(AxisPanel, LabelsAreReadableAndAreasComeToRest) {
  ASSERT_TRUE(VELTextEngine::instance().hasFonts()) << "install fonts-dejavu-core";
  const std::pair<double, double> ranges[] = {{0, 10},       {0, 1e-4},        {-0.3, 0.3}, {-1e6, 12345678},
                                              {99.9, 100.1}, {1e12, 1e12 + 7}, {0, 108000}, {-3e-9, 4e-9}};
  for (const VELSize size : {VELSize{1280, 720}, VELSize{640, 360}, VELSize{320, 240}, VELSize{90, 60},
                             VELSize{20, 400}, VELSize{400, 20}}) {
    for (const auto& [min, max] : ranges) {
      for (const bool mirrored : {false, true}) {
        FakeChart chart(size, mirrored ? VELAxisAlignment_Top : VELAxisAlignment_Bottom,
                        mirrored ? VELAxisAlignment_Right : VELAxisAlignment_Left);
        chart.x->setVisibleRange(doubles(min, max));
        chart.y->setVisibleRange(doubles(min, max));
        chart.x->setAxisTitle("Time / s");
        if (mirrored) chart.y->setAxisTitle("Voltage");
        SCOPED_TRACE(testing::Message()
                     << size.width << " x " << size.height << ", " << min << " to " << max);
        EXPECT_LE(chart.drawUntilStable(), 3);
        expectReadable(chart, *chart.x);
        expectReadable(chart, *chart.y);
        if (size.width < 320 || size.height < 240) continue;
        EXPECT_GE(shownLabels(*chart.x).size(), 1u);
        EXPECT_GE(shownLabels(*chart.y).size(), 2u);
        EXPECT_EQ(chart.vertical->recommendedSize(), std::round(chart.vertical->recommendedSize()));
      }
    }
  }
}

TEST(AxisPanel, EachLabelIsCentredOnItsTick) {
  for (const double scale : {1.0, 2.0}) {
    FakeChart chart({640, 360});
    chart.surface->scale = scale;
    chart.drawUntilStable();
    for (const auto& axis : {chart.x, chart.y}) {
      std::vector<double> ticks, centres;
      for (const DrawnShape& tick : chart.context.of(axis->style().majorTickPen().get()))
        ticks.push_back(axis == chart.x ? tick.x1 : tick.y1);
      for (const auto& label : axis->axisPanel()->tickLabels())
        centres.push_back(axis == chart.x ? inChart(*axis, *label).center().x
                                          : inChart(*axis, *label).center().y);
      ASSERT_EQ(ticks.size(), centres.size());
      for (size_t i = 0; i < ticks.size(); ++i) EXPECT_NEAR(ticks[i], centres[i], 1e-3);
    }
    // Beside the axis they keep the style's gap to the tick.
    const double tickEnd = chart.surface->frame.x - 6;
    for (const VELRect& label : shownLabels(*chart.y)) EXPECT_NEAR(tickEnd - label.right(), 4, 1e-6);
    for (const VELRect& label : shownLabels(*chart.x))
      EXPECT_NEAR(label.y - (chart.surface->frame.bottom() + 6), 4, 1e-6);
  }
}

TEST(AxisPanel, TitlesRunAlongTheirAxisAndTakeRoomOnlyWhenThereIsOne) {
  for (const auto side : {VELAxisAlignment_Left, VELAxisAlignment_Right}) {
    const bool isLeft = side == VELAxisAlignment_Left;
    FakeChart chart({640, 360}, VELAxisAlignment_Bottom, side);
    chart.drawUntilStable();
    EXPECT_TRUE(chart.y->axisPanel()->titleLabel()->isHidden());
    const float without = chart.vertical->recommendedSize();
    chart.y->setAxisTitle("Voltage in millivolts");
    chart.drawUntilStable();
    const VELLabelView& title = *chart.y->axisPanel()->titleLabel();
    EXPECT_FALSE(title.isHidden());
    EXPECT_GT(chart.vertical->recommendedSize(), without);
    // Read from below on the left, from above on the right.
    EXPECT_EQ(title.transform().b, isLeft ? -1.0 : 1.0);
    const VELRect frame = inChart(*chart.y, title);
    for (const VELRect& label : shownLabels(*chart.y))
      EXPECT_GE(isLeft ? label.x - frame.right() : frame.x - label.right(), 6 - 1e-3);
    chart.y->setAxisTitle(std::string(500, 'W'));
    chart.drawUntilStable();
    EXPECT_FALSE(title.isHidden());
    EXPECT_TRUE(title.text().ends_with("…")) << "longer than the chart";
  }
}

TEST(LabelCulling, KeepsEvenStridesAndTheSameMajorsWhilePanned) {
  for (int32_t first = -9; first <= 9; ++first) {
    std::vector<VELLabelExtent> labels(9);
    for (int32_t i = 0; i < 9; ++i) labels[static_cast<size_t>(i)] = {i * 20.0, 30.0, first + i, true};
    VELCullLabels(labels, 4);
    for (const VELLabelExtent& label : labels) EXPECT_EQ(label.isShown, label.index % 2 == 0) << first;
  }
  std::vector<VELLabelExtent> huge = {{0, 999, 1, true}, {20, 999, 3, true}, {40, 999, 5, true}};
  VELCullLabels(huge, 4);
  EXPECT_TRUE(huge[0].isShown && !huge[1].isShown && !huge[2].isShown) << "one is kept";
  VELCullLabels({}, 4);
  std::vector<VELLabelExtent> nan = {{kNaN, 10, 1, true}, {3, 10, 2, true}};
  VELCullLabels(nan, 4);
  EXPECT_EQ(std::count_if(nan.begin(), nan.end(), [](const auto& l) { return l.isShown; }), 1);
}

TEST(AxisArea, StacksItsAxesOutwardsFromTheChartFrame) {
  FakeChart chart({640, 360});
  const auto second = std::make_shared<VELNumericAxis>();
  second->setIsXAxis(false);
  second->setAxisAlignment(VELAxisAlignment_Left);
  second->setParentSurface(chart.surface);
  chart.surface->ys.addItem(second);
  for (int time = 0; time < 2; ++time) chart.vertical->insertItem(second, 0);
  chart.vertical->addItem(nullptr);
  chart.vertical->insertItem(std::make_shared<VELNumericAxis>(), 9);
  ASSERT_EQ(chart.vertical->count(), 2);
  EXPECT_TRUE(std::isnan(chart.vertical->recommendedSize())) << "the new axis has not been drawn";
  EXPECT_FALSE(chart.vertical->needResizing());
  chart.drawUntilStable();
  const VELRect outer = second->axisPanel()->frameInChart(), inner = chart.y->axisPanel()->frameInChart();
  EXPECT_EQ(inner.right(), chart.surface->frame.x);
  EXPECT_EQ(outer.right() + 10, inner.x) << "the inner title does not touch the outer ticks";
  EXPECT_EQ(outer.x, 0);
  EXPECT_TRUE(chart.y->isPointWithinBounds({inner.x, inner.y}));
  EXPECT_FALSE(chart.y->isPointWithinBounds({inner.right() + 1, inner.y}));
  chart.vertical->setFrame(chart.vertical->frame().offsetBy(0, 7));
  EXPECT_EQ(chart.y->getAxisOffset(), 7);
  chart.draw();
  const auto lines = chart.context.of(chart.y->style().majorGridLinePen().get());
  EXPECT_EQ(chart.context.of(chart.y->style().majorTickPen().get())[1].y1, lines[1].y1);
}

TEST(AxisArea, HugeLabelsLeaveTheChartSomeRoom) {
  FakeChart chart({640, 360});
  chart.y->setTextFormatting(std::string(400, 'w') + "%f");
  EXPECT_LE(chart.drawUntilStable(), 3);
  EXPECT_EQ(chart.vertical->recommendedSize(), 256);
  EXPECT_TRUE(shownLabels(*chart.y).empty());
}

}  // namespace
