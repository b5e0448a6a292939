// Every #include of the tree against the floor plan.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = VELMORA_SOURCE_DIR;

/// What a folder of velmora/ may include of the others, all headers of them.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"platform", {"platform"}},
    {"data", {"data", "platform"}},
    {"axes", {"axes", "data", "platform"}},
    {"rendering", {"rendering", "data", "platform"}},
    {"surface", {"surface", "axes", "rendering", "data", "platform"}},
    {"series", {"series", "surface", "axes", "rendering", "data", "platform"}},
    {"interaction", {"interaction", "surface", "axes", "rendering", "data", "platform"}},
};

/// Headers of axes/ and rendering/ that hold interfaces or plain values, which the other of the two may see.
const std::set<std::string> kInterfaces = {
    "velmora/axes/coordinate_calculator.h", "velmora/rendering/brush.h",
    "velmora/rendering/brush_pass_data.h",  "velmora/rendering/render_context.h",
    "velmora/rendering/render_surface.h",   "velmora/rendering/visual_style.h",
};

/// Third parties and the one folder below platform/ that may name each.
const std::vector<std::pair<std::regex, std::string>> kThirdParties = {
    {std::regex("^EGL/"), "egl"},
    {std::regex("^(GLES[0-9]*|KHR)/"), "gles"},
    {std::regex("^(pango|fontconfig)"), "pango"},
    {std::regex("^(cairo)"), "cairo"},
    {std::regex("^unicode/"), "icu"},
    {std::regex("^SDL"), "sdl"},
};

/// "<file> <include>" pairs that are allowed all the same, each with its reason.
const std::map<std::string, std::string> kExceptions = {
    {"velmora/platform/pango/ cairo", "Pango draws through Cairo"},
};

struct Include {
  std::string file;    // from the root
  std::string header;  // as written
};

std::vector<Include> includesOf(const std::string& file, std::istream& text) {
  static const std::regex kLine(R"(^\s*#\s*include\s*["<]([^">]+)[">])");
  std::vector<Include> includes;
  std::smatch match;
  for (std::string line; std::getline(text, line);)
    if (std::regex_search(line, match, kLine)) includes.push_back({file, match[1]});
  return includes;
}

std::vector<std::string> partsOf(const std::string& path) {
  std::vector<std::string> parts;
  std::istringstream stream(path);
  for (std::string part; std::getline(stream, part, '/');) parts.push_back(part);
  return parts;
}

bool isExcepted(const Include& include) {
  for (const auto& [pair, reason] : kExceptions) {
    const size_t space = pair.find(' ');
    if (include.file.starts_with(pair.substr(0, space)) && include.header.starts_with(pair.substr(space + 1)))
      return true;
  }
  return false;
}

/// Empty when the include is in order, else what is wrong with it.
std::string complaintAbout(const Include& include) {
  if (isExcepted(include)) return {};
  const auto from = partsOf(include.file);
  const std::string& folder = from[1];
  const bool insidePlatformFolder = folder == "platform" && from.size() == 4;
  for (const auto& [pattern, owner] : kThirdParties) {
    if (!std::regex_search(include.header, pattern)) continue;
    const bool owns = insidePlatformFolder && from[2] == owner;
    return owns ? ""
                : include.file + " includes " + include.header + ", which belongs into platform/" + owner;
  }
  if (!include.header.starts_with("velmora/")) return {};
  const auto to = partsOf(include.header);
  if (to.size() < 3) return include.file + " includes the umbrella header";
  if (folder == "platform" && !insidePlatformFolder && to.size() == 4)
    return include.file + " includes " + include.header + ", an implementation of the platform";
  const bool sameFloor =
      (folder == "axes" && to[1] == "rendering") || (folder == "rendering" && to[1] == "axes");
  if (sameFloor && kInterfaces.contains(include.header)) return {};
  const auto plan = kMayInclude.find(folder);
  if (plan == kMayInclude.end()) return include.file + " stands in a folder without a place in the plan";
  if (!plan->second.contains(to[1]))
    return include.file + " includes " + include.header + " of another floor";
  return {};
}

TEST(FloorPlan, NoFileIncludesOneOfAFloorAbove) {
  size_t seen = 0;
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "velmora")) {
    const fs::path& path = entry.path();
    if (path.extension() != ".h" && path.extension() != ".cpp") continue;
    const std::string name = path.lexically_relative(kRoot).generic_string();
    if (name == "velmora/velmora.h") continue;  // the umbrella over everything
    std::ifstream text(path);
    for (const Include& include : includesOf(name, text)) {
      EXPECT_EQ(complaintAbout(include), "");
      ++seen;
    }
  }
  EXPECT_GT(seen, 200u) << "the tree was not found";
}

TEST(FloorPlan, TheAlarmRingsForEachKindOfWrongInclude) {
  const Include wrong[] = {
      {"velmora/data/range.h", "velmora/axes/axis_base.h"},
      {"velmora/axes/axis_base.cpp", "velmora/surface/chart_surface.h"},
      {"velmora/axes/axis_base.cpp", "velmora/rendering/drawing_queue.h"},
      {"velmora/surface/chart_renderer.cpp", "velmora/series/renderable_series_base.h"},
      {"velmora/rendering/drawing_buffer.cpp", "GLES2/gl2.h"},
      {"velmora/platform/view.cpp", "cairo.h"},
      {"velmora/platform/icu/calendar.cpp", "pango/pangocairo.h"},
      {"velmora/platform/view.cpp", "velmora/platform/egl/egl_context.h"},
      {"velmora/elsewhere/x.cpp", "velmora/data/range.h"},
      {"velmora/data/range.h", "velmora/velmora.h"},
  };
  for (const Include& include : wrong)
    EXPECT_NE(complaintAbout(include), "") << include.file << " " << include.header;

  std::istringstream text("// #include \"a.h\"\n#include <vector>\n  # include \"velmora/data/range.h\"\n");
  const auto includes = includesOf("velmora/axes/x.h", text);
  ASSERT_EQ(includes.size(), 2u);
  EXPECT_EQ(includes[1].header, "velmora/data/range.h");
}

}  // namespace
