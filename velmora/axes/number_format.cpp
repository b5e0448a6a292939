#include "velmora/axes/number_format.h"

#include <array>
#include <cstdio>

namespace {

constexpr std::string_view kFlags = "-+ #0'";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kConversions = "aAeEfFgG";
// Wider fields than this are no labels.
constexpr size_t kMaxDigits = 3;

size_t skip(std::string_view text, size_t from, std::string_view set) {
  const size_t end = text.find_first_not_of(set, from);
  return end == std::string_view::npos ? text.size() : end;
}

// The place behind a conversion whose '%' stands before @p at, or npos when it is none that is allowed.
size_t endOfConversion(std::string_view format, size_t at) {
  at = skip(format, at, kFlags);
  const size_t width = at;
  at = skip(format, at, kDigits);
  if (at - width > kMaxDigits) return std::string_view::npos;
  if (at < format.size() && format[at] == '.') {
    const size_t precision = at + 1;
    at = skip(format, precision, kDigits);
    if (at - precision > kMaxDigits) return std::string_view::npos;
  }
  if (at >= format.size() || kConversions.find(format[at]) == std::string_view::npos)
    return std::string_view::npos;
  return at + 1;
}

std::string print(const char* format, double value) {
  std::array<char, 64> buffer{};
  // The caller checked the format.
  const int length = std::snprintf(buffer.data(), buffer.size(), format, value);
  if (length < 0) return {};
  const auto size = static_cast<size_t>(length);
  if (size < buffer.size()) return {buffer.data(), size};
  std::string text(size, '\0');
  std::snprintf(text.data(), size + 1, format, value);
  return text;
}

}  // namespace

bool VELIsNumberFormat(std::string_view format) {
  int conversions = 0;
  for (size_t at = 0; at < format.size();) {
    if (format[at] == '\0') return false;
    if (format[at] != '%') {
      ++at;
    } else if (at + 1 < format.size() && format[at + 1] == '%') {
      at += 2;
    } else {
      at = endOfConversion(format, at + 1);
      if (at == std::string_view::npos) return false;
      ++conversions;
    }
  }
  return conversions == 1;
}

std::string VELFormatNumber(double value, std::string_view format) {
  if (!VELIsNumberFormat(format)) return print("%g", value);
  return print(std::string(format).c_str(), value);
}
