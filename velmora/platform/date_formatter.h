// platform/date_formatter.h: dates as text.
#pragma once

#include <memory>
#include <string>

#include "velmora/platform/date.h"
#include "velmora/platform/export.h"

/// Formats dates by a pattern of letters as Unicode's locale data defines them (UTS 35: "yyyy-MM-dd",
/// "dd MMM", "HH:mm:ss"), in the Gregorian calendar, which also holds for the years before it was made.
/// Not copyable; share it by pointer.
class VELMORA_API VELDateFormatter {
 public:
  /// @param pattern see `setPattern`
  /// @param locale language of month and day names, as "en_US" or "de"
  /// @param timeZone IANA name, as "UTC" or "Europe/Berlin"
  /// @throws VELInvalidArgumentException naming an unknown locale, time zone or pattern
  explicit VELDateFormatter(const std::string& pattern = "yyyy-MM-dd", const std::string& locale = "en_US",
                            const std::string& timeZone = "UTC");
  VELDateFormatter(const VELDateFormatter&) = delete;
  VELDateFormatter& operator=(const VELDateFormatter&) = delete;
  ~VELDateFormatter();

  const std::string& pattern() const { return _pattern; }
  /// An equal pattern costs nothing. @throws VELInvalidArgumentException naming a pattern with letters that
  /// mean nothing; the old one stays
  void setPattern(const std::string& pattern);
  const std::string& locale() const { return _locale; }
  /// An equal name costs nothing. @throws VELInvalidArgumentException naming an unknown locale; the old one
  /// stays
  void setLocale(const std::string& locale);
  const std::string& timeZone() const { return _timeZone; }
  /// An equal name costs nothing. @throws VELInvalidArgumentException naming an unknown time zone; the old
  /// one stays
  void setTimeZone(const std::string& timeZone);

  /// UTF-8; empty for NaN and infinities. A date more than five million years away counts as the last one
  /// that is not.
  std::string stringFromDate(VELDate date) const;

 private:
  struct Engine;

  std::string _pattern;
  std::string _locale;
  std::string _timeZone;
  std::unique_ptr<Engine> _engine;
};
