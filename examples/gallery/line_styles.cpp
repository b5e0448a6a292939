// What a line can look like: gradients, palettes, point markers, steps.
#include <cmath>

#include "examples/gallery/parts.h"
#include "examples/gallery/pictures.h"

namespace {

/// Colours the pieces of a line by the value at their end.
class LimitPalette : public VELPaletteProvider {
 public:
  /// @param limit data value above which a point is marked
  LimitPalette(double limit, uint32_t color) : _limit(limit), _above(std::make_shared<VELLineSeriesStyle>()) {
    _above->setLinePen(VELPen2D::solid(color, 1.0f));
    _above->setPointMarker(marker(color, 7.0f));
    _above->setDrawPointMarkers(true);
  }
  void updateData(const VELRenderPassData& data) override { _data = data.dataSeries(); }
  std::shared_ptr<const VELSeriesStyle> styleForX(double, double, uint32_t index) override {
    const auto xy = std::dynamic_pointer_cast<VELXyDataSeries>(_data);
    const bool isAbove = xy && VELGenericDouble(xy->yValues()->valueAt(index)) > _limit;
    return isAbove ? _above : nullptr;
  }

  static std::shared_ptr<VELEllipsePointMarker> marker(uint32_t color, float size) {
    auto marker = std::make_shared<VELEllipsePointMarker>();
    marker->setFillBrush(VELBrush2D::solid(VELVisualStyle::standard().chartArea));
    marker->setBorderPen(VELPen2D::solid(color, 0.75f));
    marker->setWidth(size);
    marker->setHeight(size);
    return marker;
  }

 private:
  double _limit;
  std::shared_ptr<VELLineSeriesStyle> _above;
  std::shared_ptr<VELDataSeries> _data;
};

std::shared_ptr<VELXyDataSeries> makeWave(int count) {
  auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  for (int i = 0; i < count; ++i) {
    const double x = 12.0 * i / (count - 1);
    data->appendX(x, std::sin(x) * (1.0 + 0.25 * x) + 0.3 * std::sin(5.3 * x));
  }
  return data;
}

VELFastLineRenderableSeries& addStyledLine(Sheet& sheet, int cell, const char* title,
                                           const std::shared_ptr<VELDataSeries>& data) {
  VELChartSurface& surface = sheet.addChart(title, 2, 2, cell);
  addAxis<VELNumericAxis>(surface, true, {VELAxisAlignment_Bottom});
  addAxis<VELNumericAxis>(surface, false, {VELAxisAlignment_Left});
  return *addLine(surface, data, 0);
}

}  // namespace

void drawLineStyles(Sheet& sheet) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  const uint32_t blue = look.seriesColor(0), orange = look.seriesColor(1);

  auto& gradient =
      addStyledLine(sheet, 0, "A pen with a gradient from the least to the greatest value", makeWave(600));
  gradient.style()->setLinePen(
      std::make_shared<VELPenLinearGradient>(orange, blue, VELGradientDirection_Vertical, 1.25f));

  auto& paletted = addStyledLine(sheet, 1, "A palette marks what is above 1.5", makeWave(90));
  paletted.setPaletteProvider(std::make_shared<LimitPalette>(1.5, orange));

  auto& marked = addStyledLine(sheet, 2, "Point markers, one in every 12 points at most", makeWave(220));
  marked.style()->setPointMarker(LimitPalette::marker(blue, 8.0f));
  marked.style()->setDrawPointMarkers(true);
  marked.style()->setClusterSpacing(12.0f);

  auto& digital = addStyledLine(sheet, 3, "Steps, with markers at the values", makeWave(36));
  digital.style()->setIsDigitalLine(true);
  digital.style()->setPointMarker(LimitPalette::marker(blue, 7.0f));
  digital.style()->setDrawPointMarkers(true);
}
