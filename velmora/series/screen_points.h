// series/screen_points.h: where the points of a pass stand on the screen.
#pragma once

#include <memory>
#include <span>

#include "velmora/data/array_controller.h"

class VELRenderPassData;

enum VELScreenPointsForm {
  VELScreenPointsForm_All,    ///< every point of the pass
  VELScreenPointsForm_Line,   ///< from the first point on that has a Y coordinate
  VELScreenPointsForm_Steps,  ///< the same with a corner before each later point
};

/// Screen coordinates in two columns of doubles, borrowed for one drawing.
///
/// The columns go back to a store when this is destroyed, so that a steady frame allocates nothing; one
/// drawing inside another borrows columns of its own. NaN stays where it was.
class VELScreenPoints {
 public:
  VELScreenPoints(const VELRenderPassData& data, VELScreenPointsForm form);
  ~VELScreenPoints();
  VELScreenPoints(const VELScreenPoints&) = delete;
  VELScreenPoints& operator=(const VELScreenPoints&) = delete;

  bool isEmpty() const { return _along->isEmpty(); }
  /// Coordinates along the X axis of the chart, in points.
  std::span<const double> along() const { return _along->doubles(); }
  /// Coordinates along its Y axis.
  std::span<const double> across() const { return _across->doubles(); }
  /// The same as places on the screen: on a vertical chart the X axis runs down it.
  const VELArrayController& screenX() const { return _isVertical ? *_across : *_along; }
  const VELArrayController& screenY() const { return _isVertical ? *_along : *_across; }

 private:
  std::shared_ptr<VELArrayController> _along;
  std::shared_ptr<VELArrayController> _across;
  bool _isVertical;
};
