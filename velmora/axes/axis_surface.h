// axes/axis_surface.h: what an axis asks of the chart that it belongs to.
//
// The chart above implements both interfaces; axes know nothing else of it. Units: points for places and
// sizes, in coordinates of the chart view; data units for ranges.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "velmora/data/range.h"
#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/platform/invalidatable_element.h"

class VELAxisCollection;
class VELDataSeries;
class VELDisplayLink;

/// A series as its axes see it: which axes it belongs to and how far its data reaches.
class VELMORA_API VELAxisSeries {
 public:
  virtual ~VELAxisSeries() = default;
  virtual const std::string& xAxisId() const = 0;
  virtual const std::string& yAxisId() const = 0;
  virtual bool isVisible() const = 0;
  /// Null while the series shows nothing.
  virtual std::shared_ptr<VELDataSeries> dataSeries() const = 0;
  /// X extent of the data, an undefined range or null when there is none.
  virtual VELRangePtr getXRange() const = 0;
  /// Y extent of the data inside an x range, an undefined range or null when there is none.
  /// @param positive only values above 0 count
  virtual VELRangePtr getYRange(const VELRange& xRange, bool positive) const = 0;
};

/// A chart as its axes see it.
class VELMORA_API VELAxisSurface : public VELInvalidatableElement {
 public:
  /// The rectangle in which series are drawn.
  virtual VELRect chartFrame() const = 0;
  /// The rectangle that nothing may reach out of: labels that would are not shown.
  virtual VELRect viewBounds() const = 0;
  /// Device pixels per point.
  virtual double contentScale() const = 0;
  /// The beat at which the chart is redrawn and ranges are animated; null for none.
  virtual std::shared_ptr<VELDisplayLink> displayLink() const = 0;
  virtual size_t axisSeriesCount() const = 0;
  /// Series in drawing order; null beyond them. Not owned.
  virtual VELAxisSeries* axisSeriesAt(size_t index) const = 0;
  /// May be null. Not owned.
  virtual VELAxisCollection* xAxes() const = 0;
  virtual VELAxisCollection* yAxes() const = 0;
};
