// surface/chart_renderer.h: which steps make one frame of a chart, and in what order.
//
// The renderer keeps nothing of a pass but the memory that it took, so that a steady one allocates nothing.
// Units: points.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/axes/axis_collection.h"
#include "velmora/data/point_series.h"
#include "velmora/data/ranges.h"
#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/rendering/render_context.h"
#include "velmora/surface/render_pass_info.h"

class VELChartSurface;
class VELDataSeries;
class VELPointResampler;
class VELRenderableSeries;
class VELRenderPassData;

/// Bits of the surface error code. Several values serve both checks of a pass; see the operations.
enum VELSurfaceError : uint32_t {
  VELSurfaceError_None = 0,
  VELSurfaceError_NoRenderSurface = 1,   ///< first check
  VELSurfaceError_TooSmall = 1,          ///< second check: the chart frame is below 2 by 2 points
  VELSurfaceError_NoAxisCollection = 2,  ///< first check
  VELSurfaceError_InvalidRange = 2,      ///< second check: an axis that never auto-ranges has no valid range
  VELSurfaceError_NoXAxis = 4,           ///< first check
  VELSurfaceError_NoTickProvider = 4,    ///< second check
  VELSurfaceError_NoYAxis = 8,           ///< first check
  VELSurfaceError_NoSeries = 8,          ///< second check; does not stop the pass
  VELSurfaceError_NoDataSeries = 16,     ///< second check; does not stop the pass
  VELSurfaceError_RenderSurfaceGone = 32,  ///< second check; does not stop the pass
};

/// Runs the passes of one surface.
class VELMORA_API VELChartRenderer {
 public:
  /// @param parent the surface to draw, held weakly
  explicit VELChartRenderer(const std::weak_ptr<VELChartSurface>& parent) : _parent(parent) {}
  virtual ~VELChartRenderer() = default;

  /// One full pass into @p context, which may be null where there is no render surface. @return the surface
  /// error code; it can be non-zero after a drawn frame
  /// @throws VELInternalInconsistencyException without a viewport manager
  /// @throws VELInvalidArgumentException when a series names an axis that is not there or is there twice, or
  ///   when its data does not fit the X axis
  uint32_t o_renderLoop(VELRenderContext2D* context);
  /// Background, modifier and annotation alone, into their own contexts.
  void o_secondaryRenderLoop();

  /// Structure: render surface, collections, axes; stops at the first thing missing.
  bool p_VEL_o_isSurfaceValid(const VELChartSurface& surface, uint32_t& errorCode) const;
  /// Everything that a pass of this size needs. Missing series set bits but do not fail: the axes still draw.
  bool p_VEL_o_isSurfaceValid(const VELChartSurface& surface, const VELSize& size, uint32_t& errorCode) const;
  /// Auto-ranges the axes. @return the chart frame, a zero rect without a surface
  VELRect p_VEL_o_layoutVelmora(const VELChartSurface* surface);
  std::shared_ptr<VELRenderPassInfo> p_VEL_o_prepareRenderDataWithSurface(const VELChartSurface& surface,
                                                                          const VELSize& size);
  /// Applies the viewport manager's X ranges.
  void p_VEL_o_prepareXAxes(const VELChartSurface& surface);

  /// Resamples one series for its X axis.
  ///
  /// All three results are null at first; the data series and the point range stay set when nothing of the
  /// data is visible, and then there is no point series.
  static void p_VEL_o_resampleSeriesWithXAxis(const VELAxisCollection& xAxes,
                                              const VELRenderableSeries& series, double viewportWidth,
                                              VELPointResampler& resampler,
                                              std::shared_ptr<VELDataSeries>& outDataSeries,
                                              std::shared_ptr<VELIndexRange>& outPointRange,
                                              std::shared_ptr<VELPointSeries>& outResampledSeries);

  /// All series in order, the selected ones last and so on top. One that was detached since the pass was
  /// prepared, by what another one calls while it draws, is left out.
  void o_onDrawSeriesToSurface(const VELChartSurface& surface, const VELRenderPassInfo& info,
                               VELRenderContext2D& context);
  /// One series; without both calculators it is skipped.
  void o_drawSeriesToSurface(const VELChartSurface& surface,
                             const std::shared_ptr<const VELRenderPassData>& data,
                             VELRenderContext2D& context);

  /// Calls `onBeginRenderPass` on every X axis. Offered to callers with passes of their own.
  void o_prepareXAxes(const VELChartSurface& surface, const VELRenderPassInfo& info);
  /// Applies the viewport manager's Y ranges, then `onBeginRenderPass`. Offered likewise.
  void o_prepareYAxes(const VELChartSurface& surface, const VELRenderPassInfo& info);

 private:
  using SeriesList = std::vector<std::shared_ptr<VELRenderableSeries>>;

  std::weak_ptr<VELChartSurface> _parent;
  // Empty but for their memory. Whoever needs one takes it out: one pass inside another gets its own.
  std::shared_ptr<VELRenderPassInfo> _idleInfo;
  SeriesList _idleSeries;
  std::vector<int32_t> _idleSelected;
};
