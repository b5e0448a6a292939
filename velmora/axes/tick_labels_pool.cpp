#include "velmora/axes/tick_labels_pool.h"

std::shared_ptr<VELDefaultTickLabel> VELTickLabelsPool::get() {
  return getWithAction([] { return std::make_shared<VELDefaultTickLabel>(); });
}
