// series/series_style.h: what all styles of series have in common: they tell of each change.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "velmora/platform/export.h"

/// A style is a value: a series keeps a copy of its own. Every setter of every kind calls `styleChanged`.
class VELMORA_API VELSeriesStyle {
 public:
  VELSeriesStyle(const VELSeriesStyle&) = delete;
  VELSeriesStyle& operator=(const VELSeriesStyle&) = delete;
  virtual ~VELSeriesStyle() = default;

  const std::function<void()>& styleChanged() const { return *_styleChanged; }
  void setStyleChanged(std::function<void()> callback) {
    _styleChanged = std::make_shared<const std::function<void()>>(std::move(callback));
  }

 protected:
  /// Shared, so that a block outlives its own call when it replaces itself or the whole style.
  using Block = std::shared_ptr<const std::function<void()>>;

  VELSeriesStyle() = default;
  void p_VEL_callStyleChanged() const { p_VEL_call(_styleChanged); }
  static void p_VEL_call(const Block& block) {
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const Block held = block;
    if (*held) (*held)();
  }
  const Block& p_VEL_styleBlock() const { return _styleChanged; }

 private:
  Block _styleChanged = std::make_shared<const std::function<void()>>();
};
