// gallery/parts.h: what most pictures need: data that is the same on every machine, and lines that show it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "velmora/velmora.h"

/// A walk of small steps up and down, the same for the same seed.
class RandomWalk {
 public:
  explicit RandomWalk(uint32_t seed, double start = 0.0, double step = 1.0)
      : _state(seed), _value(start), _step(step) {}
  double next();

 private:
  uint32_t _state;
  double _value;
  double _step;
};

/// @p count points from @p first on, @p step apart, on a random walk; x is a DateTime column for dates.
std::shared_ptr<VELXyDataSeries> makeWalk(double first, double step, int count, uint32_t seed,
                                          VELDataType xType = VELDataType_Double);

/// A line in a colour of the standard palette, on the axes of the two ids.
std::shared_ptr<VELFastLineRenderableSeries> addLine(VELChartSurface& surface,
                                                     const std::shared_ptr<VELDataSeries>& data,
                                                     size_t color = 0,
                                                     const std::string& xAxisId = VELAxisBase::defaultAxisId,
                                                     const std::string& yAxisId = VELAxisBase::defaultAxisId);

/// Where an axis stands and how it is called.
struct AxisPlace {
  VELAxisAlignment side = VELAxisAlignment_Default;
  std::string title = {};
  std::string id = VELAxisBase::defaultAxisId;
};

/// Gives an axis its place and attaches it; a Y axis gets a little room around its data.
template <class Axis>
std::shared_ptr<Axis> addAxis(VELChartSurface& surface, bool isXAxis, const AxisPlace& place = {}) {
  auto axis = std::make_shared<Axis>();
  axis->setAxisAlignment(place.side);
  axis->setAxisTitle(place.title);
  axis->setAxisId(place.id);
  if (!isXAxis) axis->setGrowBy(std::make_shared<VELDoubleRange>(0.06, 0.06));
  surface.attachAxis(axis, isXAxis);
  return axis;
}

/// Draws labels, ticks and title of an axis in a colour of the palette and leaves its grid out, as suits an
/// axis that stands beside the first.
void tint(VELAxisBase& axis, size_t color);

/// Ticks and labels alone: two grids would fight.
void hideGrid(VELAxisBase& axis);
