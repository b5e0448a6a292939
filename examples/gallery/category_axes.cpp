// Axes whose points stand side by side whatever their values are.
#include <cmath>

#include "examples/gallery/parts.h"
#include "examples/gallery/pictures.h"

void drawNumericCategories(Sheet& sheet) {
  VELChartSurface& surface = sheet.addChart("Octave bands: every point has the same room");
  addAxis<VELCategoryNumericAxis>(surface, true, {VELAxisAlignment_Bottom, "frequency, Hz"});
  addAxis<VELNumericAxis>(surface, false, {VELAxisAlignment_Left, "level, dB"});
  const auto data = VELXyDataSeries::initWithCategoryXType(VELDataType_Double, VELDataType_Double);
  const double bands[] = {16, 31.5, 63, 125, 250, 500, 1000, 2000, 4000, 8000, 16000};
  RandomWalk walk(5, 62.0, 6.0);
  for (const double band : bands) data->appendX(band, walk.next());
  addLine(surface, data);
}

void drawDateCategories(Sheet& sheet) {
  VELChartSurface& surface = sheet.addChart("Trading days: weekends take no room");
  const auto x = addAxis<VELCategoryDateTimeAxis>(surface, true);
  x->setTimeZone("UTC");
  x->setLocale("en_US");
  addAxis<VELNumericAxis>(surface, false, {VELAxisAlignment_Left, "close"});
  const auto data = VELXyDataSeries::initWithCategoryXType(VELDataType_DateTime, VELDataType_Double);
  const VELCalendar calendar("UTC");
  RandomWalk walk(9, 120.0);
  for (int day = 1; day <= 130; ++day) {
    const VELDate date = calendar.dateFromComponents({2021, 3, day});
    const auto parts = calendar.componentsFromDate(date);
    if (parts && parts->weekday <= 5) data->appendX(date, walk.next());
  }
  addLine(surface, data);
}
