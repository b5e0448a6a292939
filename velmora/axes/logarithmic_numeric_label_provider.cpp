#include "velmora/axes/logarithmic_numeric_label_provider.h"

#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/default_tick_label.h"
#include "velmora/axes/number_format.h"

namespace {

constexpr double kNaturalBase = 2.718281828459045;
constexpr double kExponentSize = 0.7;

/// A number as mantissa × base^exponent, in words.
struct Power {
  std::string mantissa;
  std::string base;
  std::string exponent;
};

std::string print(double value) { return VELFormatNumber(value, "%g"); }

std::string exponentText(double exponent) {
  // Steps of a tenth leave a rest beside 0, which is no exponent that anybody would read.
  return print(std::abs(exponent) < 1e-12 ? 0.0 : exponent);
}

std::optional<Power> powerOf(double value, double base, const char* naturalBase) {
  if (!(value > 0.0) || !std::isfinite(value)) return std::nullopt;
  const double exponent = std::log(value) / std::log(base);
  const double mantissa = value / std::pow(base, exponent);
  // A base of 1, and numbers at the end of all doubles, have no power that can be calculated.
  if (!std::isfinite(exponent) || !(mantissa > 0.0) || !std::isfinite(mantissa)) return std::nullopt;
  const bool isNatural = std::abs(base - kNaturalBase) < std::numeric_limits<double>::epsilon();
  return Power{print(mantissa), isNatural ? naturalBase : print(base), exponentText(exponent)};
}

/// Null when the axis of a provider is not logarithmic.
std::shared_ptr<VELAxisBase> logarithmicAxis(const std::shared_ptr<VELAxisCore>& axis) {
  auto base = std::dynamic_pointer_cast<VELAxisBase>(axis);
  return base && base->isLogarithmicAxis() ? base : nullptr;
}

bool isRun(const VELTextRun& run, const std::string& text, const VELFont& font, double baselineOffset) {
  return run.text == text && run.font == font && run.baselineOffset == baselineOffset;
}

}  // namespace

std::string VELLogarithmicNumericLabelProvider::formatLabel(const VELGenericType& value) const {
  const auto axis = logarithmicAxis(parentAxis());
  if (!axis) return VELNumericLabelProvider::formatLabel(value);
  const double number = VELGenericDouble(value);
  const auto power = powerOf(number, axis->logarithmicBase(), "e");
  return power ? power->mantissa + "x" + power->base + power->exponent : print(number);
}

void VELLogarithmicNumericLabelProvider::updateDataContextWithContext(
    VELDefaultTickLabel& label, const VELGenericType& value, const VELTextFormattingStyle* style) const {
  const auto axis = logarithmicAxis(parentAxis());
  auto power = axis ? powerOf(VELGenericDouble(value), axis->logarithmicBase(), "E") : std::nullopt;
  if (!power) return VELNumericLabelProvider::updateDataContextWithContext(label, value, style);

  applyStyle(label, style);
  const std::string separator = "x" + power->base + " ";
  const std::string foot = power->mantissa + separator;
  const VELFont& font = label.font();
  const ExponentStyle& small = exponentStyle(font);
  label.setHasExponent(true);
  label.setSeparator(separator);
  label.setExponent(power->exponent);
  // Labels are refilled at every draw: the same text again must not be made again.
  const VELAttributedText& shown = label.attributedText();
  if (shown.size() == 2 && isRun(shown[0], foot, font, 0.0) &&
      isRun(shown[1], power->exponent, small.font, small.raise))
    return label.sizeToFit();
  label.setAttributedText({{foot, font, 0.0}, {std::move(power->exponent), small.font, small.raise}});
}

const VELLogarithmicNumericLabelProvider::ExponentStyle& VELLogarithmicNumericLabelProvider::exponentStyle(
    const VELFont& font) const {
  if (_exponentStyle && _exponentStyle->besideFont == font) return *_exponentStyle;
  ExponentStyle style{font, font, 0.0};
  style.font.size = font.size * kExponentSize;
  VELTextEngine& engine = VELTextEngine::instance();
  style.raise = 2.0 * (engine.capHeight(font) - engine.capHeight(style.font));
  _exponentStyle = std::move(style);
  return *_exponentStyle;
}
