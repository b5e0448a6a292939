// plot/options.h: what the command line asks for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "velmora/platform/geometry.h"

struct PlotOptions {
  std::filesystem::path file;  ///< "-" is the standard input
  std::filesystem::path out;   ///< the picture; without --out the name of the file with .png, in this folder
  bool isOutGiven = false;     ///< a picture, also where a window could be opened
  bool follow = false;         ///< keep reading
  int32_t capacity = 100000;   ///< points a line that following keeps
  std::optional<std::string> x;
  std::optional<std::string> category;  ///< never together with `x`
  std::vector<std::string> y;
  std::vector<std::string> y2;  ///< on an axis of their own
  VELSize size{1280.0, 720.0};  ///< points
  double scale = 1.0;           ///< pixels per point of a picture; of a window where it was given
  bool isScaleGiven = false;
  std::string title;
  bool logX = false, logY = false;  ///< `logY` and `flipY` are for the axis of `y`, not for that of `y2`
  bool flipX = false, flipY = false;
  bool vertical = false;
  std::string timeZone;  ///< IANA name; empty for that of the process
  std::string locale;    ///< of month names; empty for that of the process
  bool digital = false;
  bool resampling = true;
};

/// Reads the command line.
/// @return nothing when help was asked for and printed
/// @throws PlotFailure for an option that is wrong or contradicts another
std::optional<PlotOptions> parseOptions(int argc, const char* const* argv);

/// @throws PlotFailure when lines of so many points are more than a series or this machine can hold
void assertCapacityFits(double points, size_t lines);

/// "1280x720" as a size in points. @throws PlotFailure unless it is two positive numbers
VELSize parseSize(const std::string& text);
