#include "velmora/series/line_series_style.h"

#include <utility>

#include "velmora/series/ellipse_point_marker.h"
#include "velmora/series/point_marker_clusterizer.h"

namespace {
constexpr uint32_t kDefaultColorCode = 0xFF50A0F0;
constexpr float kDefaultWidth = 1.0f;
}  // namespace

VELLineSeriesStyle::VELLineSeriesStyle()
    : _linePen(VELPen2D::solid(kDefaultColorCode, kDefaultWidth)),
      _pointMarker(std::make_shared<VELEllipsePointMarker>()),
      _cluster(std::make_shared<VELPointMarkerClusterizer>()) {}

VELLineSeriesStyle::~VELLineSeriesStyle() = default;

std::shared_ptr<VELLineSeriesStyle> VELLineSeriesStyle::clone() const {
  auto copy = std::make_shared<VELLineSeriesStyle>();
  copy->_isDigitalLine = _isDigitalLine;
  copy->_drawPointMarkers = _drawPointMarkers;
  copy->_linePen = VELClonePen(_linePen);
  copy->_pointMarker = _pointMarker;
  copy->_cluster = _cluster ? _cluster->clone() : nullptr;
  return copy;
}

void VELLineSeriesStyle::setIsDigitalLine(bool digital) {
  _isDigitalLine = digital;
  p_VEL_callStyleChanged();
}

void VELLineSeriesStyle::setDrawPointMarkers(bool draw) {
  _drawPointMarkers = draw;
  p_VEL_callStyleChanged();
}

void VELLineSeriesStyle::setLinePen(VELPenPtr pen) {
  _linePen = std::move(pen);
  p_VEL_callStyleChanged();
}

void VELLineSeriesStyle::setPointMarker(std::shared_ptr<VELPointMarkerBase> marker) {
  _pointMarker = std::move(marker);
  p_VEL_callStyleChanged();
}

void VELLineSeriesStyle::setCluster(std::shared_ptr<VELPointMarkerClusterizer> cluster) {
  _cluster = std::move(cluster);
  p_VEL_callStyleChanged();
}

float VELLineSeriesStyle::clusterSpacing() const { return _cluster ? _cluster->spacing() : 0.0f; }

void VELLineSeriesStyle::setClusterSpacing(float spacing) {
  // What the clusterizer tells may put others in the place of it and of this style, which then are gone.
  const Block styleChanged = p_VEL_styleBlock();
  if (const auto cluster = _cluster) {
    cluster->purge();
    cluster->setSpacing(spacing);
  }
  p_VEL_call(styleChanged);
}
