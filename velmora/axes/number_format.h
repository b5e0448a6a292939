// axes/number_format.h: printf formats that come from an application.
#pragma once

#include <string>
#include <string_view>

#include "velmora/platform/export.h"

/// True for a format with exactly one floating-point conversion: flags, width and precision in digits are
/// allowed, "%%" and other text too; "*", length modifiers, bytes of 0 and widths above 999 are not.
VELMORA_API bool VELIsNumberFormat(std::string_view format);

/// A number in a printf format, "%g" when `VELIsNumberFormat` refuses it.
VELMORA_API std::string VELFormatNumber(double value, std::string_view format);
