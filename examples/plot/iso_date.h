// plot/iso_date.h: dates as ISO 8601 writes them.
#pragma once

#include <optional>
#include <string_view>

/// What a text says of a moment: seconds since 1970, either in UTC or on the clocks of a place that the text
/// does not name.
struct IsoDate {
  double seconds = 0.0;  ///< of a local date: as if the clocks showed UTC
  bool isLocal = false;
};

/// Reads a date, or a date and a time, in the Gregorian calendar; blanks around it are allowed.
///
///     2004-08-19   2004-08-19T14:30   2004-08-19 14:30:05.25   2004-08-19T14:30:05Z   …+02:00   …+0200 …-05
///
/// Years have four digits; 0000 is the year before 0001. 24:00 is the end of a day. Without `Z` or an offset
/// the date is local, without a time it is midnight.
/// @return nothing for any other text and for what no calendar or clock shows: 2005-02-29, 12:60, a leap
/// second
std::optional<IsoDate> parseIsoDate(std::string_view text);
