#include "velmora/axes/axis_renderer.h"

#include "velmora/axes/axis_base.h"
#include "velmora/axes/axis_collection.h"

namespace {

// X axes, then Y axes; the counts are read again at every step, since an application's provider may detach
// an axis while it draws.
template <class Step>
void forEachAxis(const VELAxisSurface& surface, Step step) {
  for (const VELAxisCollection* axes : {surface.xAxes(), surface.yAxes()}) {
    for (int32_t i = 0; axes && i < axes->count(); ++i) {
      const auto axis = axes->itemAt(i);
      step(*axis);
    }
  }
}

}  // namespace

void VELAxisRenderer::o_onDrawAxes(VELAxisSurface& surface, VELRenderContext2D& context) {
  forEachAxis(surface, [&context](VELAxisBase& axis) {
    axis.validateAxis();
    axis.prepareForDrawing();
    axis.drawAxisAreaWithContext(context);
  });
  context.setDrawingArea(surface.chartFrame());
  forEachAxis(surface, [&context](VELAxisBase& axis) {
    axis.prepareToDrawGridLines(context);
    axis.drawBandsWithContext(context);
  });
  forEachAxis(surface, [&context](VELAxisBase& axis) { axis.drawMinorGridLinesWithContext(context); });
  forEachAxis(surface, [&context](VELAxisBase& axis) { axis.drawMajorGridLinesWithContext(context); });
}
