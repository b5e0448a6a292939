#include "velmora/data/xyy_point_series.h"

#include <utility>

VELXyyPointSeries::VELXyyPointSeries(int64_t capacity)
    : VELCompositePointSeries(makeParts(2, capacity), 0, 2) {}

VELXyyPointSeries::VELXyyPointSeries(std::shared_ptr<VELPointSeries> y1, std::shared_ptr<VELPointSeries> y2)
    : VELCompositePointSeries({std::move(y1), std::move(y2)}, 0, 2) {}
