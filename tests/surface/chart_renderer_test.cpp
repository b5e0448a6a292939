#include "velmora/surface/chart_renderer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/recording_chart.h"
#include "velmora/axes/axis_panel.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/data/resampler.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/platform/exception.h"
#include "velmora/series/fast_line_renderable_series.h"
#include "velmora/surface/render_pass_data.h"

namespace {

std::shared_ptr<VELXyDataSeries> makeData(int count) {
  auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  for (int i = 0; i < count; ++i) data->appendX(i, i % 2);
  return data;
}

std::shared_ptr<VELFastLineRenderableSeries> makeSeries(uint32_t colorCode, int count = 10) {
  auto series = std::make_shared<VELFastLineRenderableSeries>();
  series->style()->setLinePen(VELPen2D::solid(colorCode, 1.0f));
  series->setDataSeries(makeData(count));
  return series;
}

class CategoryAxis : public VELNumericAxis {
 public:
  bool isCategoryAxis() const override { return true; }
};

// A chart with an X axis at the bottom and a Y axis on the right.
struct ChartWithAxes : RecordingChart {
  explicit ChartWithAxes(const VELRect& frame = {0.0, 0.0, 200.0, 100.0}) : RecordingChart(frame) {
    surface->attachAxis(x, true);
    surface->attachAxis(y, false);
  }
  std::shared_ptr<VELNumericAxis> x = std::make_shared<VELNumericAxis>();
  std::shared_ptr<VELNumericAxis> y = std::make_shared<VELNumericAxis>();
};

std::vector<uint32_t> polylineColors(const RecordingContext& context) {
  std::vector<uint32_t> colors;
  for (const auto& operation : context.operations)
    if (operation.name == "polyline") colors.push_back(operation.colorCode);
  return colors;
}

uint32_t runPass(RecordingChart& chart) {
  chart.tick();
  return chart.surface->lastErrorCode();
}

TEST(RenderPass, AStructureThatCannotDrawIsClearedAndSaysWhy) {
  RecordingChart noAxes;
  noAxes.surface->invalidateElement();
  EXPECT_EQ(runPass(noAxes), VELSurfaceError_NoXAxis);
  EXPECT_EQ(noAxes.context().names(), std::vector<std::string>{"clear"});

  RecordingChart noYAxis;
  noYAxis.surface->attachAxis(std::make_shared<VELNumericAxis>(), true);
  EXPECT_EQ(runPass(noYAxis), VELSurfaceError_NoYAxis);

  ChartWithAxes noCollection;
  noCollection.surface->setYAxes(nullptr);
  EXPECT_EQ(runPass(noCollection), VELSurfaceError_NoAxisCollection);

  // Without a render surface the axes take their labels off the screen.
  ChartWithAxes chart;
  chart.tick();
  const auto shownLabels = [&] {
    size_t shown = 0;
    for (const auto& label : chart.x->axisPanel()->subviews()) shown += label->isHidden() ? 0 : 1;
    return shown;
  };
  EXPECT_GT(shownLabels(), 0u);
  chart.surface->setRenderSurface(nullptr);
  chart.surface->onRenderSurfaceDraw();
  EXPECT_EQ(chart.surface->lastErrorCode(), VELSurfaceError_NoRenderSurface);
  EXPECT_EQ(shownLabels(), 0u);
}

TEST(RenderPass, AxesWithoutSeriesStillDrawTheirGrid) {
  ChartWithAxes chart;
  EXPECT_EQ(runPass(chart), VELSurfaceError_NoSeries);
  EXPECT_GT(chart.context().count("line") + chart.context().count("rect"), 10u);
  EXPECT_EQ(chart.view->recording->background->names(), (std::vector<std::string>{"clear", "rect"}));

  chart.surface->attachRenderableSeries(std::make_shared<VELFastLineRenderableSeries>());
  EXPECT_EQ(runPass(chart), VELSurfaceError_NoDataSeries);
}

TEST(RenderPass, GridComesFirstThenSeriesInTheChartFrame) {
  ChartWithAxes chart({0.0, 0.0, 200.0, 100.0});
  chart.view->renderSurfaceSizeView()->setFrame({20.0, 10.0, 150.0, 80.0});
  chart.surface->attachRenderableSeries(makeSeries(7));
  EXPECT_EQ(runPass(chart), VELSurfaceError_None);
  const auto names = chart.context().names();
  EXPECT_EQ(names.front(), "clear");
  ASSERT_GE(names.size(), 3u);
  EXPECT_EQ(std::vector<std::string>(names.end() - 3, names.end()),
            (std::vector<std::string>{"area", "new", "polyline"}));
  const auto& area = chart.context().operations[names.size() - 3].numbers;
  EXPECT_EQ(area, (std::vector<double>{20.0, 10.0, 150.0, 80.0}));
}

TEST(RenderPass, AVerticalChartDrawsDownTheScreen) {
  RecordingChart chart;
  const auto x = std::make_shared<VELNumericAxis>(), y = std::make_shared<VELNumericAxis>();
  x->setAxisAlignment(VELAxisAlignment_Left);
  y->setAxisAlignment(VELAxisAlignment_Bottom);
  chart.surface->attachAxis(x, true);
  chart.surface->attachAxis(y, false);
  chart.surface->attachRenderableSeries(makeSeries(7, 2));
  EXPECT_EQ(runPass(chart), VELSurfaceError_None);
  // The points (0, 0) and (1, 1): x runs down the 100 points of height, y against the 200 points of width.
  EXPECT_EQ(chart.context().operations.back().numbers, (std::vector<double>{199.0, 0.0, 0.0, 99.0}));
}

TEST(RenderPass, AFrameThatIsTooSmallLeavesTheLastPicture) {
  ChartWithAxes chart;
  chart.tick();
  const size_t before = chart.context().operations.size();
  for (const VELSize size :
       {VELSize{1.5, 300.0}, VELSize{300.0, 1.99}, VELSize{0.0, 0.0}, VELSize{std::nan(""), 5.0}}) {
    chart.view->renderSurfaceSizeView()->setFrame({0.0, 0.0, size.width, size.height});
    chart.surface->invalidateElement();
    EXPECT_EQ(runPass(chart), VELSurfaceError_TooSmall | VELSurfaceError_NoSeries);
    EXPECT_EQ(chart.context().operations.size(), before);
  }
  chart.view->renderSurfaceSizeView()->setFrame({0.0, 0.0, 2.0, 2.0});
  chart.surface->invalidateElement();
  EXPECT_EQ(runPass(chart), VELSurfaceError_NoSeries) << "two by two points are enough";
}

TEST(RenderPass, NeverRangedAxesAndMissingTickProvidersStopIt) {
  ChartWithAxes chart;
  chart.y->setVisibleRange(std::make_shared<VELDoubleRange>(3.0, 3.0));
  chart.y->setAutoRange(VELAutoRange_Never);
  EXPECT_EQ(runPass(chart), VELSurfaceError_InvalidRange | VELSurfaceError_NoSeries);
  chart.x->setTickProvider(nullptr);
  chart.surface->invalidateElement();
  EXPECT_EQ(runPass(chart),
            VELSurfaceError_InvalidRange | VELSurfaceError_NoTickProvider | VELSurfaceError_NoSeries);
}

TEST(RenderPass, SelectedSeriesArePaintedLast) {
  ChartWithAxes chart;
  for (uint32_t i = 1; i <= 3; ++i) {
    const auto series = makeSeries(i);
    series->setIsSelected(i == 1);
    chart.surface->attachRenderableSeries(series);
  }
  EXPECT_EQ(runPass(chart), VELSurfaceError_None);
  EXPECT_EQ(polylineColors(chart.context()), (std::vector<uint32_t>{2, 3, 1}));
}

TEST(RenderPass, ASeriesWhoseAxisIsMissingOrAmbiguousRaises) {
  ChartWithAxes chart;
  const auto series = makeSeries(1);
  series->setXAxisId("other");
  chart.surface->attachRenderableSeries(series);
  try {
    chart.tick();
    FAIL() << "nothing was raised";
  } catch (const VELInvalidArgumentException& error) {
    EXPECT_STREQ(error.what(), "There is no axis with Id:other in AxisCollection");
  }
  EXPECT_FALSE(chart.surface->isRendering());

  series->setXAxisId(VELAxisBase::defaultAxisId);
  chart.surface->attachAxis(std::make_shared<VELNumericAxis>(), true);
  EXPECT_THROW(chart.tick(), VELInvalidArgumentException);

  ChartWithAxes unmanaged;
  unmanaged.surface->setViewportManager(nullptr);
  try {
    unmanaged.tick();
    FAIL() << "nothing was raised";
  } catch (const VELInternalInconsistencyException& error) {
    EXPECT_STREQ(error.what(), "VelmoraSurface.viewport manager is null");
  }
}

TEST(RenderPass, EverySeriesGetsARecordEvenWithNothingVisible) {
  ChartWithAxes chart;
  const auto outside = makeSeries(7), hidden = makeSeries(8);
  hidden->setIsVisible(false);
  chart.x->setVisibleRange(std::make_shared<VELDoubleRange>(1000.0, 2000.0));
  chart.surface->attachRenderableSeries(outside);
  chart.surface->attachRenderableSeries(hidden);
  EXPECT_EQ(runPass(chart), VELSurfaceError_None);
  ASSERT_NE(outside->currentRenderPassData(), nullptr);
  EXPECT_EQ(outside->currentRenderPassData()->pointSeries(), nullptr);
  ASSERT_NE(hidden->currentRenderPassData(), nullptr);
  EXPECT_EQ(chart.context().count("polyline"), 0u);
}

TEST(RenderPass, CategoryAxesWidenTheIndexRangeByOnePoint) {
  struct Row {
    double min, max;
    int32_t first, last;
  };
  for (const Row row : {Row{5, 9, 4, 9}, Row{0, 9, 0, 9}, Row{2, 6, 1, 7}}) {
    VELAxisCollection axes;
    const auto axis = std::make_shared<CategoryAxis>();
    axis->setVisibleRange(std::make_shared<VELDoubleRange>(row.min, row.max));
    axes.addItem(axis);
    const auto series = makeSeries(1);
    VELPointResampler resampler;
    std::shared_ptr<VELDataSeries> data;
    std::shared_ptr<VELIndexRange> range;
    std::shared_ptr<VELPointSeries> points;
    VELChartRenderer::p_VEL_o_resampleSeriesWithXAxis(axes, *series, 100.0, resampler, data, range, points);
    ASSERT_NE(points, nullptr);
    EXPECT_EQ(VELGenericInt(range->min()), row.first);
    EXPECT_EQ(VELGenericInt(range->max()), row.last);
    EXPECT_EQ(points->count(), row.last - row.first + 1);
  }
}

TEST(RenderPass, WideningDoesNotCreepFrameByFrame) {
  const auto axis = std::make_shared<CategoryAxis>();
  axis->setVisibleRange(std::make_shared<VELDoubleRange>(4.0, 5.0));
  VELAxisCollection axes;
  axes.addItem(axis);
  const auto series = makeSeries(1);
  for (int frame = 0; frame < 3; ++frame) {
    VELPointResampler resampler;
    std::shared_ptr<VELDataSeries> data;
    std::shared_ptr<VELIndexRange> range;
    std::shared_ptr<VELPointSeries> points;
    VELChartRenderer::p_VEL_o_resampleSeriesWithXAxis(axes, *series, 100.0, resampler, data, range, points);
    EXPECT_EQ(VELGenericInt(range->min()), 3);
    EXPECT_EQ(VELGenericInt(range->max()), 6);
  }
}

TEST(RenderPass, TwoSeriesOnOneDataSeriesBothDrawTheirOwnPoints) {
  ChartWithAxes chart;
  const auto shared = makeData(5000);
  const auto first = makeSeries(1), second = makeSeries(2);
  first->setDataSeries(shared);
  second->setDataSeries(shared);
  second->setResamplingMode(VELResamplingMode_None);
  chart.surface->attachRenderableSeries(first);
  chart.surface->attachRenderableSeries(second);
  for (int frame = 0; frame < 2; ++frame) {
    chart.surface->invalidateElement();
    chart.tick();
    const auto one = first->currentRenderPassData()->pointSeries(),
               two = second->currentRenderPassData()->pointSeries();
    EXPECT_NE(one, two);
    EXPECT_LT(one->count(), two->count());
    EXPECT_EQ(two->count(), 5000);
  }
}

TEST(RenderPass, AChangeOfDataAsksForOnePassAndAutoRangesOnce) {
  ChartWithAxes chart;
  const auto series = makeSeries(1);
  chart.surface->attachRenderableSeries(series);
  for (int i = 0; i < 8; ++i) chart.tick();
  EXPECT_FALSE(chart.view->recording->needRedraw());
  EXPECT_EQ(VELGenericDouble(chart.x->visibleRange()->max()), 9.0);
  std::static_pointer_cast<VELXyDataSeries>(series->dataSeries())->appendX(50.0, 1.0);
  EXPECT_TRUE(chart.view->recording->needRedraw());
  chart.tick();
  EXPECT_EQ(VELGenericDouble(chart.x->visibleRange()->max()), 9.0) << "once means once";
  chart.x->setAutoRange(VELAutoRange_Always);
  chart.surface->invalidateElement();
  chart.tick();
  EXPECT_EQ(VELGenericDouble(chart.x->visibleRange()->max()), 50.0);
}

TEST(ViewportManager, ZoomsToTheExtentsOnlyWhileAttached) {
  ChartWithAxes chart;
  chart.surface->attachRenderableSeries(makeSeries(1));
  chart.x->setVisibleRange(std::make_shared<VELDoubleRange>(2.0, 3.0));
  chart.y->setVisibleRange(std::make_shared<VELDoubleRange>(-7.0, 7.0));
  VELViewportManager detached;
  detached.zoomExtentsX();
  EXPECT_EQ(VELGenericDouble(chart.x->visibleRange()->max()), 3.0);

  chart.surface->viewportManager()->zoomExtents();
  EXPECT_EQ(VELGenericDouble(chart.x->visibleRange()->min()), 0.0);
  EXPECT_EQ(VELGenericDouble(chart.x->visibleRange()->max()), 9.0);
  EXPECT_EQ(VELGenericDouble(chart.y->visibleRange()->min()), 0.0);
  EXPECT_EQ(VELGenericDouble(chart.y->visibleRange()->max()), 1.0);
}

}  // namespace
