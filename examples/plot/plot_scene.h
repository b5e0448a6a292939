// plot/plot_scene.h: the views of one chart, for a window or a picture.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "examples/plot/legend.h"
#include "examples/plot/options.h"
#include "examples/plot/plot_axes.h"
#include "examples/plot/plot_columns.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/platform/host.h"
#include "velmora/surface/chart_surface_view.h"

/// A chart with its legend below it; they share the size of the view. Goes before its host.
class PlotScene : public VELView {
 public:
  using Data = std::span<const std::shared_ptr<VELXyDataSeries>>;

  /// The whole chart of columns that do not change.
  /// @throws PlotFailure without a font or GL
  static std::shared_ptr<PlotScene> create(VELHost& host, const PlotColumns& columns,
                                           const PlotOptions& options);
  /// As above for lines that grow: the axes follow what is in @p data, one a line.
  static std::shared_ptr<PlotScene> createFollowing(VELHost& host, const PlotColumns& columns, Data data,
                                                    const PlotOptions& options);
  /// Use one of the above.
  PlotScene() = default;

  void layoutSubviews() override;
  /// Titles of date axes that follow say the day or the year when all labels have it in common.
  void updateTitles();

 private:
  static std::shared_ptr<PlotScene> make(VELHost& host, const PlotColumns& columns, Data data,
                                         const PlotOptions& options, bool isFollowing);

  std::shared_ptr<VELChartSurfaceView> _chart;
  std::shared_ptr<Legend> _legend;
  PlotAxes _axes;
  std::string _xName;
};
