// axes/axis_base.h: an axis of a chart: its range from the data, its calculator, its ticks, its drawing.
//
// State and defaults are axes/axis_core.h. Units: data units for ranges, points for places and sizes.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "velmora/axes/axis_alignment.h"
#include "velmora/axes/axis_core.h"
#include "velmora/axes/axis_interactivity_helper.h"
#include "velmora/axes/axis_params.h"
#include "velmora/axes/axis_style.h"
#include "velmora/axes/tick_coordinates.h"
#include "velmora/data/generic_type.h"
#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"

class VELAxisDrawing;
class VELAxisPanel;
class VELRenderContext2D;
class VELRenderPassInfo;

/// One dimension of a chart.
class VELMORA_API VELAxisBase : public VELAxisCore {
 public:
  /// Axis id to a range of that axis.
  using Ranges = std::map<std::string, VELRangePtr>;

  /// The id of every new axis, and the one that a new series looks for.
  static constexpr char defaultAxisId[] = "DefaultAxisId";

  VELAxisBase();
  ~VELAxisBase() override;
  std::string className() const override { return "VELAxisBase"; }

  // Place in the chart.
  const std::string& axisId() const { return _axisId; }
  void setAxisId(std::string id);
  VELAxisAlignment axisAlignment() const { return _axisAlignment; }
  /// Calls `onAxisAlignmentChanged` when the side changes, as does `setIsCenterAxis`: the surface moves the
  /// axis.
  void setAxisAlignment(VELAxisAlignment alignment);
  /// The side on which the axis stands: the default resolved.
  VELAxisAlignment effectiveAlignment() const;
  bool isHorizontalAxis() const { return VELIsHorizontal(effectiveAlignment()); }
  void setOnAxisAlignmentChanged(std::function<void()> block) { _onAxisAlignmentChanged = std::move(block); }
  bool isCenterAxis() const { return _isCenterAxis; }
  void setIsCenterAxis(bool isCenterAxis);
  bool isPrimaryAxis() const { return _isPrimaryAxis; }
  void setIsPrimaryAxis(bool isPrimaryAxis);
  virtual bool isPolarAxis() const { return false; }
  virtual bool isCategoryAxis() const { return false; }
  /// 0 for a linear axis.
  virtual double logarithmicBase() const { return 0.0; }

  /// The look, to be changed in place; each change invalidates the surface.
  VELAxisStyle& style() { return _style; }
  const VELAxisStyle& style() const { return _style; }
  /// Keeps a copy.
  void setStyle(const VELAxisStyle& style);
  /// Labels and title of the axis; an axis area shows it. Held strongly.
  const std::shared_ptr<VELAxisPanel>& axisPanel() const { return _panel; }

  // Ranges.
  /// Sets a range that the axis accepts (`isValidRange`), or starts an animation to it when the axis animates
  /// changes. A range of another kind becomes the axis' own first; one that is not accepted is left alone,
  /// without a report. @return whether it was accepted
  bool trySetOrAnimateVisibleRange(const VELRangePtr& range);
  /// As above. @param duration seconds; the range is set at once for 0, and where nothing can be animated: no
  /// valid range to start from, no chart, or no beat
  bool trySetOrAnimateVisibleRange(const VELRangePtr& range, double duration);
  /// What ranges from data are clipped to; null for none.
  const VELRangePtr& visibleRangeLimit() const { return _visibleRangeLimit; }
  void setVisibleRangeLimit(const VELRangePtr& limit);
  /// Extent of the data of this axis, as it is; null when there is none. A logarithmic axis takes the values
  /// above zero, and those below only where there is none above. Doubles on every axis, as are the two
  /// below: `trySetOrAnimateVisibleRange` sets them as the axis' own kind.
  VELRangePtr getDataRange() const;
  /// What an auto-ranging axis shows: the data's extent, widened where it has no width, grown by `growBy`
  /// and limited; the visible or the default range where there is no data. Never null, always doubles.
  /// @param xRanges for a Y axis, as below
  VELRangePtr getMaximumRange(const Ranges* xRanges = nullptr) const;
  /// As above for the Y extent inside x ranges, but undefined (two NaNs) where there is no data.
  /// @param xRanges by id of the x axis; null, or an id that is not in it, is the axis' visible range
  VELRangePtr getWindowedYRangeWithXRanges(const Ranges* xRanges = nullptr) const;
  /// The range of an always auto-ranging Y axis in a pass: that of the data inside the visible X ranges, with
  /// which a pass is prepared.
  /// @param info the pass, for axes with a rule of their own
  virtual VELRangePtr calculateYRangeWithRenderPassInfo(const VELRenderPassInfo& /*info*/) const {
    return getMaximumRange();
  }
  /// Widens a range without width by `zeroRangeGrowBy` of its value on both sides, in place.
  virtual void coerceZeroRange(VELRange& range) const;
  /// A fraction.
  virtual double zeroRangeGrowBy() const { return 0.01; }
  /// @throws VELInvalidArgumentException naming axis and type when the axis cannot show such data
  virtual void assertDataType(VELDataType type) const;

  // Gestures. Each ends a running animation. The `visibleRangeLimit` stops them; a range that lies outside it
  // already does not jump back.
  /// Remembers the visible range as the start of a gesture, for the clip modes. Who does not call it gets the
  /// range before the first scrolling since somebody else set one.
  void beginGesture();
  /// Scrolls by a distance on the screen. Pixels as `VELAxisInteractivityHelper` counts them. The limit of
  /// the clip mode is the data together with what was visible at the start of the gesture. An axis that is
  /// at most one point long stays.
  void scrollByPixels(double pixels, VELClipMode clipMode);
  /// Widens each end by a fraction of the span, a negative one narrows; bounded by the zoom constraints.
  void zoomByFractionMin(double minFraction, double maxFraction);
  /// A helper around a new current calculator, so that gestures between two passes add up. Never null.
  std::shared_ptr<const VELAxisInteractivityHelper> getCurrentInteractivityHelper();

  // One pass.
  /// What tick labels are made of: the tick itself, its date, or its category.
  virtual VELGenericType labelValue(double tick) const { return tick; }
  virtual VELAxisParams getAxisParams() const;
  /// A new calculator for the axis as it is now; becomes the current one.
  std::shared_ptr<VELCoordinateCalculator> getCurrentCoordinateCalculator() override;
  /// The calculator that was handed out last; null before the first.
  const std::shared_ptr<VELCoordinateCalculator>& currentCoordinateCalculator() const {
    return _currentCoordinateCalculator;
  }
  /// Length of the axis: that of its panel, else of the chart frame's side.
  double getAxisSize() const;
  /// How far the panel starts beyond the start of the chart frame, along the axis.
  double getAxisOffset() const;
  /// Spacing, ticks and their places for the visible range. Never null.
  std::shared_ptr<const VELTickCoordinates> CalculateTicks();
  /// Whether a point of the chart view lies on the axis panel, edges included.
  bool isPointWithinBounds(VELPoint point) const;
  virtual void onBeginRenderPass() { getCurrentCoordinateCalculator(); }
  /// Number of a major tick, counted from 0 in major steps: its parity tells bands from gaps.
  virtual int32_t p_VEL_getMajorTickIndex(double value) const;

  // Drawing, in the order of a pass. An axis without a valid visible range draws nothing.
  /// Decides whether the axis draws in this pass.
  void validateAxis();
  /// Ticks and labels of this pass.
  void prepareForDrawing();
  /// Tick marks, on the axis panel.
  void drawAxisAreaWithContext(VELRenderContext2D& context);
  /// Sets the drawing area for bands and grid lines.
  void prepareToDrawGridLines(VELRenderContext2D& context);
  void drawBandsWithContext(VELRenderContext2D& context);
  void drawMinorGridLinesWithContext(VELRenderContext2D& context);
  void drawMajorGridLinesWithContext(VELRenderContext2D& context);
  /// Takes labels and ticks of the last pass off the screen.
  void clear();

 protected:
  void bindTickCoordinatesProvider(VELTickCoordinatesProvider& provider) const override;
  /// @throws VELInvalidArgumentException always, naming axis and type
  [[noreturn]] void refuseDataType(VELDataType type) const;
  /// Clips a range to `visibleRangeLimit`, in place.
  void p_VEL_tryApplyVisibleRangeLimit(VELRange& range) const;
  /// X extent of one series on this axis; null for none.
  virtual VELRangePtr seriesXRange(const VELAxisSeries& series) const;
  /// Y extent of one series on this axis inside an x range; null for none.
  virtual VELRangePtr seriesYRange(const VELAxisSeries& series, const VELRange& xRange) const;
  /// A new range of doubles, widened by fractions.
  virtual VELRangePtr grownRange(const VELRange& range, double minFraction, double maxFraction) const;
  /// Tells the surface that the axis belongs somewhere else.
  void placeChanged();

 private:
  void watchStyle();
  /// Widens, grows and limits a range from data, in place.
  void finishRange(VELRangePtr& range) const;
  /// Where scrolling stops: the data and what was visible at the start of the gesture; null without data.
  VELRangePtr scrollLimit();
  void setGestureRange(const VELRange& range);

  std::string _axisId;
  VELAxisAlignment _axisAlignment = VELAxisAlignment_Default;
  std::function<void()> _onAxisAlignmentChanged;
  bool _isCenterAxis = false;
  bool _isPrimaryAxis = false;
  VELAxisStyle _style;
  VELRangePtr _visibleRangeLimit;
  std::shared_ptr<VELAxisPanel> _panel;
  std::shared_ptr<VELCoordinateCalculator> _currentCoordinateCalculator;
  VELRangePtr _gestureStart;
  VELRangePtr _gestureRange;  ///< the visible range that the last gesture set; another one ends its start
  std::unique_ptr<VELAxisDrawing> _drawing;
};
