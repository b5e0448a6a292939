#include "examples/plot/iso_date.h"

#include <charconv>
#include <chrono>
#include <cstddef>
#include <string>

namespace {

constexpr int kHourSeconds = 3600;
constexpr int kMinuteSeconds = 60;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Takes one piece after the other off the front of a text. A piece that is not there takes nothing.
class Reader {
 public:
  explicit Reader(std::string_view text) : _text(text) {}

  bool isAtEnd() const { return _text.empty(); }

  bool take(char wanted) {
    if (_text.empty() || _text.front() != wanted) return false;
    _text.remove_prefix(1);
    return true;
  }

  // Exactly so many digits.
  std::optional<int> number(size_t digits) {
    if (_text.size() < digits) return std::nullopt;
    int value = 0;
    for (const char c : _text.substr(0, digits)) {
      if (!isDigit(c)) return std::nullopt;
      value = value * 10 + (c - '0');
    }
    _text.remove_prefix(digits);
    return value;
  }

  // Two digits up to a largest value.
  std::optional<int> pair(int largest) {
    const auto value = number(2);
    return value && *value <= largest ? value : std::nullopt;
  }

  // The digits behind a decimal mark, at least one.
  std::optional<double> fraction() {
    size_t digits = 0;
    while (digits < _text.size() && isDigit(_text[digits])) ++digits;
    if (digits == 0) return std::nullopt;
    const std::string decimal = "0." + std::string(_text.substr(0, digits));
    _text.remove_prefix(digits);
    double value = 0.0;
    std::from_chars(decimal.data(), decimal.data() + decimal.size(), value);
    return value;
  }

 private:
  std::string_view _text;
};

// Seconds since 1970 of a day's begin.
std::optional<double> readDay(Reader& reader) {
  const auto year = reader.number(4);
  if (!year || !reader.take('-')) return std::nullopt;
  const auto month = reader.pair(12);
  if (!month || !reader.take('-')) return std::nullopt;
  const auto day = reader.pair(31);
  if (!day) return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day))};
  if (!date.ok()) return std::nullopt;
  return std::chrono::duration<double>(std::chrono::sys_days(date).time_since_epoch()).count();
}

// Seconds since midnight.
std::optional<double> readTime(Reader& reader) {
  const auto hour = reader.pair(24);
  if (!hour || !reader.take(':')) return std::nullopt;
  const auto minute = reader.pair(59);
  if (!minute) return std::nullopt;
  double seconds = *hour * kHourSeconds + *minute * kMinuteSeconds;
  if (reader.take(':')) {
    const auto second = reader.pair(59);
    if (!second) return std::nullopt;
    seconds += *second;
    if (reader.take('.') || reader.take(',')) {
      const auto fraction = reader.fraction();
      if (!fraction) return std::nullopt;
      seconds += *fraction;
    }
  }
  if (seconds > 24 * kHourSeconds) return std::nullopt;
  return seconds;
}

// Seconds by which a place's clocks are ahead of UTC.
std::optional<double> readOffset(Reader& reader) {
  if (reader.take('Z')) return 0.0;
  const bool isBehind = reader.take('-');
  if (!isBehind && !reader.take('+')) return std::nullopt;
  const auto hours = reader.pair(23);
  if (!hours) return std::nullopt;
  int seconds = *hours * kHourSeconds;
  if (!reader.isAtEnd()) {
    reader.take(':');
    const auto minutes = reader.pair(59);
    if (!minutes) return std::nullopt;
    seconds += *minutes * kMinuteSeconds;
  }
  return isBehind ? -seconds : seconds;
}

std::string_view trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

}  // namespace

std::optional<IsoDate> parseIsoDate(std::string_view text) {
  Reader reader(trimmed(text));
  const auto day = readDay(reader);
  if (!day) return std::nullopt;
  if (reader.isAtEnd()) return IsoDate{*day, true};

  if (!reader.take('T') && !reader.take(' ')) return std::nullopt;
  const auto time = readTime(reader);
  if (!time) return std::nullopt;
  if (reader.isAtEnd()) return IsoDate{*day + *time, true};

  const auto offset = readOffset(reader);
  if (!offset || !reader.isAtEnd()) return std::nullopt;
  return IsoDate{*day + *time - *offset, false};
}
