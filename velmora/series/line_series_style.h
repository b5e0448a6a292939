// series/line_series_style.h: how a line series looks.
#pragma once

#include <memory>

#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"
#include "velmora/series/series_style.h"

class VELPointMarkerBase;
class VELPointMarkerClusterizer;

/// Line, steps and point markers.
class VELMORA_API VELLineSeriesStyle final : public VELSeriesStyle {
 public:
  /// A straight line of colour 0xFF50A0F0 and width 1.0, without point markers; they would be ellipses, at
  /// most one in every square of 2 points.
  VELLineSeriesStyle();
  ~VELLineSeriesStyle() override;

  /// Equal values with a pen and a clusterizer of its own and no callback: that belongs to the owner of the
  /// original. The point marker is shared: it holds nothing of the series that draws with it.
  std::shared_ptr<VELLineSeriesStyle> clone() const;

  /// Steps instead of straight lines: along the X axis first, then along the Y axis.
  bool isDigitalLine() const { return _isDigitalLine; }
  void setIsDigitalLine(bool digital);
  bool drawPointMarkers() const { return _drawPointMarkers; }
  void setDrawPointMarkers(bool draw);
  /// Null draws no line.
  const VELPenPtr& linePen() const { return _linePen; }
  void setLinePen(VELPenPtr pen);
  /// Drawn at the points; null for none.
  const std::shared_ptr<VELPointMarkerBase>& pointMarker() const { return _pointMarker; }
  void setPointMarker(std::shared_ptr<VELPointMarkerBase> marker);
  /// Decides which markers are drawn; without one none is. One clusterizer serves one series.
  const std::shared_ptr<VELPointMarkerClusterizer>& cluster() const { return _cluster; }
  void setCluster(std::shared_ptr<VELPointMarkerClusterizer> cluster);
  /// Side of the square that takes one marker, in points; 0 without a clusterizer. At 0 or less, at NaN and
  /// at so small a side that its squares are too many, no marker is drawn.
  float clusterSpacing() const;
  void setClusterSpacing(float spacing);

 private:
  bool _isDigitalLine = false;
  bool _drawPointMarkers = false;
  VELPenPtr _linePen;
  std::shared_ptr<VELPointMarkerBase> _pointMarker;
  std::shared_ptr<VELPointMarkerClusterizer> _cluster;
};
