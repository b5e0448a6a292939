// axes/date_label_test.cpp: moments as labels, and categories by their values.
#include "tests/axes/axis_kinds.h"
#include "tests/support/allocation_counter.h"

namespace {

constexpr double kLeapDay2024 = 1709164800.0;     // 2024-02-29 00:00 UTC
constexpr double kClocksGoOn2024 = 1711846800.0;  // 2024-03-31 01:00 UTC, in Berlin 03:00
constexpr double kClocksGoBack2024 = 1729990800.0;

double day(int32_t year, int32_t month, int32_t dayOfMonth) {
  return VELCalendar().dateFromComponents({year, month, dayOfMonth}).timeIntervalSince1970();
}

std::shared_ptr<VELDateTimeAxis> dateAxis(double span, const char* zone, const char* locale) {
  auto axis = std::make_shared<VELDateTimeAxis>();
  axis->setTimeZone(zone);
  axis->setLocale(locale);
  axis->setVisibleRange(std::make_shared<VELDateRange>(kLeapDay2024, kLeapDay2024 + span));
  return axis;
}

TEST(DateLabels, FollowTheSpanTheTimeZoneAndTheLocale) {
  const struct {
    double span;
    const char *zone, *locale;
    VELGenericType value;
    const char* text;
  } rows[] = {
      {86400.0, "UTC", "en_US", kLeapDay2024 + 54245.0, "03:04:05"},
      {86401.0, "UTC", "en_US", kLeapDay2024 + 54245.0, "29 Feb"},
      {3600.0, "Europe/Berlin", "en_US", VELDate(kClocksGoOn2024), "03:00:00"},
      {3600.0, "Europe/Berlin", "en_US", VELDate(kClocksGoBack2024), "02:00:00"},
      {1e9, "Asia/Tokyo", "de", VELDate(kLeapDay2024 - 1.0), "29 Feb."},
      {1e9, "UTC", "en_US", VELDate(kNaN), ""},
      {1e9, "UTC", "en_US", int64_t{86400}, ""},  // a counter is no date
  };
  for (const auto& row : rows)
    EXPECT_EQ(dateAxis(row.span, row.zone, row.locale)->formatText(row.value), row.text);
}

TEST(DateLabels, EveryChangeOfTheAxisShowsAtOnceAndAWrongOneLeavesTheOld) {
  const auto axis = dateAxis(1e9, "UTC", "en_US");
  const auto surface = std::make_shared<FakeSurface>();
  EXPECT_EQ(axis->formatCursorText(kLeapDay2024), "29 Feb");
  axis->setCursorTextFormatting("yyyy-MM-dd HH");
  axis->setParentSurface(surface);
  axis->setTimeZone("Asia/Tokyo");
  axis->setLocale("fr");
  EXPECT_EQ(surface->invalidations, 2);
  EXPECT_THROW(axis->setTimeZone("Mars/Phobos"), VELInvalidArgumentException);
  EXPECT_THROW(axis->setLocale("xx"), VELInvalidArgumentException);
  EXPECT_EQ(axis->formatCursorText(kLeapDay2024), "2024-02-29 09");
  EXPECT_EQ(axis->formatText(kLeapDay2024), "29 févr.");
  axis->setTextFormatting("yyyy-MM-dd");
  const auto allocations = [&] {
    const AllocationCounter counter;
    EXPECT_EQ(axis->formatText(kLeapDay2024), "2024-02-29");
    return counter.count();
  };
  allocations();
  const auto usual = allocations();
  axis->setTextFormatting("dd nn");
  EXPECT_GT(allocations(), usual);
  EXPECT_EQ(allocations(), usual) << "a pattern that means nothing is tried once";
}

std::vector<VELDate> datesOf(const std::vector<double>& seconds) { return {seconds.begin(), seconds.end()}; }

TEST(CategoryLabels, OfDatesFollowTheCategoriesInView) {
  const double first = day(2010, 1, 1), ninth = day(2019, 3, 1), tenth = day(2020, 3, 1);
  const struct {
    std::vector<double> dates;
    double min, max;
    const char* text;  ///< of the first day of 2010
  } rows[] = {
      {{first, first + 86400.0}, 0.0, 1.0, "12:00:00"},
      {{first, day(2011, 1, 1)}, 0.0, 1.0, "01 Jan 2010"},
      {{first, ninth, tenth}, -0.5, 2.0, "2010"},
      {{first, 1e308}, 0.0, 1.0, "2010"},
      {{}, 0.0, 1.0, ""},
  };
  for (const auto& row : rows) {
    OneAxisChart chart(kCategoryDates);
    chart.addCategories(VELDataType_DateTime, datesOf(row.dates));
    dynamic_cast<VELCategoryDateTimeAxis&>(*chart.axis).setTimeZone("UTC");
    dynamic_cast<VELCategoryDateTimeAxis&>(*chart.axis).setLocale("en_US");
    chart.show(row.min, row.max);
    EXPECT_EQ(chart.axis->formatText(VELDate(first)), row.text) << row.min << ' ' << row.max;
  }
}

TEST(CategoryLabels, OfCursorsGetAnIndexAndThoseOfTicksAValue) {
  OneAxisChart dates(kCategoryDates), numbers(kCategory);
  dates.addCategories(VELDataType_DateTime, datesOf({0.0, 5e6}));
  numbers.addCategories(VELDataType_Double, std::vector<double>{2.5, 1e6});
  dynamic_cast<VELCategoryDateTimeAxis&>(*dates.axis).setTimeZone("UTC");
  const auto cursorTexts = [&](double index) {
    return dates.axis->formatCursorText(index) + " " + numbers.axis->formatCursorText(index);
  };
  EXPECT_EQ(cursorTexts(0.6), "1970-02-27 1e+06");
  for (const double none : {2.0, -1.0, kNaN, 1e300}) EXPECT_EQ(cursorTexts(none), " ") << none;
  EXPECT_EQ(numbers.axis->formatText(2.5), "2.5");
}

}  // namespace
