// series/line_series_style.h: how a line series looks.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"

/// A value: a series keeps a copy of its own. Every setter calls `styleChanged`.
class VELMORA_API VELLineSeriesStyle {
 public:
  /// A straight line of colour 0xFF50A0F0 and width 1.0.
  VELLineSeriesStyle();
  VELLineSeriesStyle(const VELLineSeriesStyle&) = delete;
  VELLineSeriesStyle& operator=(const VELLineSeriesStyle&) = delete;

  /// Equal values with a pen of its own and no callback: that belongs to the owner of the original.
  std::shared_ptr<VELLineSeriesStyle> clone() const;

  /// Steps instead of straight lines: along the X axis first, then along the Y axis.
  bool isDigitalLine() const { return _isDigitalLine; }
  void setIsDigitalLine(bool digital);
  /// Null draws no line.
  const VELPenPtr& linePen() const { return _linePen; }
  void setLinePen(VELPenPtr pen);

  const std::function<void()>& styleChanged() const { return _styleChanged; }
  void setStyleChanged(std::function<void()> callback) { _styleChanged = std::move(callback); }

 private:
  void p_VEL_callStyleChanged() const;

  bool _isDigitalLine = false;
  std::function<void()> _styleChanged;
  VELPenPtr _linePen;
};
