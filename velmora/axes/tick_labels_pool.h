// axes/tick_labels_pool.h: tick labels, used again while a chart is panned.
#pragma once

#include <memory>

#include "velmora/axes/default_tick_label.h"
#include "velmora/axes/object_pool.h"
#include "velmora/platform/export.h"

/// Idle tick labels.
class VELMORA_API VELTickLabelsPool : public VELObjectPool<VELDefaultTickLabel> {
 public:
  using VELObjectPool<VELDefaultTickLabel>::VELObjectPool;
  /// An idle label, else a new one.
  std::shared_ptr<VELDefaultTickLabel> get();
};
