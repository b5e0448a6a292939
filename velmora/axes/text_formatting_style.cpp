#include "velmora/axes/text_formatting_style.h"

#include <utility>

#include "velmora/rendering/visual_style.h"

VELTextFormattingStyle::VELTextFormattingStyle()
    : VELTextFormattingStyle({}, VELVisualStyle::standard().labelFontSize,
                             VELVisualStyle::standard().labelColor) {}

VELTextFormattingStyle::VELTextFormattingStyle(std::string fontName, double fontSize, uint32_t colorCode)
    : _font{std::move(fontName), fontSize},
      _colorCode(colorCode),
      _color(VELColor::fromColorCode(colorCode)) {}

VELTextFormattingStyle::VELTextFormattingStyle(const VELTextFormattingStyle& other)
    : _font(other._font),
      _colorCode(other._colorCode),
      _color(other._color),
      _transform(other._transform),
      _alignmentHorizontal(other._alignmentHorizontal),
      _alignmentVertical(other._alignmentVertical) {}

VELTextFormattingStyle& VELTextFormattingStyle::operator=(const VELTextFormattingStyle& other) {
  if (this == &other) return *this;
  _font = other._font;
  _colorCode = other._colorCode;
  _color = other._color;
  _transform = other._transform;
  _alignmentHorizontal = other._alignmentHorizontal;
  _alignmentVertical = other._alignmentVertical;
  changed();
  return *this;
}

void VELTextFormattingStyle::setFontName(std::string name) {
  _font.name = std::move(name);
  changed();
}

void VELTextFormattingStyle::setFontSize(double size) {
  _font.size = size;
  changed();
}

void VELTextFormattingStyle::setColorCode(uint32_t code) {
  _colorCode = code;
  _color = VELColor::fromColorCode(code);
  changed();
}

void VELTextFormattingStyle::setTransform(const VELAffineTransform& transform) {
  _transform = transform;
  changed();
}

void VELTextFormattingStyle::setAlignmentHorizontal(VELLabelAlignmentHorizontal alignment) {
  _alignmentHorizontal = alignment;
  changed();
}

void VELTextFormattingStyle::setAlignmentVertical(VELLabelAlignmentVertical alignment) {
  _alignmentVertical = alignment;
  changed();
}

void VELTextFormattingStyle::changed() const {
  const auto block = _styleChanged;
  if (block && *block) (*block)();
}
