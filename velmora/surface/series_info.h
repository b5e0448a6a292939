// surface/series_info.h: what tooltips, cursors and legends say about a series.
#pragma once

#include <memory>
#include <string>

#include "velmora/platform/color.h"
#include "velmora/platform/export.h"
#include "velmora/surface/hit_test_info.h"

class VELRenderableSeries;

/// One series at one place. A kind of series with more to tell derives from it.
class VELMORA_API VELSeriesInfo {
 public:
  virtual ~VELSeriesInfo() = default;

  std::weak_ptr<VELRenderableSeries> series;
  std::string seriesName;  ///< of its data, UTF-8
  VELColor seriesColor;
  /// Index, values, place and distance.
  VELHitTestInfo hitTest;
  /// The values as the cursor labels of their axes write them, UTF-8; empty without a point or an axis.
  std::string xText;
  std::string yText;
};
