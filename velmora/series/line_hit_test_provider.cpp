#include "velmora/series/line_hit_test_provider.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "velmora/axes/coordinate_calculator.h"
#include "velmora/data/point_series.h"
#include "velmora/series/screen_points.h"
#include "velmora/surface/render_pass_data.h"
#include "velmora/surface/renderable_series.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A place along and across the X axis of the chart, in points, so that vertical charts need no case.
struct Place {
  double along, across;
};

double squaredDistance(Place a, Place b) {
  const double along = a.along - b.along, across = a.across - b.across;
  return along * along + across * across;
}

// Distance to a segment: the foot of the perpendicular, held between the ends.
double squaredDistance(Place from, Place start, Place end) {
  const double length = squaredDistance(start, end);
  if (length == 0.0) return squaredDistance(from, start);
  const double dot = (from.along - start.along) * (end.along - start.along) +
                     (from.across - start.across) * (end.across - start.across);
  const double t = std::clamp(dot / length, 0.0, 1.0);
  return squaredDistance(
      from, {start.along + t * (end.along - start.along), start.across + t * (end.across - start.across)});
}

/// Goes over the points and the drawn segments once and keeps what is nearest to the touch.
class Search {
 public:
  Search(Place touch, VELHitTestMode mode, bool isDigitalLine, bool bridgesGaps)
      : _touch(touch),
        _byScreen(mode == VELHitTestMode_Nearest),
        _isDigitalLine(isDigitalLine),
        _bridgesGaps(bridgesGaps) {}

  void run(std::span<const double> along, std::span<const double> across) {
    for (size_t i = 0; i < across.size(); ++i) {
      const Place place{along[i], across[i]};
      const bool isDrawn = std::isfinite(place.along) && std::isfinite(place.across);
      if (isDrawn) takePoint(place, i);
      if (_hasLast && (isDrawn || !_bridgesGaps)) takeStep(place, isDrawn, i);
      if (isDrawn) {
        _last = place;
        _lastIndex = i;
      }
      _hasLast = isDrawn || (_hasLast && _bridgesGaps);
    }
  }

  bool found() const { return _best != kInfinity; }
  size_t point() const { return _point; }
  double distance() const { return std::sqrt(_squaredDistance); }
  /// Whether a segment passes the touched place along the X axis; then where, and the point that it is of.
  bool crosses() const { return _crossingError != kInfinity; }
  double crossing() const { return _crossing; }
  size_t crossedPoint() const { return _crossedPoint; }

 private:
  void takePoint(Place place, size_t index) {
    const double distance = squaredDistance(_touch, place);
    _squaredDistance = std::min(_squaredDistance, distance);
    const double measure = _byScreen ? distance : std::abs(place.along - _touch.along);
    if (measure > _best || (measure == _best && distance >= _bestTie)) return;
    _best = measure;
    _bestTie = distance;
    _point = index;
  }

  void takeStep(Place place, bool isDrawn, size_t index) {
    if (!_isDigitalLine) {
      if (isDrawn) takeSegment(_last, place, index);
      return;
    }
    // The step up to a gap is drawn, and only its rise is not.
    if (!std::isfinite(place.along)) return;
    const Place corner{place.along, _last.across};
    takeSegment(_last, corner, _lastIndex);
    if (isDrawn) takeSegment(corner, place, index);
  }

  void takeSegment(Place start, Place end, size_t index) {
    _squaredDistance = std::min(_squaredDistance, squaredDistance(_touch, start, end));
    const auto [low, high] = std::minmax(start.along, end.along);
    if (_touch.along < low || _touch.along > high) return;
    const auto [bottom, top] = std::minmax(start.across, end.across);
    const double crossing =
        low == high ? std::clamp(_touch.across, bottom, top)
                    : start.across + (end.across - start.across) *
                                         ((_touch.along - start.along) / (end.along - start.along));
    const double error = std::abs(crossing - _touch.across);
    // Written so that the NaN of places beyond all numbers is passed over.
    if (!(error < _crossingError)) return;
    _crossingError = error;
    _crossing = crossing;
    const bool startIsNearer = std::abs(_touch.along - start.along) < std::abs(end.along - _touch.along);
    _crossedPoint = startIsNearer ? _lastIndex : index;
  }

  Place _touch;
  bool _byScreen;
  bool _isDigitalLine;
  bool _bridgesGaps;
  Place _last{};
  size_t _lastIndex = 0;
  bool _hasLast = false;
  size_t _point = 0;
  double _best = kInfinity;
  double _bestTie = kInfinity;
  double _squaredDistance = kInfinity;
  double _crossing = 0.0;
  double _crossingError = kInfinity;
  size_t _crossedPoint = 0;
};

}  // namespace

VELHitTestInfo VELLineHitTestProvider::hitTestPass(const VELRenderPassData& data, VELPoint point,
                                                   double radius) const {
  const bool isVertical = data.isVerticalChart();
  const Place touch = isVertical ? Place{point.y, point.x} : Place{point.x, point.y};
  // A paletted line goes straight over a point without a Y coordinate.
  const auto series = data.renderableSeries();
  const bool bridgesGaps = series && series->paletteProvider();
  const VELScreenPoints points(data, VELScreenPointsForm_All);
  Search search(touch, hitTestMode(), isDigitalLine(), bridgesGaps);
  search.run(points.along(), points.across());

  VELHitTestInfo info;
  if (!search.found()) return info;
  const bool isBetween = hitTestMode() == VELHitTestMode_Interpolate && search.crosses();
  const size_t index = isBetween ? search.crossedPoint() : search.point();
  Place place{points.along()[index], points.across()[index]};
  info.pointIndex = static_cast<int32_t>(index);
  info.dataIndex = data.pointSeries()->indexSpan()[index];
  info.xValue = data.pointSeries()->xSpan()[index];
  info.yValue = data.pointSeries()->ySpan()[index];
  if (isBetween) {
    const Place between{touch.along, search.crossing()};
    // A value that is the point's own stays free of rounding.
    if (between.along != place.along)
      info.xValue = data.xCoordinateCalculator()->getDataValueFrom(between.along);
    if (between.across != place.across)
      info.yValue = data.yCoordinateCalculator()->getDataValueFrom(between.across);
    place = between;
  }
  info.screenPoint = isVertical ? VELPoint{place.across, place.along} : VELPoint{place.along, place.across};
  info.distance = search.distance();
  info.isHit = info.distance <= radius;
  return info;
}
