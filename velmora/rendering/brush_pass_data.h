// rendering/brush_pass_data.h: what a brush may ask about the render pass that it colours.
//
// The record of a render pass lives on a floor above; a brush sees it through this interface alone.
#pragma once

#include <memory>

#include "velmora/platform/export.h"

class VELCoordinateCalculator;
class VELRange;

/// One series in one render pass, as far as colours depend on it. Valid during the pass only.
class VELMORA_API VELBrushPassData {
 public:
  virtual ~VELBrushPassData() = default;
  /// True when the X axis runs vertically.
  virtual bool isVerticalChart() const = 0;
  /// Data units to points along the X axis; null when the series has no X axis in this pass.
  virtual const std::shared_ptr<VELCoordinateCalculator>& xCoordinateCalculator() const = 0;
  /// Data units to points along the Y axis; null when the series has no Y axis in this pass.
  virtual const std::shared_ptr<VELCoordinateCalculator>& yCoordinateCalculator() const = 0;
  /// Range of all of the series' data along the X axis, in data units; null without data.
  virtual std::shared_ptr<VELRange> xDataRange() const = 0;
  /// The same along the Y axis.
  virtual std::shared_ptr<VELRange> yDataRange() const = 0;
  /// Data value of the series' zero line; NaN for none.
  virtual double zeroLineY() const = 0;
};
