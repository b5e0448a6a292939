#include "examples/plot/options.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "examples/plot/csv_table.h"
#include "examples/plot/failure.h"
#include "velmora/platform/calendar.h"
#include "velmora/platform/exception.h"
#include "velmora/platform/locale.h"

namespace {

double parseScale(const std::string& text) {
  const auto scale = parseNumber(text);
  if (!scale || *scale <= 0.0)
    throw PlotFailure("The scale '" + text +
                      "' is not a positive number; give pixels per point, as in --scale 2.");
  return *scale;
}

// What is read only after the command line was taken apart.
struct Texts {
  std::string file, out, size, scale, timeZone, locale;
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
  app.add_option("--out", texts.out, "the picture (else FILE.png in this folder)");
  app.add_option("--size", texts.size, "width and height in points (1280x720)");
  app.add_option("--scale", texts.scale, "pixels per point (1)");
  app.add_option("--title", options.title, "the text above the chart");
  app.add_flag("--digital", options.digital, "draw steps instead of straight lines");
  app.add_flag("!--no-resampling", options.resampling, "draw every point");
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
}

// Texts of options that were not given stay unread.
void readTexts(const CLI::App& app, const Texts& texts, PlotOptions& options) {
  const auto isGiven = [&app](const char* name) { return app.count(name) > 0; };
  options.file = texts.file;
  options.out =
      isGiven("--out") ? std::filesystem::path(texts.out) : options.file.filename().replace_extension(".png");
  if (options.out.empty())
    throw PlotFailure("The name of the picture is empty; give one, as in --out chart.png.");
  if (isGiven("--size")) options.size = parseSize(texts.size);
  if (isGiven("--scale")) options.scale = parseScale(texts.scale);
  if (isGiven("--tz"))
    options.timeZone = knownName([&texts] { return VELCalendar(texts.timeZone).timeZone(); });
  if (isGiven("--locale")) options.locale = knownName([&texts] { return VELKnownLocale(texts.locale); });
}

}  // namespace

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
  CLI::App app("Draws the columns of a CSV file as a line chart.", "velmora-plot");
  PlotOptions options;
  Texts texts;
  app.add_option("FILE.csv", texts.file, "the data: a row of column names, then rows of numbers and dates")
      ->required();
  app.footer(
      "Dates are written as 2004-08-19, 2004-08-19T14:30 or 2004-08-19 14:30:05.25; they are local unless Z "
      "or an "
      "offset as +02:00 follows the time.");
  addColumnOptions(app, options);
  addAxisOptions(app, options, texts);
  addPictureOptions(app, options, texts);
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
