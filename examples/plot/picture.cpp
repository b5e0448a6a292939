#include "examples/plot/picture.h"

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

}  // namespace

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
  std::error_code ignored;
  if (std::filesystem::equivalent(options.file, options.out, ignored))
    throw PlotFailure("The picture '" + options.out.string() +
                      "' would overwrite the data; give another name with --out.");
  if (const auto reason = picture.writePng(options.out.string())) throw PlotFailure(*reason);
  std::cout << "Wrote " << options.out.string() << " (" << picture.width() << " x " << picture.height()
            << " pixels).\n";
}
