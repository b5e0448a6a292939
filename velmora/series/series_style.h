// series/series_style.h: what all styles of series have in common: they tell of each change.
#pragma once

#include <functional>
#include <utility>

#include "velmora/platform/export.h"

/// A style is a value: a series keeps a copy of its own. Every setter of every kind calls `styleChanged`.
class VELMORA_API VELSeriesStyle {
 public:
  VELSeriesStyle(const VELSeriesStyle&) = delete;
  VELSeriesStyle& operator=(const VELSeriesStyle&) = delete;
  virtual ~VELSeriesStyle() = default;

  const std::function<void()>& styleChanged() const { return _styleChanged; }
  void setStyleChanged(std::function<void()> callback) { _styleChanged = std::move(callback); }

 protected:
  VELSeriesStyle() = default;
  void p_VEL_callStyleChanged() const {
    if (_styleChanged) _styleChanged();
  }

 private:
  std::function<void()> _styleChanged;
};
