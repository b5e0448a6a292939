#include "velmora/rendering/render_surface_style.h"

#include <utility>

std::shared_ptr<VELRenderSurfaceStyle> VELRenderSurfaceStyle::clone() const {
  auto copy = std::make_shared<VELRenderSurfaceStyle>();
  copy->_supressCallbacks = _supressCallbacks;
  copy->_leftAxisAreaSize = _leftAxisAreaSize;
  copy->_rightAxisAreaSize = _rightAxisAreaSize;
  copy->_topAxisAreaSize = _topAxisAreaSize;
  copy->_bottomAxisAreaSize = _bottomAxisAreaSize;
  copy->_backgroundBrush = _backgroundBrush ? _backgroundBrush->clone() : nullptr;
  copy->_borderPen = VELClonePen(_borderPen);
  copy->_seriesBackgroundBrush = _seriesBackgroundBrush ? _seriesBackgroundBrush->clone() : nullptr;
  return copy;
}

void VELRenderSurfaceStyle::setLeftAxisAreaSize(float size) { p_VEL_setAreaSize(_leftAxisAreaSize, size); }
void VELRenderSurfaceStyle::setRightAxisAreaSize(float size) { p_VEL_setAreaSize(_rightAxisAreaSize, size); }
void VELRenderSurfaceStyle::setTopAxisAreaSize(float size) { p_VEL_setAreaSize(_topAxisAreaSize, size); }
void VELRenderSurfaceStyle::setBottomAxisAreaSize(float size) {
  p_VEL_setAreaSize(_bottomAxisAreaSize, size);
}

void VELRenderSurfaceStyle::setBackgroundBrush(VELBrushPtr brush) {
  _backgroundBrush = std::move(brush);
  p_VEL_callStyleChanged();
}

void VELRenderSurfaceStyle::setBorderPen(VELPenPtr pen) {
  _borderPen = std::move(pen);
  p_VEL_callStyleChanged();
}

void VELRenderSurfaceStyle::setSeriesBackgroundBrush(VELBrushPtr brush) {
  _seriesBackgroundBrush = std::move(brush);
  p_VEL_callStyleChanged();
}

void VELRenderSurfaceStyle::p_VEL_setAreaSize(float& field, float size) {
  field = size;
  if (_supressCallbacks) return;
  // The first block may put another style in the place of this one, which then is gone.
  const Block layoutChanged = _layoutChanged;
  const Block styleChanged = _styleChanged;
  if (*layoutChanged) (*layoutChanged)();
  if (*styleChanged) (*styleChanged)();
}

void VELRenderSurfaceStyle::p_VEL_callStyleChanged() const {
  if (_supressCallbacks) return;
  const Block styleChanged = _styleChanged;
  if (*styleChanged) (*styleChanged)();
}
