#include "velmora/axes/axis_params.h"

bool VELAxisParams::equals(const VELAxisParams& other) const {
  if (!pointRange || !pointRange->equals(other.pointRange.get())) return false;
  return size == other.size && visibleMin == other.visibleMin && visibleMax == other.visibleMax &&
         isCategoryAxis == other.isCategoryAxis && isLogarithmicAxis == other.isLogarithmicAxis &&
         categoryPointSeries == other.categoryPointSeries && isHorizontal == other.isHorizontal &&
         flipCoordinates == other.flipCoordinates && dataPointWidth == other.dataPointWidth &&
         barTimeFrame == other.barTimeFrame && logarithmicBase == other.logarithmicBase &&
         isXAxis == other.isXAxis;
}
