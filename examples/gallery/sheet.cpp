#include "examples/gallery/sheet.h"

#include <cmath>
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

VELRenderContext2D& Sheet::addCanvas() {
  const auto canvas = VELOpenGLRenderSurface::initWithFrame({0.0, 0.0, _size.width, _size.height}, *_host);
  if (!canvas)
    throw std::runtime_error("OpenGL ES refused to draw; install its drivers, the package libgl1-mesa-dri.");
  canvas->setBackgroundColor(VELColor::fromColorCode(VELVisualStyle::standard().chartArea));
  _host->rootView()->addSubview(canvas);
  _views.push_back(canvas);
  canvas->invalidateElement();
  return *canvas->renderContext();
}

void Sheet::addLabel(const std::string& text, VELPoint place, bool fromLeft) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  const auto label = std::make_shared<VELLabelView>();
  label->setFont({"", look.axisTitleFontSize, false});
  label->setTextColor(VELColor::fromColorCode(look.axisTitleColor));
  label->setText(text);
  label->sizeToFit();
  const VELSize size = label->frame().size();
  const double x = fromLeft ? place.x : place.x - size.width / 2.0;
  label->setFrame({std::round(x), std::round(place.y - size.height / 2.0), size.width, size.height});
  _host->rootView()->addSubview(label);
}

VELBitmap Sheet::picture() {
  _host->settle(0.0);
  return _host->picture();
}
