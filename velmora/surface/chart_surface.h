// surface/chart_surface.h: what a chart consists of, and where each axis stands.
//
// The surface holds axes, series, modifier, annotation, manager and renderer strongly; it holds its view and
// its render surface weakly, and everything attached holds the surface weakly. Units: points.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "velmora/axes/axis_area.h"
#include "velmora/axes/axis_base.h"
#include "velmora/axes/axis_collection.h"
#include "velmora/axes/axis_surface.h"
#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/rendering/render_surface.h"
#include "velmora/rendering/render_surface_base.h"
#include "velmora/rendering/render_surface_style.h"
#include "velmora/surface/chart_renderer.h"
#include "velmora/surface/renderable_series.h"
#include "velmora/surface/surface_element.h"
#include "velmora/surface/surface_gestures.h"
#include "velmora/surface/viewport_manager.h"

class VELChartSurfaceViewBase;

/// The model of one chart.
class VELMORA_API VELChartSurface : public VELAxisSurface,
                                    public VELRenderSurfaceCallbackDelegate,
                                    public std::enable_shared_from_this<VELChartSurface> {
 public:
  using SeriesList = std::vector<std::shared_ptr<VELRenderableSeries>>;

  /// Answers null: a surface exists only on a view.
  static std::shared_ptr<VELChartSurface> init() { return nullptr; }
  /// A surface for a view, which it holds weakly; null without a view.
  static std::shared_ptr<VELChartSurface> initWithView(const std::shared_ptr<VELChartSurfaceViewBase>& view);
  ~VELChartSurface() override;

  // Series.
  /// Adds a series on top; one that is attached twice is drawn twice. Null is ignored.
  void attachRenderableSeries(const std::shared_ptr<VELRenderableSeries>& series);
  void detachRenderableSeries(const std::shared_ptr<VELRenderableSeries>& series);
  /// Detaches every other series: the first, third, fifth … That is meant; call it until none is left.
  void clearSeries();
  /// In drawing order. Changing the list itself neither attaches nor redraws.
  SeriesList& renderableSeries() { return _renderableSeries; }
  const SeriesList& renderableSeries() const { return _renderableSeries; }
  void setRenderableSeries(SeriesList series) { _renderableSeries = std::move(series); }
  SeriesList& selectedRenderableSeries() { return _selectedRenderableSeries; }
  void setSelectedRenderableSeries(SeriesList series) { _selectedRenderableSeries = std::move(series); }

  // Axes.
  /// Adds an axis and asks for a redraw. One of default alignment goes to the bottom as X axis, to the right
  /// as Y axis. An id that two axes have raises at the pass of a series that names it, not here.
  void attachAxis(const std::shared_ptr<VELAxisBase>& axis, bool isXAxis);
  void detachAxis(const std::shared_ptr<VELAxisBase>& axis);
  VELAxisCollection* xAxes() const override { return _xAxes.get(); }
  VELAxisCollection* yAxes() const override { return _yAxes.get(); }
  /// Replaces the collection alone: nothing is attached or redrawn. Null makes the surface invalid.
  void setXAxes(std::shared_ptr<VELAxisCollection> axes) { replaceAxes(_xAxes, std::move(axes)); }
  void setYAxes(std::shared_ptr<VELAxisCollection> axes) { replaceAxes(_yAxes, std::move(axes)); }
  /// Two axes kept for the application; no pass uses them.
  const std::shared_ptr<VELAxisBase>& xAxis() const { return _xAxis; }
  void setXAxis(std::shared_ptr<VELAxisBase> axis) { _xAxis = std::move(axis); }
  const std::shared_ptr<VELAxisBase>& yAxis() const { return _yAxis; }
  void setYAxis(std::shared_ptr<VELAxisBase> axis) { _yAxis = std::move(axis); }
  /// Areas for centre axes; none unless somebody sets them. Held weakly.
  std::shared_ptr<VELAxisArea> centerXAxisArea() const { return _centerXAxisArea.lock(); }
  void setCenterXAxisArea(const std::shared_ptr<VELAxisArea>& area) { _centerXAxisArea = area; }
  std::shared_ptr<VELAxisArea> centerYAxisArea() const { return _centerYAxisArea.lock(); }
  void setCenterYAxisArea(const std::shared_ptr<VELAxisArea>& area) { _centerYAxisArea = area; }
  bool isPolarChart() const { return _isPolarChart; }

  // What is attached beside them. No setter redraws.
  const std::shared_ptr<VELChartModifier>& chartModifier() const { return _chartModifier; }
  /// Detaches the former one, and also one that it sets while it is told so; attaches the new one, which may
  /// be the same. An annotation likewise.
  void setChartModifier(const std::shared_ptr<VELChartModifier>& modifier);
  const std::shared_ptr<VELAnnotation>& annotation() const { return _annotation; }
  void setAnnotation(const std::shared_ptr<VELAnnotation>& annotation);
  const std::shared_ptr<VELViewportManager>& viewportManager() const { return _viewportManager; }
  /// A manager serves one surface. The former one is detached unless it serves another by now.
  void setViewportManager(const std::shared_ptr<VELViewportManager>& manager);
  /// Gives the surface its gestures and switches all four on; the former ones are switched off.
  void setGestureController(const std::shared_ptr<VELSurfaceGestures>& gestures);
  const std::shared_ptr<VELSurfaceGestures>& gestureController() const { return _gestureController; }

  // View, render surface, look.
  std::shared_ptr<VELChartSurfaceViewBase> view() const { return _view.lock(); }
  std::shared_ptr<VELRenderSurfaceBase> renderSurface() const { return _renderSurface.lock(); }
  void setRenderSurface(const std::shared_ptr<VELRenderSurfaceBase>& renderSurface);
  const std::shared_ptr<VELRenderSurfaceStyle>& style() const { return _style; }
  /// Keeps a copy. Lays out the areas and asks for a redraw, now and whenever the copy changes.
  void setStyle(const VELRenderSurfaceStyle& style);
  const std::string& chartTitle() const { return _chartTitle; }
  /// Shown above the chart; empty for none.
  void setChartTitle(std::string title);
  bool clipUnderlayAnnotations() const { return _clipUnderlayAnnotations; }
  void setClipUnderlayAnnotations(bool clip) { _clipUnderlayAnnotations = clip; }
  bool clipOverlayAnnotations() const { return _clipOverlayAnnotations; }
  void setClipOverlayAnnotations(bool clip) { _clipOverlayAnnotations = clip; }

  void invalidateElement() override;
  void onRenderSurfaceDraw() override;
  void onRenderSurfaceDrawModifiers() override;
  bool isRendering() const { return _isRendering; }
  /// Error code of the last full pass, see VELSurfaceError.
  uint32_t lastErrorCode() const { return _lastErrorCode; }
  /// The render surface's chart frame in points of the view, a zero rect without one.
  VELRect chartFrame() const override;
  /// Draws the background of the style into @p context.
  /// @throws VELInternalInconsistencyException when the render surface draws none
  void drawBackground(VELRenderContext2D& context);
  /// Gives the side areas these sizes in points and lays the view out when any differs. A size that is
  /// negative or not finite leaves its side as it is.
  void resizeAxesAreasLeft(float left, float right, float top, float bottom);
  /// Lets go of axes, series and gestures. Destruction does the same unless it was done.
  void free();

  // What axes ask of their surface.
  size_t axisSeriesCount() const override { return _renderableSeries.size(); }
  VELAxisSeries* axisSeriesAt(size_t index) const override;
  double contentScale() const override;
  std::shared_ptr<VELDisplayLink> displayLink() const override;
  VELRect viewBounds() const override;

 private:
  VELChartSurface() = default;

  void setUpWithView(const std::shared_ptr<VELChartSurfaceViewBase>& view);
  void installStyleBlocks();
  void replaceAxes(std::shared_ptr<VELAxisCollection>& place, std::shared_ptr<VELAxisCollection> axes);
  void p_VEL_axisAreaResizeRequest() { p_VEL_resizeAxesAreas(); }
  void p_VEL_resizeAxesAreas();
  void p_VEL_layoutAxes();
  std::shared_ptr<VELAxisArea> p_VEL_getContainerFor(const VELAxisBase& axis, VELAxisAlignment alignment,
                                                     bool isCenterAxis) const;
  void p_VEL_addToAxisContainer(const std::shared_ptr<VELAxisBase>& axis, VELAxisAlignment alignment,
                                bool isCenterAxis);
  void p_VEL_removeFromAxisContainer(const std::shared_ptr<VELAxisBase>& axis);
  void p_VEL_removeFromAxisContainer(const std::shared_ptr<VELAxisBase>& axis, VELAxisAlignment alignment,
                                     bool isCenterAxis);
  void p_VEL_invalidateIsPolarChartProperty();
  void p_VEL_attachModifier(const std::shared_ptr<VELChartModifier>& modifier);
  void p_VEL_detachModifier(const std::shared_ptr<VELChartModifier>& modifier);
  void p_VEL_attachAnnotation(const std::shared_ptr<VELAnnotation>& annotation);
  void p_VEL_detachAnnotation(const std::shared_ptr<VELAnnotation>& annotation);

  std::weak_ptr<VELAxisArea> _bottomAxisArea;
  std::weak_ptr<VELAxisArea> _topAxisArea;
  std::weak_ptr<VELAxisArea> _rightAxisArea;
  std::weak_ptr<VELAxisArea> _leftAxisArea;
  std::weak_ptr<VELAxisArea> _centerXAxisArea;
  std::weak_ptr<VELAxisArea> _centerYAxisArea;
  std::unique_ptr<VELChartRenderer> _velmoraRenderer;
  bool _isRendering = false;
  std::shared_ptr<VELSurfaceGestures> _gestureController;
  bool _freed = true;
  bool _clipUnderlayAnnotations = false;
  bool _clipOverlayAnnotations = false;
  bool _isPolarChart = false;
  std::shared_ptr<VELAxisBase> _xAxis;
  std::shared_ptr<VELAxisBase> _yAxis;
  std::shared_ptr<VELAxisCollection> _xAxes;
  std::shared_ptr<VELAxisCollection> _yAxes;
  std::shared_ptr<VELChartModifier> _chartModifier;
  std::shared_ptr<VELAnnotation> _annotation;
  std::weak_ptr<VELChartSurfaceViewBase> _view;
  SeriesList _renderableSeries;
  SeriesList _selectedRenderableSeries;
  std::shared_ptr<VELViewportManager> _viewportManager;
  std::string _chartTitle;
  std::weak_ptr<VELRenderSurfaceBase> _renderSurface;
  std::shared_ptr<VELRenderSurfaceStyle> _style;
  uint32_t _lastErrorCode = 0;
  std::vector<std::shared_ptr<VELAxisCollection>> _retiredAxes;  ///< until the pass under way ends
};
