// axes/axis_drawing.h: what one axis draws in a pass: ticks, bands and grid lines.
//
// Labels are axes/axis_panel.h. Units: points; coordinates along the axis as its calculator gives them.
#pragma once

#include <memory>
#include <vector>

#include "velmora/axes/axis_panel.h"
#include "velmora/axes/pixel_grid.h"
#include "velmora/axes/tick_coordinates.h"
#include "velmora/platform/geometry.h"
#include "velmora/rendering/brush.h"

class VELAxisBase;
class VELRenderContext2D;

/// The drawing of an axis, which owns it. Nothing is drawn unless `validate` found a valid axis.
class VELAxisDrawing {
 public:
  explicit VELAxisDrawing(VELAxisBase& axis) : _axis(axis) {}

  void validate();
  void prepare();
  void drawTicks(VELRenderContext2D& context) const;
  void prepareGrid(VELRenderContext2D& context) const;
  void drawBands(VELRenderContext2D& context) const;
  void drawMinorGridLines(VELRenderContext2D& context) const;
  void drawMajorGridLines(VELRenderContext2D& context) const;
  void clear();

 private:
  /// Number of the i-th major in sight.
  int32_t majorIndex(size_t i) const;
  VELPixelGrid gridAlong(const VELRect& area) const;
  VELPixelGrid gridAcross(const VELRect& area) const;
  void requestLabels();
  void drawGridLines(VELRenderContext2D& context, std::span<const float> coordinates,
                     const VELPenPtr& pen) const;
  void drawBaseline(VELRenderContext2D& context, const VELPenPtr& pen) const;
  void drawTickMarks(VELRenderContext2D& context, std::span<const float> coordinates, const VELPenPtr& pen,
                     double size) const;
  void drawBand(VELRenderContext2D& context, double from, double to) const;

  VELAxisBase& _axis;
  bool _isValid = false;
  bool _isPreparing = false;
  bool _isHorizontal = false;
  bool _hasPanel = false;
  bool _showsMinors = false;
  double _scale = 1.0;
  double _offset = 0.0;
  double _size = 0.0;
  int32_t _firstMajor = 0;   ///< number of the first major in sight
  double _visibleMin = 0.0;  ///< data units
  double _visibleMax = 0.0;
  VELRect _chartFrame;
  VELRect _panelFrame;
  std::shared_ptr<const VELTickCoordinates> _ticks;
  std::vector<VELTickLabelRequest> _requests;
};
