#include "velmora/series/point_marker_clusterizer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/data/saturate.h"
#include "velmora/series/point_marker_base.h"

namespace {
constexpr int64_t kMostCells = int64_t{1} << 28;
}  // namespace

std::shared_ptr<VELPointMarkerClusterizer> VELPointMarkerClusterizer::clone() const {
  auto copy = std::make_shared<VELPointMarkerClusterizer>();
  copy->_spacing = _spacing;
  copy->_inverseSpacing = _inverseSpacing;
  copy->setArea(area());
  return copy;
}

void VELPointMarkerClusterizer::setArea(VELSize area) {
  if (area == this->area()) return;
  _areaWidth = area.width;
  _areaHeight = area.height;
  p_VEL_createData();
}

void VELPointMarkerClusterizer::setSpacing(float spacing) {
  if (std::abs(spacing - _spacing) <= std::numeric_limits<float>::epsilon()) return clear();
  _spacing = spacing;
  _inverseSpacing = 1.0f / spacing;
  p_VEL_createData();
  const auto block = _propertiesChanged;
  if (block && *block) (*block)();
}

void VELPointMarkerClusterizer::clear() {
  if (_grid.empty()) return;
  const int64_t cells = int64_t{_columns} * _rows;
  if (cells > 0) std::fill_n(_grid.begin(), cells, uint8_t{0});
}

void VELPointMarkerClusterizer::purge() {
  _columns = _rows = 0;
  p_VEL_createData();
}

void VELPointMarkerClusterizer::p_VEL_createData() {
  std::vector<uint8_t>().swap(_grid);
  _columns = VELSaturate<int32_t>(_areaWidth / double{_spacing});
  _rows = VELSaturate<int32_t>(_areaHeight / double{_spacing});
  if (_columns < 1 || _rows < 1) return;
  const int64_t cells = (int64_t{_rows} + 1) * (int64_t{_columns} + 1);
  if (cells <= kMostCells) _grid.assign(static_cast<size_t>(cells), uint8_t{0});
}

bool VELPointMarkerClusterizer::p_VEL_markSpotX(float x, float y) {
  // Written so that NaN is refused as well.
  const bool inside = x >= 0.0f && y >= 0.0f && x <= _areaWidth && y <= _areaHeight;
  if (!inside || _grid.empty()) return false;
  // The inverse is rounded, so that a place on the far edge can come out a whole cell beyond it.
  const int64_t column = std::min<int64_t>(static_cast<int64_t>(x * _inverseSpacing), _columns);
  const int64_t row = std::min<int64_t>(static_cast<int64_t>(y * _inverseSpacing), _rows);
  // Meant: the stride is the number of columns, so that the right edge is the first cell of the next row.
  uint8_t& cell = _grid[static_cast<size_t>(row * _columns + column)];
  if (cell) return false;
  cell = 1;
  return true;
}

void VELPointMarkerClusterizer::drawPointMarker(VELPointMarkerBase& marker, float x, float y,
                                                VELRenderContext2D& context) {
  if (p_VEL_markSpotX(x, y)) marker.drawToContext(context, x, y);
}
