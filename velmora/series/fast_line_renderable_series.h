// series/fast_line_renderable_series.h: data as a line.
#pragma once

#include <memory>

#include "velmora/platform/export.h"
#include "velmora/series/line_series_style.h"
#include "velmora/series/palette_provider.h"
#include "velmora/series/renderable_series_base.h"

class VELLineHitTestProvider;

/// A polyline through the resampled points, straight or in steps, with or without point markers; a palette
/// provider colours it point by point.
class VELMORA_API VELFastLineRenderableSeries : public VELRenderableSeriesBase {
 public:
  /// The default style, resampled to the minimum and maximum of each bucket.
  VELFastLineRenderableSeries();
  ~VELFastLineRenderableSeries() override;

  /// The series' own style; a change of it redraws the chart.
  const std::shared_ptr<VELLineSeriesStyle>& style() const { return _style; }
  /// Keeps a copy and redraws the chart.
  void setStyle(const VELLineSeriesStyle& style);

  void internalDrawWithContext(VELRenderContext2D& context, const VELRenderPassData& data) override;
  /// The points of a pass as a line in the styles of a palette, then its point markers. A point without a Y
  /// coordinate is left out, so that the line goes straight to the next one.
  /// @param palette null draws nothing
  /// @param closeGaps has no effect
  void drawLineSeriesToContext(VELRenderContext2D& context, const VELRenderPassData& data,
                               const std::shared_ptr<VELPaletteProvider>& palette, bool isDigitalLine,
                               bool closeGaps);

  /// Fits the line that was drawn last, straight or in steps: a draw after a change of the style replaces it
  /// by one of the other kind with the same mode.
  std::shared_ptr<VELHitTestProvider> hitTestProvider() const override;
  /// The colour of the line; transparent black without a pen.
  VELColor seriesColor() const override;

 private:
  void adoptStyle(std::shared_ptr<VELLineSeriesStyle> style);
  void fitHitTest(bool isDigitalLine);
  /// @param spanned the pen that has the data of the pass already; null for none
  void drawPalettedLine(VELRenderContext2D& context, const VELRenderPassData& data,
                        const std::shared_ptr<VELPaletteProvider>& palette, bool isDigitalLine,
                        const VELPenPtr& spanned);

  /// What the style's block holds weakly: it ends with the series.
  std::shared_ptr<VELFastLineRenderableSeries*> _alive = std::make_shared<VELFastLineRenderableSeries*>(this);
  std::shared_ptr<VELLineHitTestProvider> _hitTest;
  std::shared_ptr<VELLineSeriesStyle> _style;
};
