#include "velmora/data/xyz_point_series.h"

#include <utility>

VELXyzPointSeries::VELXyzPointSeries(int64_t capacity)
    : VELCompositePointSeries(makeParts(2, capacity), 0, 1) {}

VELXyzPointSeries::VELXyzPointSeries(std::shared_ptr<VELPointSeries> xy, std::shared_ptr<VELPointSeries> xz)
    : VELCompositePointSeries({std::move(xy), std::move(xz)}, 0, 1) {}
