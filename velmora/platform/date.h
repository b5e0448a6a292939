// platform/date.h: a moment in time.
#pragma once

#include <compare>

/// Seconds since 1970-01-01 00:00 UTC, as a double: exact to a quarter of a microsecond until the year 2100.
class VELDate {
 public:
  VELDate() = default;
  explicit VELDate(double secondsSince1970) : _seconds(secondsSince1970) {}
  double timeIntervalSince1970() const { return _seconds; }
  auto operator<=>(const VELDate&) const = default;

 private:
  double _seconds = 0.0;
};
