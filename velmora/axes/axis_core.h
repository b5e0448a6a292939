// axes/axis_core.h: the state of an axis and its defaults.
//
// Ranges from data, calculators and drawing are axes/axis_base.h. Units: data units for ranges and deltas,
// seconds for durations.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "velmora/axes/axis_resize_animation_helper.h"
#include "velmora/axes/axis_surface.h"
#include "velmora/axes/range_changed_callback_handler.h"
#include "velmora/data/generic_type.h"
#include "velmora/data/range.h"
#include "velmora/platform/export.h"
#include "velmora/platform/invalidatable_element.h"

class VELCoordinateCalculator;
class VELDeltaCalculator;
class VELLabelProviderBase;
class VELNumberFormatter;
class VELTickCoordinatesProvider;
class VELTickProvider;

/// When an axis takes its visible range from the data.
enum VELAutoRange : int32_t {
  VELAutoRange_Once = 0,    ///< while it has no valid range or still its default one
  VELAutoRange_Always = 1,  ///< in every pass
  VELAutoRange_Never = 2,   ///< not at all; any other value means the same
};

/// What an axis knows. Create axes with `std::make_shared`: their providers hold them weakly.
///
/// A setter that changes the picture invalidates the surface. The surface is held weakly, providers
/// strongly.
class VELMORA_API VELAxisCore : public VELInvalidatableElement,
                                public std::enable_shared_from_this<VELAxisCore> {
 public:
  VELAxisCore();
  VELAxisCore(const VELAxisCore&) = delete;
  VELAxisCore& operator=(const VELAxisCore&) = delete;
  ~VELAxisCore() override;
  /// Name of the class, for messages.
  virtual std::string className() const { return "VELAxisCore"; }
  void invalidateElement() override;

  std::shared_ptr<VELAxisSurface> parentSurface() const { return _parentSurface.lock(); }
  /// Another surface ends a running animation where it is.
  void setParentSurface(const std::weak_ptr<VELAxisSurface>& surface);
  bool isXAxis() const { return _isXAxis; }
  void setIsXAxis(bool isXAxis) { _isXAxis = isXAxis; }
  /// Lets values grow the other way.
  bool flipCoordinates() const { return _flipCoordinates; }
  void setFlipCoordinates(bool flip);
  /// Whether the axis chooses its tick spacing itself.
  bool autoTicks() const { return _autoTicks; }
  void setAutoTicks(bool autoTicks);
  bool isStaticAxis() const { return _isStaticAxis; }
  void setIsStaticAxis(bool isStatic) { _isStaticAxis = isStatic; }
  /// Whether computed ranges are reached in `animatedChangeDuration` instead of at once; `setVisibleRange` is
  /// always at once.
  bool animateVisibleRangeChanges() const { return _animateVisibleRangeChanges; }
  void setAnimateVisibleRangeChanges(bool animate) { _animateVisibleRangeChanges = animate; }
  double animatedChangeDuration() const { return _animatedChangeDuration; }
  void setAnimatedChangeDuration(double seconds) { _animatedChangeDuration = seconds; }

  /// What the axis shows; null when none is set. It is the axis' own object: clone it before changing it,
  /// since a change in place is neither checked nor shown.
  const VELRangePtr& visibleRange() const { return _visibleRange; }
  /// Keeps a clone and ends a running animation. Null and what is no valid range of this kind of axis are
  /// taken and show nothing.
  /// @throws VELException "Invalide operation" for a range of the wrong type, "Invalide argument" when its
  ///         minimum is above its maximum
  void setVisibleRange(const VELRangePtr& range);
  /// Calls a block after each change to another range, with the former range, the new one, and whether it is
  /// a step of an animation. See `VELRangeChangedCallbackHandler` for what the block may do.
  /// @return its key for `removeOnVisibleRangeChanged`, never 0
  uint64_t addOnVisibleRangeChanged(VELRangeChangedCallbackHandler::Block block);
  void removeOnVisibleRangeChanged(uint64_t key) { _rangeCallbackHandler.remove(key); }
  bool isAnimating() const { return _animationController.isRunning(); }
  /// Where the visible range is going: the target of a running animation, else the visible range. Not to be
  /// changed in place.
  const VELRangePtr& visibleRangeTarget() const {
    return isAnimating() ? _animationController.target() : _visibleRange;
  }
  /// Fractions by which ranges from data are widened below and above; null for none.
  const VELRangePtr& growBy() const { return _growBy; }
  void setGrowBy(const VELRangePtr& fractions);
  VELAutoRange autoRange() const { return _autoRange; }
  void setAutoRange(VELAutoRange mode);
  /// Smallest and largest span that zooming may reach, NaN for none: in data units, seconds on a date axis,
  /// powers of the base on a logarithmic one.
  const VELGenericType& minimalZoomConstrain() const { return _minimalZoomConstrain; }
  void setMinimalZoomConstrain(const VELGenericType& span) { _minimalZoomConstrain = span; }
  const VELGenericType& maximalZoomConstrain() const { return _maximalZoomConstrain; }
  void setMaximalZoomConstrain(const VELGenericType& span) { _maximalZoomConstrain = span; }

  /// Shown along the axis, UTF-8; empty for none.
  const std::string& axisTitle() const { return _axisTitle; }
  void setAxisTitle(std::string title);
  /// Format of tick labels; empty for none. Numeric axes pass over what is no format of a number
  /// (axes/number_format.h), date axes write "yyyy-MM-dd" for a pattern that means nothing.
  const std::string& textFormatting() const { return _textFormatting; }
  void setTextFormatting(std::string format);
  /// Format of cursor labels; empty for that of tick labels. A wrong one as above.
  const std::string& cursorTextFormatting() const { return _cursorTextFormatting; }
  void setCursorTextFormatting(std::string format);
  /// Formats labels of numeric axes where there is no text format; null for none.
  const std::shared_ptr<VELNumberFormatter>& numberFormatter() const { return _numberFormatter; }
  void setNumberFormatter(std::shared_ptr<VELNumberFormatter> formatter);

  /// Tick spacing; NaN until it is calculated or set.
  const VELGenericType& majorDelta() const { return _majorDelta; }
  void setMajorDelta(const VELGenericType& delta);
  const VELGenericType& minorDelta() const { return _minorDelta; }
  void setMinorDelta(const VELGenericType& delta);
  int32_t minorsPerMajor() const { return _minorsPerMajor; }
  /// Parts of a major step, at least 1.
  /// A smaller number raises VELInternalInconsistencyException when the spacing is calculated, in the next
  /// pass.
  void setMinorsPerMajor(int32_t count);
  int32_t maxAutoTicks() const { return _maxAutoTicks; }
  void setMaxAutoTicks(int32_t count);
  /// `maxAutoTicks`, at least 1.
  int32_t getMaxAutoTicks() const { return _maxAutoTicks < 1 ? 1 : _maxAutoTicks; }

  /// Null for none: then the axis draws no ticks, or prints labels with "%.2f".
  std::shared_ptr<VELTickProvider> tickProvider() const;
  void setTickProvider(std::shared_ptr<VELTickProvider> provider);
  std::shared_ptr<VELTickCoordinatesProvider> tickCoordinatesProvider() const;
  void setTickCoordinatesProvider(std::shared_ptr<VELTickCoordinatesProvider> provider);
  std::shared_ptr<VELLabelProviderBase> labelProvider() const;
  void setLabelProvider(std::shared_ptr<VELLabelProviderBase> provider);

  /// Text of a value, UTF-8.
  std::string formatText(const VELGenericType& value) const;
  std::string formatCursorText(const VELGenericType& value) const;

  /// The range is of a type that the axis takes, is defined, and its maximum is not below its minimum.
  virtual bool isValidRange(const VELRangePtr& range) const;
  /// The visible range is valid and has a width, a finite one. While it is not, the axis draws nothing.
  virtual bool isVisibleRangeValid() const;
  bool hasValidVisibleRange() const { return isVisibleRangeValid(); }
  /// True while the range was never set from outside and equals the default.
  bool hasDefaultVisibleRange() const;
  /// @throws VELException "Invalide operation" when the axis does not take ranges of this type
  void assertRangeType(const VELRange& range) const;

  /// Takes major and minor spacing from the delta calculator for the visible range, when `autoTicks` is on.
  void calculateDelta();

  /// Equal factors are equally far apart instead of equal differences.
  virtual bool isLogarithmicAxis() const { return false; }
  /// Bounds as a new range of the kind that this axis sets: what is computed becomes one before it is set.
  virtual VELRangePtr toVisibleRangeMin(const VELGenericType& min, const VELGenericType& max) const;

  // For the kinds of axes. Here they raise VELException "Operation excpetion", "Method not implemented".
  virtual std::shared_ptr<VELCoordinateCalculator> getCurrentCoordinateCalculator();
  virtual VELDeltaCalculator& getDeltaCalculator() const;
  virtual VELRangePtr getDefaultNonZeroRange() const;
  virtual bool isRangeOfValidType(const VELRange& range) const;

 protected:
  /// Class of the ranges that the axis takes, for messages.
  virtual std::string validRangeClassName() const { return "VELRange"; }
  /// Sets the default range; a kind of axis calls it at the end of its construction.
  void resetVisibleRange();
  /// Makes this the axis of its providers, which may have come before the axis was shared.
  virtual void bindTickProvider(VELTickProvider& provider) const;
  virtual void bindTickCoordinatesProvider(VELTickCoordinatesProvider& provider) const;
  VELAxisResizeAnimationHelper& animationController() { return _animationController; }

 private:
  friend class VELAxisResizeAnimationHelper;

  /// Takes over a checked range and tells of it. The axis may be gone afterwards.
  void p_VEL_applyVisibleRange(VELRangePtr range, bool isAnimationChange);
  void p_VEL_setCoreDefaults();
  void p_VEL_validateVisibleRange(const VELRange& range) const;

  std::weak_ptr<VELAxisSurface> _parentSurface;
  VELAxisResizeAnimationHelper _animationController;
  VELRangeChangedCallbackHandler _rangeCallbackHandler;
  bool _isXAxis = true;
  bool _flipCoordinates = false;
  bool _autoTicks = true;
  bool _isStaticAxis = true;
  bool _animateVisibleRangeChanges = false;
  bool _visibleRangeWasSet = false;
  VELRangePtr _visibleRange;
  VELRangePtr _growBy;
  std::string _axisTitle;
  std::string _textFormatting;
  int32_t _minorsPerMajor = 5;
  int32_t _maxAutoTicks = 10;
  std::shared_ptr<VELTickProvider> _tickProvider;
  VELAutoRange _autoRange = VELAutoRange_Once;
  std::string _cursorTextFormatting;
  std::shared_ptr<VELNumberFormatter> _numberFormatter;
  std::shared_ptr<VELTickCoordinatesProvider> _tickCoordinatesProvider;
  std::shared_ptr<VELLabelProviderBase> _labelProvider;
  double _animatedChangeDuration = 0.0;
  VELGenericType _minimalZoomConstrain;
  VELGenericType _maximalZoomConstrain;
  VELGenericType _minorDelta;
  VELGenericType _majorDelta;
};
