#include "examples/plot/options.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>
#include <limits>

#include "examples/plot/csv_table.h"
#include "examples/plot/failure.h"
#include "velmora/platform/calendar.h"
#include "velmora/platform/exception.h"
#include "velmora/platform/locale.h"

namespace {

double memoryBytes() {
  const double bytes =
      static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGE_SIZE));
  return bytes > 0.0 ? bytes : std::numeric_limits<double>::infinity();
}

double parseScale(const std::string& text) {
  const auto scale = parseNumber(text);
  if (!scale || *scale < double{std::numeric_limits<float>::min()})
    throw PlotFailure("The scale '" + text +
                      "' is not a positive number; give pixels per point, as in --scale 2.");
  return *scale;
}

int32_t parseCapacity(const std::string& text) {
  const auto capacity = parseNumber(text);
  if (!capacity || *capacity != std::floor(*capacity) || *capacity < 2.0)
    throw PlotFailure("The capacity '" + text +
                      "' is not a number of points from 2 on; give one, as in --capacity 100000.");
  assertCapacityFits(*capacity, 1);
  return static_cast<int32_t>(*capacity);
}

// What is read only after the command line was taken apart.
struct Texts {
  std::string file, out, size, scale, timeZone, locale, capacity;
};

void addColumnOptions(CLI::App& app, PlotOptions& options) {
  app.add_option("--x", options.x,
                 "column along the X axis (else the first one of dates, the first numeric one, or the row "
                 "number)");
  app.add_option("--category", options.category,
                 "column of numbers or dates that stand side by side along the X axis, one place a row");
  // What follows the one column is not another.
  app.add_option("--y", options.y,
                 "column drawn as a line, several times for more (else every other numeric one)")
      ->allow_extra_args(false);
  app.add_option("--y2", options.y2, "column drawn as a line on a second Y axis, several times for more")
      ->allow_extra_args(false);
}

void addAxisOptions(CLI::App& app, PlotOptions& options, Texts& texts) {
  app.add_flag("--log-x", options.logX, "make the X axis logarithmic");
  app.add_flag("--log-y", options.logY, "make the Y axis of --y logarithmic");
  app.add_flag("--flip-x", options.flipX, "let the X axis grow the other way");
  app.add_flag("--flip-y", options.flipY, "let the Y axis of --y grow the other way");
  app.add_flag("--vertical", options.vertical,
               "X axis on the left, growing downwards, Y axes at the bottom and the top");
  app.add_option("--tz", texts.timeZone,
                 "time zone of labels and local dates, as Europe/Berlin (else that of this machine)");
  app.add_option("--locale", texts.locale, "language of month names, as de_DE (else that of this machine)");
}

void addPictureOptions(CLI::App& app, PlotOptions& options, Texts& texts) {
  app.add_option("--out", texts.out,
                 "write a picture instead of opening a window (FILE.png without a display)");
  app.add_option("--size", texts.size, "width and height of the window or the picture in points (1280x720)");
  app.add_option("--scale", texts.scale,
                 "pixels per point (1 in a picture, those of its display in a window)");
  app.add_option("--title", options.title, "the text above the chart");
  app.add_flag("--digital", options.digital, "draw steps instead of straight lines");
  app.add_flag("!--no-resampling", options.resampling, "draw every point");
}

void addFollowOptions(CLI::App& app, PlotOptions& options, Texts& texts) {
  app.add_flag(
      "--follow", options.follow,
      "keep reading what is appended to FILE.csv, and show the newest rows; the standard input is read "
      "to its end");
  app.add_option("--capacity", texts.capacity, "points a line that --follow keeps (100000)");
}

// A name in the library's words, which say what it does not know.
template <class Read>
std::string knownName(const Read& read) {
  try {
    return read();
  } catch (const VELInvalidArgumentException& error) {
    throw PlotFailure(std::string(error.what()) + ".");
  }
}

void assertInAccord(const PlotOptions& options) {
  if (options.category && options.x)
    throw PlotFailure("--category and --x both name what stands along the X axis; give one of them.");
  if (options.category && options.logX)
    throw PlotFailure(
        "--log-x has no meaning with --category, whose values stand side by side; leave one of them out.");
  if (options.category && options.follow)
    throw PlotFailure(
        "--category has no meaning with --follow, whose oldest rows give way to the newest; name the column "
        "with "
        "--x.");
}

std::filesystem::path pictureName(const std::filesystem::path& file) {
  return file == kStandardInput ? "stdin.png" : file.filename().replace_extension(".png");
}

// Texts of options that were not given stay unread.
void readTexts(const CLI::App& app, const Texts& texts, PlotOptions& options) {
  const auto isGiven = [&app](const char* name) { return app.count(name) > 0; };
  options.file = texts.file;
  options.isOutGiven = isGiven("--out");
  options.out = options.isOutGiven ? std::filesystem::path(texts.out) : pictureName(options.file);
  if (options.out.empty())
    throw PlotFailure("The name of the picture is empty; give one, as in --out chart.png.");
  if (isGiven("--size")) options.size = parseSize(texts.size);
  if (isGiven("--scale")) options.scale = parseScale(texts.scale);
  options.isScaleGiven = isGiven("--scale");
  if (isGiven("--capacity") && !options.follow)
    throw PlotFailure("--capacity is how much --follow keeps; give both or neither.");
  if (isGiven("--capacity")) options.capacity = parseCapacity(texts.capacity);
  if (isGiven("--tz"))
    options.timeZone = knownName([&texts] { return VELCalendar(texts.timeZone).timeZone(); });
  if (isGiven("--locale")) options.locale = knownName([&texts] { return VELKnownLocale(texts.locale); });
}

}  // namespace

void assertCapacityFits(double points, size_t lines) {
  // Two columns, each with what it needs to stand in order.
  constexpr double kBytesPerPoint = 32.0;
  if (points <= INT32_MAX && points * kBytesPerPoint * static_cast<double>(lines) <= memoryBytes()) return;
  throw PlotFailure(
      std::to_string(lines) + (lines == 1 ? " line" : " lines") +
      " of as many points as --capacity says are more than the memory of this machine holds; give "
      "a smaller one.");
}

VELSize parseSize(const std::string& text) {
  const size_t cross = text.find_first_of("xX");
  const auto width = parseNumber(std::string_view(text).substr(0, cross));
  const auto height =
      cross == std::string::npos ? std::nullopt : parseNumber(std::string_view(text).substr(cross + 1));
  if (!width || !height || *width <= 0.0 || *height <= 0.0)
    throw PlotFailure(
        "The size '" + text +
        "' is not two positive numbers; give width and height in points, as in --size 1280x720.");
  return {*width, *height};
}

std::optional<PlotOptions> parseOptions(int argc, const char* const* argv) {
  CLI::App app("Draws the columns of a CSV file as a line chart, in a window or as a picture.",
               "velmora-plot");
  PlotOptions options;
  Texts texts;
  app.add_option("FILE.csv", texts.file,
                 "the data: a row of column names, then rows of numbers and dates; - is the standard input")
      ->required();
  app.footer(
      "Dates are written as 2004-08-19, 2004-08-19T14:30 or 2004-08-19 14:30:05.25; they are local unless Z "
      "or an offset as +02:00 follows the time.\n"
      "The window ends when it is closed or interrupted. --follow also ends with the standard input; without "
      "a "
      "display or with --out it then writes the picture of the newest points.");
  addColumnOptions(app, options);
  addAxisOptions(app, options, texts);
  addPictureOptions(app, options, texts);
  addFollowOptions(app, options, texts);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    std::cout << app.help();
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    throw PlotFailure(std::string(error.what()) + "; see velmora-plot --help.");
  }
  assertInAccord(options);
  readTexts(app, texts, options);
  return options;
}
