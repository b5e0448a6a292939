// series/point_marker_clusterizer.h: which of many markers on one spot is drawn.
//
// Units: points on the screen, relative to the drawing area.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"

class VELPointMarkerBase;
class VELRenderContext2D;

/// A coarse grid over the drawing area: each cell takes one marker, the first that comes.
///
/// Always true: no coordinate and no area reaches outside the grid. An area that is smaller than one cell, or
/// that needs more than 2^28 cells, has no grid, and without one no marker is drawn.
class VELMORA_API VELPointMarkerClusterizer {
 public:
  VELPointMarkerClusterizer() = default;
  VELPointMarkerClusterizer(const VELPointMarkerClusterizer&) = delete;
  VELPointMarkerClusterizer& operator=(const VELPointMarkerClusterizer&) = delete;

  /// Equal area and spacing with a free grid of its own and no callback: that belongs to the owner of the
  /// original.
  std::shared_ptr<VELPointMarkerClusterizer> clone() const;

  /// Another area gets a new, free grid; the same one keeps its grid as it is.
  void setArea(VELSize area);
  VELSize area() const { return {_areaWidth, _areaHeight}; }
  /// Side of a cell, 2.0 at first. The same spacing only frees the cells; another one builds the grid anew
  /// and calls `propertiesChanged`. At 0 or less, at NaN and at one so small that the area has more cells
  /// than a grid may have, there is no grid and no marker is drawn.
  void setSpacing(float spacing);
  float spacing() const { return _spacing; }
  /// Frees columns × rows cells. The cells beyond them, which only places on the lower edge reach, are not
  /// freed, and that is meant: they stay taken until the grid is built anew.
  void clear();
  /// Builds the grid anew from area and spacing.
  void purge();
  /// Runs when the spacing has changed.
  void setPropertiesChanged(std::function<void()> block) {
    _propertiesChanged = std::make_shared<const std::function<void()>>(std::move(block));
  }

  int32_t columns() const { return _columns; }
  int32_t rows() const { return _rows; }

  /// Draws a marker unless its cell is taken, or its place lies outside the area, or is NaN.
  void drawPointMarker(VELPointMarkerBase& marker, float x, float y, VELRenderContext2D& context);

 private:
  void p_VEL_createData();
  /// Takes the cell of a place. @return false when it was taken or there is none
  bool p_VEL_markSpotX(float x, float y);

  std::vector<uint8_t> _grid;  ///< rows of `_columns` cells, and some more; empty for none
  int32_t _columns = 0;
  int32_t _rows = 0;
  double _areaWidth = 0.0;
  double _areaHeight = 0.0;
  float _spacing = 2.0f;
  float _inverseSpacing = 0.5f;
  /// Shared, so that a block outlives its own call when it replaces itself or the clusterizer.
  std::shared_ptr<const std::function<void()>> _propertiesChanged;
};
