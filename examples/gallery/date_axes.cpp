// One kind of axis from a minute to thirty years.
#include "examples/gallery/parts.h"
#include "examples/gallery/pictures.h"

namespace {

constexpr double kMinute = 60.0;
constexpr double kHour = 60.0 * kMinute;
constexpr double kDay = 24.0 * kHour;
constexpr double kYear = 365.2425 * kDay;

}  // namespace

void drawDateSpans(Sheet& sheet) {
  const double start = VELCalendar("UTC").dateFromComponents({1996, 2, 27, 21, 40}).timeIntervalSince1970();
  // The format is the application's: the axis knows one for spans within a day and one for longer ones.
  const struct {
    const char* title;
    double seconds;
    const char* format;
  } spans[] = {{"One minute", kMinute, "HH:mm:ss"},
               {"An hour", kHour, "HH:mm"},
               {"A day", kDay, "HH:mm"},
               {"A week", 7.0 * kDay, "d MMM"},
               {"Two months", 60.0 * kDay, "d MMM"},
               {"A year and a half", 1.5 * kYear, "MMM yyyy"},
               {"Six years", 6.0 * kYear, "MMM yyyy"},
               {"Thirty years", 30.0 * kYear, "yyyy"}};
  for (int cell = 0; cell < 8; ++cell) {
    const auto& span = spans[cell];
    VELChartSurface& surface = sheet.addChart(span.title, 2, 4, cell);
    const auto x = addAxis<VELDateTimeAxis>(surface, true);
    x->setSubDayTextFormatting(span.format);
    x->setTextFormatting(span.format);
    x->setTimeZone("UTC");
    x->setLocale("en_US");
    addAxis<VELNumericAxis>(surface, false, {VELAxisAlignment_Left});
    addLine(
        surface,
        makeWalk(start, span.seconds / 400.0, 401, static_cast<uint32_t>(cell) + 11, VELDataType_DateTime),
        static_cast<size_t>(cell));
  }
}
