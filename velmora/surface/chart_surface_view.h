// surface/chart_surface_view.h: where the areas of a chart stand on the screen.
//
// Units: points.
#pragma once

#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <utility>

#include "velmora/axes/axis_area.h"
#include "velmora/platform/export.h"
#include "velmora/platform/host.h"
#include "velmora/platform/label_view.h"
#include "velmora/platform/view.h"
#include "velmora/rendering/opengl_render_surface.h"

class VELChartSurface;

/// The four sides of a chart, in the order in which the view keeps them.
enum VELChartSide : int32_t {
  VELChartSide_Left = 0,
  VELChartSide_Right = 1,
  VELChartSide_Top = 2,
  VELChartSide_Bottom = 3,
};

/// A view with a render surface, a chart frame and four axis areas.
class VELMORA_API VELChartSurfaceViewBase : public VELView {
 public:
  using LayoutBlock = std::function<void(float left, float right, float top, float bottom)>;

  /// @param contentScale pixels per point of the screen, until the tree of views says otherwise
  explicit VELChartSurfaceViewBase(const VELRect& frame, double contentScale = 1.0)
      : VELView(frame), _contentScale(contentScale) {}
  /// Frees the render surface.
  ~VELChartSurfaceViewBase() override;

  const std::shared_ptr<VELRenderSurfaceBase>& renderSurface() const { return _renderSurface; }
  /// The plain view whose frame is the chart frame.
  const std::shared_ptr<VELView>& renderSurfaceSizeView() const { return _renderSurfaceSizeView; }
  const std::shared_ptr<VELAxisArea>& leftAxesArea() const { return area(VELChartSide_Left); }
  const std::shared_ptr<VELAxisArea>& rightAxesArea() const { return area(VELChartSide_Right); }
  const std::shared_ptr<VELAxisArea>& topAxesArea() const { return area(VELChartSide_Top); }
  const std::shared_ptr<VELAxisArea>& bottomAxesArea() const { return area(VELChartSide_Bottom); }
  const std::shared_ptr<VELAxisArea>& area(VELChartSide side) const {
    return _areas[static_cast<size_t>(side)];
  }

  /// Width of a side area, or height for top and bottom: the smaller of its wanted size and its limit.
  float leftAxisAreaSize() const { return axisAreaSize(VELChartSide_Left); }
  float rightAxisAreaSize() const { return axisAreaSize(VELChartSide_Right); }
  float topAxisAreaSize() const { return axisAreaSize(VELChartSide_Top); }
  float bottomAxisAreaSize() const { return axisAreaSize(VELChartSide_Bottom); }
  float axisAreaSize(VELChartSide side) const;
  /// Sets both the wanted size and the limit; a size that is negative or not finite leaves the side as it is.
  void setLeftAxisAreaSize(float size) { setAxisAreaSize(VELChartSide_Left, size); }
  void setRightAxisAreaSize(float size) { setAxisAreaSize(VELChartSide_Right, size); }
  void setTopAxisAreaSize(float size) { setAxisAreaSize(VELChartSide_Top, size); }
  void setBottomAxisAreaSize(float size) { setAxisAreaSize(VELChartSide_Bottom, size); }
  void setAxisAreaSize(VELChartSide side, float size);

  /// A size that the side has whatever its axes want; NaN for none.
  float leftAxisAreaForcedSize() const { return axisAreaForcedSize(VELChartSide_Left); }
  float rightAxisAreaForcedSize() const { return axisAreaForcedSize(VELChartSide_Right); }
  float topAxisAreaForcedSize() const { return axisAreaForcedSize(VELChartSide_Top); }
  float bottomAxisAreaForcedSize() const { return axisAreaForcedSize(VELChartSide_Bottom); }
  float axisAreaForcedSize(VELChartSide side) const { return _forcedSizes[static_cast<size_t>(side)]; }
  void setLeftAxisAreaForcedSize(float size) { setAxisAreaForcedSize(VELChartSide_Left, size); }
  void setRightAxisAreaForcedSize(float size) { setAxisAreaForcedSize(VELChartSide_Right, size); }
  void setTopAxisAreaForcedSize(float size) { setAxisAreaForcedSize(VELChartSide_Top, size); }
  void setBottomAxisAreaForcedSize(float size) { setAxisAreaForcedSize(VELChartSide_Bottom, size); }
  void setAxisAreaForcedSize(VELChartSide side, float size) {
    _forcedSizes[static_cast<size_t>(side)] = size;
  }

  /// Pixels per point of the screen that shows the view.
  double contentScale() const { return _contentScale; }

  /// Called at each layout with the wanted sizes, before the areas are placed. The block belongs to the chart
  /// surface: with another one the sides no longer get the sizes that their axes want.
  const LayoutBlock& onLayoutSubviews() const { return *_onLayoutSubviews; }
  void setOnLayoutSubviews(LayoutBlock block) {
    _onLayoutSubviews = std::make_shared<const LayoutBlock>(std::move(block));
  }

  /// Whether any area wants another size: left, right, top, bottom.
  bool axisAreasNeedResizing() const;
  /// Asks each side for its size, tells the surface, places everything. Never runs inside itself.
  void layoutSubviews() override;

 protected:
  /// Gives every subview its frame from the sizes of the sides.
  virtual void placeSubviews() = 0;
  /// Draws anew for the new density; one that is not positive and finite is ignored.
  void contentScaleChanged(double pixelsPerPoint) override;

  std::shared_ptr<VELRenderSurfaceBase> _renderSurface;
  std::shared_ptr<VELView> _renderSurfaceSizeView;
  std::array<std::shared_ptr<VELAxisArea>, 4> _areas;

 private:
  /// A wanted size and what it may not exceed.
  struct PanelSize {
    float size = 50.0f;
    float limit = 50.0f;
  };

  float wantedSize(VELChartSide side) const;

  /// Shared, so that a block outlives its own call when it replaces itself.
  std::shared_ptr<const LayoutBlock> _onLayoutSubviews = std::make_shared<const LayoutBlock>();
  double _contentScale;
  std::array<PanelSize, 4> _panelSizes;
  std::array<float, 4> _forcedSizes = {kNaN, kNaN, kNaN, kNaN};
  bool _layingOut = false;

  static constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
};

/// What an application puts on the screen: a chart surface and its view in one.
class VELMORA_API VELChartSurfaceView : public VELChartSurfaceViewBase {
 public:
  /// A view of a size with a new chart surface in the standard look. Add it below the host's root view.
  /// @param host gives GL context, beat and density; it must outlive the view
  /// @return null when the host has no GL context
  static std::shared_ptr<VELChartSurfaceView> initWithFrame(const VELRect& frame, VELHost& host);
  ~VELChartSurfaceView() override;

  /// The chart of this view, held strongly; its life ends with the view.
  const std::shared_ptr<VELChartSurface>& surface() const { return _surface; }
  /// The label above the chart; shows the surface's chart title.
  const std::shared_ptr<VELLabelView>& titleLabel() const { return _titleLabel; }

  void layoutSubviews() override;

 protected:
  void placeSubviews() override;

 private:
  VELChartSurfaceView(const VELRect& frame, double contentScale);
  bool p_VEL_setupSubViews(VELHost& host);
  void applyStandardLook();
  /// Height that the title takes above the chart, with its gap; 0 without a title.
  double titleHeight() const;

  bool _subViewsSetUp = false;
  std::shared_ptr<VELLabelView> _titleLabel;
  std::shared_ptr<VELChartSurface> _surface;
};
