// series/fast_line_renderable_series.h: data as a line.
#pragma once

#include <memory>

#include "velmora/platform/export.h"
#include "velmora/series/line_series_style.h"
#include "velmora/series/renderable_series_base.h"

/// A polyline through the resampled points, straight or in steps.
class VELMORA_API VELFastLineRenderableSeries : public VELRenderableSeriesBase {
 public:
  /// The default style, resampled to the minimum and maximum of each bucket.
  VELFastLineRenderableSeries();
  ~VELFastLineRenderableSeries() override;

  /// The series' own style; a change of it redraws the chart.
  const std::shared_ptr<VELLineSeriesStyle>& style() const { return _style; }
  /// Keeps a copy.
  void setStyle(const VELLineSeriesStyle& style);

  void internalDrawWithContext(VELRenderContext2D& context, const VELRenderPassData& data) override;

 private:
  void adoptStyle(std::shared_ptr<VELLineSeriesStyle> style);

  /// What the style's block holds weakly: it ends with the series.
  std::shared_ptr<VELFastLineRenderableSeries*> _alive = std::make_shared<VELFastLineRenderableSeries*>(this);
  std::shared_ptr<VELLineSeriesStyle> _style;
};
