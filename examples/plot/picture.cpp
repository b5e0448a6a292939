#include "examples/plot/picture.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>

#include "examples/plot/failure.h"
#include "velmora/velmora.h"

namespace {

std::shared_ptr<VELOffscreenHost> makeHost(const PlotOptions& options) {
  std::string failure;
  auto host = VELOffscreenHost::create(options.size, options.scale, &failure);
  if (!host) throw PlotFailure(failure);
  host->setBackgroundColor(VELColor::fromColorCode(VELVisualStyle::standard().background));
  return host;
}

void assertIsNotTheData(const PlotOptions& options) {
  std::error_code ignored;
  if (std::filesystem::equivalent(options.file, options.out, ignored))
    throw PlotFailure("The picture '" + options.out.string() +
                      "' would overwrite the data; give another name with --out.");
}

}  // namespace

void assertCanMakePicture(const PlotOptions& options) {
  assertIsNotTheData(options);
  std::error_code error;
  const auto folder = options.out.has_parent_path() ? options.out.parent_path() : ".";
  if (std::filesystem::is_directory(options.out, error))
    error = std::make_error_code(std::errc::is_a_directory);
  else if (::access(folder.c_str(), W_OK) != 0)
    error.assign(errno, std::generic_category());
  else
    error.clear();
  if (error)
    throw PlotFailure("Cannot write the picture '" + options.out.string() + "': " + error.message() + ".");
  makeHost(options);
}

VELBitmap drawPlot(const PlotColumns& columns, const PlotOptions& options) {
  const auto host = makeHost(options);
  const auto scene = PlotScene::create(*host, columns, options);
  host->settle(0.0);
  return host->picture();
}

VELBitmap drawFollowed(const PlotColumns& columns, PlotScene::Data data, const PlotOptions& options) {
  const auto host = makeHost(options);
  const auto scene = PlotScene::createFollowing(*host, columns, data, options);
  host->settle(0.0);
  scene->updateTitles();
  host->settle(0.0);
  return host->picture();
}

void writePicture(const VELBitmap& picture, const PlotOptions& options) {
  assertIsNotTheData(options);
  if (const auto reason = picture.writePng(options.out.string())) throw PlotFailure(*reason);
  std::cout << "Wrote " << options.out.string() << " (" << picture.width() << " x " << picture.height()
            << " pixels).\n";
}
