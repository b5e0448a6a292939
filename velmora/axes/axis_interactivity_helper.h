// axes/axis_interactivity_helper.h: how a gesture moves and scales a visible range.
//
// Pure arithmetic from range to range; setting the result is the axis' business. Units: points for pixels,
// fractions of the span on the axis' scale: of its values, or of its exponents on a logarithmic axis.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>

#include "velmora/axes/axis_scale.h"
#include "velmora/axes/coordinate_calculator.h"
#include "velmora/data/range.h"
#include "velmora/platform/export.h"

/// What stops a range that is scrolled.
enum VELClipMode : int32_t {
  VELClipMode_None = 0,
  VELClipMode_HoldEnd = 1,       ///< the end that would leave the limit stays, the other moves on as far
                                 ///< as the zoom constraints let it
  VELClipMode_StopAtLimits = 4,  ///< the whole range stops at the limit and keeps its span
};

/// Spans between which zooming keeps a range; NaN for no bound. Data units, seconds on date axes, powers of
/// the base on logarithmic axes.
struct VELZoomConstraints {
  double minimal = std::numeric_limits<double>::quiet_NaN();
  double maximal = std::numeric_limits<double>::quiet_NaN();
};

/// Scrolls and zooms ranges of one axis as it was when the calculator was made.
///
/// Positive pixels move the content of an X axis to the right or downwards; on a Y axis they move it to the
/// left or upwards, whether it is flipped or not.
///
/// Always true: the answer is a new range, of dates for a date range and else of doubles; one that would be
/// undefined, inverted, on both sides of zero of a logarithmic axis, or narrower than 1e-12 of its magnitude
/// is not answered: then it is a copy of the range that came in. So it is for pixels of a calculator that is
/// at most one point long.
class VELMORA_API VELAxisInteractivityHelper {
 public:
  /// @param calculator not null
  explicit VELAxisInteractivityHelper(std::shared_ptr<const VELCoordinateCalculator> calculator,
                                      const VELZoomConstraints& constraints = {});

  /// Both ends by a distance on the screen.
  VELRangePtr scroll(const VELRange& range, double pixels) const;
  /// The minimum alone, by as much as `scroll` would move it; the span stays within the constraints.
  VELRangePtr scrollInMinDirection(const VELRange& range, double pixels) const;
  /// The maximum alone, as above.
  VELRangePtr scrollInMaxDirection(const VELRange& range, double pixels) const;
  /// Both ends upwards by a fraction of the span; a negative one moves them downwards.
  VELRangePtr scrollByFraction(const VELRange& range, double fraction) const;
  /// Widens each end by a fraction of the span, a negative one narrows; 0 leaves its end where it is. A
  /// result outside the constraints is widened or narrowed less, in the same proportion.
  VELRangePtr zoomByFractionMin(const VELRange& range, double minFraction, double maxFraction) const;

  /// A scrolled or zoomed range, stopped at a limit; one that leaves it on both sides is the limit. @param
  /// from the range before: ends that lay outside the limit there already are no reason to jump
  VELRangePtr clip(const VELRange& scrolled, const VELRange& from, const VELRange& limit,
                   VELClipMode mode) const;

  const std::shared_ptr<const VELCoordinateCalculator>& calculator() const { return _calculator; }

 private:
  /// Ends of a range on the axis' scale.
  struct Places {
    VELAxisScale scale;
    double min;
    double max;
    double span() const { return max - min; }
  };

  Places placesOf(const VELRange& range) const;
  /// How far @p pixels move a range, on the scale; NaN without a length to count them against.
  double distance(const VELRange& range, const Places& places, double pixels) const;
  VELRangePtr moved(const VELRange& range, const Places& places, double minBy, double maxBy) const;
  /// The new range, or a copy of the former one when the bounds are no use.
  VELRangePtr checked(const VELRange& range, double min, double max) const;
  /// How far zooming may bring a span on its way to another, on the scale.
  double allowedSpan(double from, double to) const;

  std::shared_ptr<const VELCoordinateCalculator> _calculator;
  VELZoomConstraints _constraints;  ///< on the scale
  bool _isLogarithmic = false;
};
