#include "velmora/series/line_series_style.h"

namespace {
constexpr uint32_t kDefaultColorCode = 0xFF50A0F0;
constexpr float kDefaultWidth = 1.0f;
}  // namespace

VELLineSeriesStyle::VELLineSeriesStyle() : _linePen(VELPen2D::solid(kDefaultColorCode, kDefaultWidth)) {}

std::shared_ptr<VELLineSeriesStyle> VELLineSeriesStyle::clone() const {
  auto copy = std::make_shared<VELLineSeriesStyle>();
  copy->_isDigitalLine = _isDigitalLine;
  copy->_linePen = VELClonePen(_linePen);
  return copy;
}

void VELLineSeriesStyle::setIsDigitalLine(bool digital) {
  _isDigitalLine = digital;
  p_VEL_callStyleChanged();
}

void VELLineSeriesStyle::setLinePen(VELPenPtr pen) {
  _linePen = std::move(pen);
  p_VEL_callStyleChanged();
}

void VELLineSeriesStyle::p_VEL_callStyleChanged() const {
  if (_styleChanged) _styleChanged();
}
