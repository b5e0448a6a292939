// axes/default_tick_label.h: the text beside one tick.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "velmora/platform/export.h"
#include "velmora/platform/label_view.h"

/// A label that is always just as large as its text and is placed by its centre.
class VELMORA_API VELDefaultTickLabel : public VELLabelView {
 public:
  /// Green until a style colours it, so that a label without style is seen.
  VELDefaultTickLabel();
  explicit VELDefaultTickLabel(const VELRect& frame);

  void setText(std::string_view text) override;
  void setAttributedText(VELAttributedText text) override;

  /// The centre, in points of the superview.
  VELPoint position() const { return frame().center(); }
  void setPosition(VELPoint centre);

  /// True when the frames share more than an edge. Compared in single precision, as coordinates are drawn.
  bool hasIntersectionWithNext(const VELDefaultTickLabel& next) const;
  /// True when the frame lies inside @p area, edges included; in points of the superview.
  bool fitsInArea(const VELRect& area) const;

  /// Labels of a lower priority give way.
  int32_t cullingPriority() const { return _cullingPriority; }
  void setCullingPriority(int32_t priority) { _cullingPriority = priority; }

  // Parts of a label that shows a power: "1", "x10 " and "3". Only `hasExponent` says whether they hold; the
  // label does not draw them, its text does.
  bool hasExponent() const { return _hasExponent; }
  void setHasExponent(bool hasExponent) { _hasExponent = hasExponent; }
  const std::string& separator() const { return _separator; }
  void setSeparator(std::string separator) { _separator = std::move(separator); }
  const std::string& exponent() const { return _exponent; }
  void setExponent(std::string exponent) { _exponent = std::move(exponent); }

 private:
  int32_t _cullingPriority = 0;
  bool _hasExponent = false;
  std::string _separator;
  std::string _exponent;
};

/// The label of numeric axes.
class VELMORA_API VELNumericTickLabel : public VELDefaultTickLabel {
 public:
  using VELDefaultTickLabel::VELDefaultTickLabel;
};
