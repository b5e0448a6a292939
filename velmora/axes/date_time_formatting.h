// axes/date_time_formatting.h: how an axis that shows moments writes them, and on whose clocks.
#pragma once

#include <memory>
#include <string>

#include "velmora/platform/calendar.h"
#include "velmora/platform/export.h"

/// What date axes have beside other axes: patterns by the span that is shown, a time zone and a locale.
///
/// Patterns are those of `VELDateFormatter`; labels read them from the axis at each draw, and write
/// "yyyy-MM-dd" for a pattern that means nothing. Which pattern a label takes is the label providers' to
/// choose; the one between a day and a year is the axis' `textFormatting`. Ticks and labels of one axis use
/// its one calendar.
class VELMORA_API VELDateTimeFormatting {
 public:
  /// In the time zone and the locale of the process.
  VELDateTimeFormatting();
  VELDateTimeFormatting(const VELDateTimeFormatting&) = delete;
  VELDateTimeFormatting& operator=(const VELDateTimeFormatting&) = delete;
  virtual ~VELDateTimeFormatting();

  /// Pattern of labels within a day; "hh:mm:ss" at first, the twelve-hour clock.
  const std::string& subDayTextFormatting() const { return _subDayTextFormatting; }
  void setSubDayTextFormatting(std::string pattern);
  /// Pattern of labels over several years, fewer than ten; "dd MMM yyyy" at first. Read by category axes.
  const std::string& subYearTextFormatting() const { return _subYearTextFormatting; }
  void setSubYearTextFormatting(std::string pattern);
  /// Pattern of labels over ten years and more; "yyyy" at first. Read by category axes.
  const std::string& decadesTextFormatting() const { return _decadesTextFormatting; }
  void setDecadesTextFormatting(std::string pattern);

  /// IANA name of the time zone of ticks and labels; that of the process at first.
  const std::string& timeZone() const { return _calendar->timeZone(); }
  /// @param name as "UTC" or "Europe/Berlin"; empty is the process' zone
  /// @throws VELInvalidArgumentException naming an unknown one; the old one stays
  void setTimeZone(const std::string& name);
  /// Locale of month and day names; that of the process, as it is when the axis is made, at first.
  const std::string& locale() const { return _locale; }
  /// @param name as "en_US" or "de"; empty is the process' locale
  /// @throws VELInvalidArgumentException naming an unknown one; the old one stays
  void setLocale(const std::string& name);

  /// The calendar of ticks and labels, in `timeZone`; it lives until another zone is set.
  const VELCalendar& calendar() const { return *_calendar; }

 protected:
  /// Called by every setter: the axis invalidates itself.
  virtual void formattingChanged() = 0;

 private:
  std::string _subDayTextFormatting;
  std::string _subYearTextFormatting;
  std::string _decadesTextFormatting;
  std::shared_ptr<const VELCalendar> _calendar;  // never null
  std::string _locale;
};
