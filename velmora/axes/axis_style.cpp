#include "velmora/axes/axis_style.h"

#include "velmora/rendering/visual_style.h"

namespace {

// The visual style speaks of the width that is seen; a pen reaches half of it to each side.
VELPenPtr penOf(uint32_t colorCode, double width) {
  return VELPen2D::solid(colorCode, static_cast<float>(width / 2.0));
}

// Minor lines closer than this are a grey area and no grid.
constexpr double kMinMinorSpacing = 5.0;

}  // namespace

VELAxisStyle::VELAxisStyle() {
  const VELVisualStyle& look = VELVisualStyle::standard();
  _values.majorGridLinePen = penOf(look.majorGrid, look.gridWidth);
  _values.minorGridLinePen = penOf(look.minorGrid, look.gridWidth);
  _values.majorTickPen = penOf(look.majorTick, look.tickWidth);
  _values.minorTickPen = penOf(look.minorTick, look.tickWidth);
  _values.gridBandBrush = VELBrush2D::solid(look.axisBand);
  _values.majorTickSize = look.majorTickLength;
  _values.minorTickSize = look.minorTickLength;
  _values.labelGap = look.labelGap;
  _values.titleGap = look.axisTitleGap;
  _values.minLabelSpacing = look.minLabelSpacing;
  _values.minMinorSpacing = kMinMinorSpacing;
  _titleStyle = VELTextFormattingStyle({}, look.axisTitleFontSize, look.axisTitleColor);
  watchTexts();
}

VELAxisStyle::VELAxisStyle(const VELAxisStyle& other)
    : _values(other._values), _labelStyle(other._labelStyle), _titleStyle(other._titleStyle) {
  watchTexts();
}

VELAxisStyle& VELAxisStyle::operator=(const VELAxisStyle& other) {
  if (this == &other) return *this;
  _values = other._values;
  _labelStyle = other._labelStyle;
  _titleStyle = other._titleStyle;
  changed();
  return *this;
}

void VELAxisStyle::setLabelStyle(const VELTextFormattingStyle& style) { _labelStyle = style; }

void VELAxisStyle::setTitleStyle(const VELTextFormattingStyle& style) { _titleStyle = style; }

void VELAxisStyle::changed() const {
  const auto block = _styleChanged;
  if (block && *block) (*block)();
}

void VELAxisStyle::watchTexts() {
  // The texts are members, so that they never outlive the style that they tell.
  _labelStyle.setStyleChanged([this] { changed(); });
  _titleStyle.setStyleChanged([this] { changed(); });
}
