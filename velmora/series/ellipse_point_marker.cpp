#include "velmora/series/ellipse_point_marker.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "velmora/data/array_controller.h"
#include "velmora/rendering/render_context.h"

namespace {

constexpr uint32_t kDefaultColorCode = 0xFF50A0F0;

// How many corners keep the outline within a sixteenth of a point of the ellipse.
int32_t cornersFor(double radius) {
  constexpr double kTolerance = 1.0 / 16.0;
  constexpr double kFewest = 8.0, kMost = 256.0;
  if (radius <= kTolerance) return static_cast<int32_t>(kFewest);
  const double corners = std::ceil(std::numbers::pi / std::acos(1.0 - kTolerance / radius));
  return static_cast<int32_t>(std::clamp(corners, kFewest, kMost));
}

}  // namespace

VELEllipsePointMarker::VELEllipsePointMarker()
    : _fillBrush(VELBrush2D::solid(kDefaultColorCode)),
      _outlineX(VELArrayController::initWithType(VELDataType_Float)),
      _outlineY(VELArrayController::initWithType(VELDataType_Float)) {}

VELEllipsePointMarker::~VELEllipsePointMarker() = default;

void VELEllipsePointMarker::setFillBrush(VELBrushPtr brush) { _fillBrush = std::move(brush); }

void VELEllipsePointMarker::setBorderPen(VELPenPtr pen) { _borderPen = std::move(pen); }

void VELEllipsePointMarker::drawToContext(VELRenderContext2D& context, float x, float y) {
  // Written so that NaN is refused as well.
  if (!(width() > 0.0f && height() > 0.0f)) return;
  updateOutline(context);
  if (_fillBrush) {
    if (_fillBrush->requireRenderPassData())
      _fillBrush->setDrawingAreaX(x - width() / 2.0f, y - height() / 2.0f, width(), height());
    context.drawEllipseWithBrush(_fillBrush, x, y, *_outlineX, *_outlineY);
  }
  if (_borderPen) drawBorder(context, x, y);
}

void VELEllipsePointMarker::updateOutline(VELRenderContext2D& context) {
  if (_outlineWidth == width() && _outlineHeight == height()) return;
  const float across = height() / 2.0f, along = width() / 2.0f;
  context.renderEllipseToBufferX(*_outlineX, *_outlineY, across, along, cornersFor(std::max(across, along)));
  _outlineWidth = width();
  _outlineHeight = height();
}

void VELEllipsePointMarker::drawBorder(VELRenderContext2D& context, float x, float y) const {
  const auto xs = _outlineX->floats(), ys = _outlineY->floats();
  if (xs.empty() || xs.size() != ys.size()) return;
  if (_borderPen->requireRenderPassData())
    _borderPen->setDrawingAreaX(x - width() / 2.0f, y - height() / 2.0f, width(), height());
  context.beginPolylineWithBrush(_borderPen, x + xs[0], y + ys[0]);
  for (size_t i = 1; i < xs.size(); ++i) context.extendPolylineWithBrush(_borderPen, x + xs[i], y + ys[i]);
  context.extendPolylineWithBrush(_borderPen, x + xs[0], y + ys[0]);
}
