// platform/calendar.h: what a moment is called in a place.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "velmora/platform/date.h"
#include "velmora/platform/export.h"

/// A date in parts, on the clocks of one place.
struct VELDateComponents {
  int32_t year = 1970;  ///< 0 is the year before 1
  int32_t month = 1;    ///< 1 to 12
  int32_t day = 1;      ///< 1 to 31
  int32_t hour = 0;
  int32_t minute = 0;
  double second = 0.0;    ///< with its fraction, below 60
  int32_t weekday = 0;    ///< 1 Monday to 7 Sunday; not read when a date is made
  int32_t dayOfYear = 0;  ///< 1 to 366; not read when a date is made
  bool operator==(const VELDateComponents&) const = default;
};

/// The Gregorian calendar in a time zone; it also holds for the years before it was made.
/// Not copyable; share it by pointer.
class VELMORA_API VELCalendar {
 public:
  /// @param timeZone IANA name, as "UTC" or "Europe/Berlin"
  /// @throws VELInvalidArgumentException naming an unknown time zone
  explicit VELCalendar(const std::string& timeZone = "UTC");
  VELCalendar(const VELCalendar&) = delete;
  VELCalendar& operator=(const VELCalendar&) = delete;
  ~VELCalendar();
  /// The calendar in the time zone of the process, which TZ or else the machine names; "UTC" where they name
  /// none that is known. Found at first use; one shared object, never null.
  static const std::shared_ptr<const VELCalendar>& current();

  const std::string& timeZone() const { return _timeZone; }
  /// Nothing for NaN and infinities. A date more than five million years away counts as the last one
  /// that is not.
  std::optional<VELDateComponents> componentsFromDate(VELDate date) const;
  /// Parts beyond their range roll over: month 13 is January of the next year, day 0 the last of the month
  /// before. An hour that the clocks skip is the hour after; one that comes twice is the first.
  /// A second that is not finite counts as 0.
  VELDate dateFromComponents(const VELDateComponents& components) const;

 private:
  struct Engine;

  std::string _timeZone;
  std::unique_ptr<Engine> _engine;
};
