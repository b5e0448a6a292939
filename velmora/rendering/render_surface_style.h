// rendering/render_surface_style.h: how a chart surface looks apart from its axes and series.
#pragma once

#include <functional>
#include <limits>
#include <memory>
#include <utility>

#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"

/// A value object: an owner keeps a `clone` and installs callbacks of its own on it.
class VELMORA_API VELRenderSurfaceStyle {
 public:
  VELRenderSurfaceStyle() = default;
  VELRenderSurfaceStyle(const VELRenderSurfaceStyle&) = delete;
  VELRenderSurfaceStyle& operator=(const VELRenderSurfaceStyle&) = delete;

  /// Equal values, brushes cloned, no callback: those belong to the owner of the original.
  std::shared_ptr<VELRenderSurfaceStyle> clone() const;

  /// While true, no setter calls back. (The spelling is part of the interface.)
  bool supressCallbacks() const { return _supressCallbacks; }
  void setSupressCallbacks(bool supress) { _supressCallbacks = supress; }

  /// Width (left, right) or height (top, bottom) of an axis area in points; NaN lets its labels decide.
  float leftAxisAreaSize() const { return _leftAxisAreaSize; }
  void setLeftAxisAreaSize(float size);
  float rightAxisAreaSize() const { return _rightAxisAreaSize; }
  void setRightAxisAreaSize(float size);
  float topAxisAreaSize() const { return _topAxisAreaSize; }
  void setTopAxisAreaSize(float size);
  float bottomAxisAreaSize() const { return _bottomAxisAreaSize; }
  void setBottomAxisAreaSize(float size);

  /// Behind the whole surface; null draws none.
  const VELBrushPtr& backgroundBrush() const { return _backgroundBrush; }
  void setBackgroundBrush(VELBrushPtr brush);
  /// Around the chart frame; null draws none.
  const VELPenPtr& borderPen() const { return _borderPen; }
  void setBorderPen(VELPenPtr pen);
  /// Behind the series; null draws none.
  const VELBrushPtr& seriesBackgroundBrush() const { return _seriesBackgroundBrush; }
  void setSeriesBackgroundBrush(VELBrushPtr brush);

  /// Called after every change of a value.
  const std::function<void()>& styleChanged() const { return *_styleChanged; }
  void setStyleChanged(std::function<void()> callback) { _styleChanged = p_VEL_share(std::move(callback)); }
  /// Called after a change of an axis area size, before `styleChanged`.
  const std::function<void()>& layoutChanged() const { return *_layoutChanged; }
  void setLayoutChanged(std::function<void()> callback) { _layoutChanged = p_VEL_share(std::move(callback)); }

 private:
  /// Shared, so that a block outlives its own call when it replaces itself or the whole style.
  using Block = std::shared_ptr<const std::function<void()>>;
  static Block p_VEL_share(std::function<void()> callback) {
    return std::make_shared<const std::function<void()>>(std::move(callback));
  }
  void p_VEL_setAreaSize(float& field, float size);
  void p_VEL_callStyleChanged() const;

  bool _supressCallbacks = false;
  float _leftAxisAreaSize = std::numeric_limits<float>::quiet_NaN();
  float _rightAxisAreaSize = std::numeric_limits<float>::quiet_NaN();
  float _topAxisAreaSize = std::numeric_limits<float>::quiet_NaN();
  float _bottomAxisAreaSize = std::numeric_limits<float>::quiet_NaN();
  Block _styleChanged = p_VEL_share(nullptr);
  VELBrushPtr _backgroundBrush;
  VELPenPtr _borderPen;
  VELBrushPtr _seriesBackgroundBrush;
  Block _layoutChanged = p_VEL_share(nullptr);
};
