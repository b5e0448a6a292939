#include "examples/plot/options.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "examples/plot/csv_table.h"
#include "examples/plot/failure.h"

namespace {

double parseScale(const std::string& text) {
  const auto scale = parseNumber(text);
  if (!scale || *scale <= 0.0)
    throw PlotFailure("The scale '" + text +
                      "' is not a positive number; give pixels per point, as in --scale 2.");
  return *scale;
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
  std::string size, scale, out, file;
  app.add_option("FILE.csv", file, "the data: a row of column names, then rows of numbers")->required();
  app.add_option("--x", options.x, "column along the X axis (else the first numeric one, or the row number)");
  app.add_option("--y", options.y,
                 "column drawn as a line, several times for more (else every other numeric one)")
      ->allow_extra_args(false);  // what follows the one column is not another
  const auto* outOption = app.add_option("--out", out, "the picture (else FILE.png in this folder)");
  app.add_option("--size", size, "width and height in points (1280x720)");
  app.add_option("--scale", scale, "pixels per point (1)");
  app.add_option("--title", options.title, "the text above the chart");
  app.add_flag("--digital", options.digital, "draw steps instead of straight lines");
  app.add_flag("!--no-resampling", options.resampling, "draw every point");
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    std::cout << app.help();
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    throw PlotFailure(std::string(error.what()) + "; see velmora-plot --help.");
  }
  if (outOption->count() > 0 && out.empty())
    throw PlotFailure("The name of the picture is empty; give one, as in --out chart.png.");
  options.file = file;
  options.out = outOption->count() == 0 ? options.file.filename().replace_extension(".png")
                                        : std::filesystem::path(out);
  if (!size.empty()) options.size = parseSize(size);
  if (!scale.empty()) options.scale = parseScale(scale);
  return options;
}
