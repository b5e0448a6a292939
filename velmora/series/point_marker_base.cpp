#include "velmora/series/point_marker_base.h"

#include "velmora/platform/exception.h"

VELPointMarkerBase::~VELPointMarkerBase() = default;

void VELPointMarkerBase::drawToContext(VELRenderContext2D&, float, float) {
  throw VELInternalInconsistencyException("drawToContext:AtX:Y: must be implemented in subclass");
}
