#include "velmora/data/pixel_columns.h"

#include <cmath>

namespace {

/// First and last x of the run that are numbers; NaN where there is none.
struct Ends {
  double min;
  double max;
};

Ends endsOf(VELPointRun run, const VELColumnView& x) {
  return VELVisitElements(x, [run](const auto* values) {
    int64_t first = run.first;
    int64_t last = run.last();
    const auto isNaN = [values](int64_t i) { return std::isnan(static_cast<double>(values[i])); };
    while (first < last && isNaN(first)) ++first;
    while (last > first && isNaN(last)) --last;
    return Ends{static_cast<double>(values[first]), static_cast<double>(values[last])};
  });
}

/// The visible range as far as there is data; the range of the data where the visible one is no range.
void p_VEL_o_getXRangeFrom(Ends data, const VELRange& visibleRange, double& minX, double& maxX) {
  minX = visibleRange.minAsDouble();
  maxX = visibleRange.maxAsDouble();
  if (!(minX > data.min)) minX = data.min;
  if (!(maxX < data.max)) maxX = data.max;
  if (minX <= maxX) return;
  minX = data.min;
  maxX = data.max;
}

}  // namespace

int32_t VELPixelColumns::columnBehind(double x, int32_t column) const {
  int32_t beyond = count;
  while (column < beyond) {
    const int32_t middle = column + (beyond - column) / 2;
    if (x < edge(middle)) {
      beyond = middle;
    } else {
      column = middle + 1;
    }
  }
  return beyond;
}

VELPixelColumns VELPixelColumnsOf(VELPointRun run, const VELColumnView& x, const VELRange& visibleRange,
                                  int32_t width) {
  VELPixelColumns columns;
  if (run.count == 0) return columns;
  columns.run = run;
  p_VEL_o_getXRangeFrom(endsOf(run, x), visibleRange, columns.minX, columns.maxX);
  if (!std::isfinite(columns.maxX - columns.minX)) return columns;
  const int64_t end = run.first + run.count;
  columns.first = VELFirstNotBelowSearch(x.type)(x.data, run.first, end, columns.minX);
  columns.last = VELFirstAboveSearch(x.type)(x.data, columns.first, end, columns.maxX);
  columns.count = width;
  return columns;
}
