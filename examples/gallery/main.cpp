// velmora-gallery: makes the pictures of docs/images/, or one of them.
#include <CLI/CLI.hpp>
#include <exception>
#include <filesystem>
#include <iostream>
#include <span>
#include <string>
#include <vector>

#include "examples/gallery/pictures.h"

namespace {

constexpr GalleryPicture kPictures[] = {
    {"four-y-axes", {900.0, 500.0}, drawFourYAxes},
    {"top-and-bottom-x-axes", {800.0, 450.0}, drawTopAndBottomXAxes},
    {"vertical-chart", {600.0, 700.0}, drawVerticalChart},
    {"flips", {1200.0, 600.0}, drawFlips},
    {"date-spans", {1280.0, 960.0}, drawDateSpans},
    {"logarithmic-bases", {1260.0, 640.0}, drawLogarithmicBases},
    {"negative-logarithmic-range", {800.0, 450.0}, drawNegativeLogarithmicRange},
    {"numeric-categories", {800.0, 450.0}, drawNumericCategories},
    {"date-categories", {800.0, 450.0}, drawDateCategories},
    {"line-styles", {1200.0, 640.0}, drawLineStyles},
    {"own-shapes", {1036.0, 620.0}, drawOwnShapes},
};

void write(const GalleryPicture& picture, double scale, const std::filesystem::path& folder) {
  Sheet sheet(picture.size, scale);
  picture.draw(sheet);
  const auto file =
      folder / (std::string(picture.name) + "@" + std::to_string(static_cast<int>(scale)) + ".png");
  if (const auto reason = sheet.picture().writePng(file.string())) throw std::runtime_error(*reason);
  std::cout << file.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Makes the pictures of the gallery, each at 1 and 2 pixels per point.", "velmora-gallery");
  std::filesystem::path folder = ".";
  std::vector<std::string> names;
  app.add_option("--out", folder, "the folder of the pictures, which must exist (this one)");
  app.add_option("NAME", names, "pictures to make (all)");
  CLI11_PARSE(app, argc, argv);
  try {
    bool found = names.empty();
    for (const GalleryPicture& picture : kPictures) {
      if (!names.empty() && std::find(names.begin(), names.end(), picture.name) == names.end()) continue;
      found = true;
      for (const double scale : {1.0, 2.0}) write(picture, scale, folder);
    }
    if (!found) throw std::runtime_error("There is no picture '" + names.front() + "' in the gallery.");
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "velmora-gallery: " << error.what() << '\n';
    return 2;
  }
}
