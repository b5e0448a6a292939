#include "velmora/data/ohlc_point_series.h"

#include <utility>

VELOhlcPointSeries::VELOhlcPointSeries(int64_t capacity)
    : VELCompositePointSeries(makeParts(4, capacity), 3, 4) {}

VELOhlcPointSeries::VELOhlcPointSeries(std::shared_ptr<VELPointSeries> open,
                                       std::shared_ptr<VELPointSeries> high,
                                       std::shared_ptr<VELPointSeries> low,
                                       std::shared_ptr<VELPointSeries> close)
    : VELCompositePointSeries({std::move(open), std::move(high), std::move(low), std::move(close)}, 3, 4) {}
