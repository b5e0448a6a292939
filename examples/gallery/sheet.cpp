#include "examples/gallery/sheet.h"

#include <stdexcept>

Sheet::Sheet(VELSize size, double scale) : _size(size) {
  std::string failure;
  _host = VELOffscreenHost::create(size, scale, &failure);
  if (!_host) throw std::runtime_error(failure);
  _host->setBackgroundColor(VELColor::fromColorCode(VELVisualStyle::standard().background));
}

VELChartSurface& Sheet::addChart(const std::string& title, int columns, int rows, int cell) {
  const double width = _size.width / columns, height = _size.height / rows;
  const VELRect frame{width * (cell % columns), height * (cell / columns), width, height};
  auto view = VELChartSurfaceView::initWithFrame(frame, *_host);
  if (!view)
    throw std::runtime_error("OpenGL ES refused to draw; install its drivers, the package libgl1-mesa-dri.");
  view->surface()->setChartTitle(title);
  _host->rootView()->addSubview(view);
  _views.push_back(view);
  return *view->surface();
}

VELBitmap Sheet::picture() {
  _host->settle(0.0);
  return _host->picture();
}
