#include "velmora/rendering/visual_style.h"

const VELVisualStyle& VELVisualStyle::standard() {
  static const VELVisualStyle style;
  return style;
}
