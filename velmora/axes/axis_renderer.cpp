#include "velmora/axes/axis_renderer.h"

#include "velmora/axes/axis_base.h"
#include "velmora/axes/axis_collection.h"

namespace {

// The counts are read again at every step and the collection is held, since an application's provider may
// detach an axis, or all of them, while it draws.
template <class Step>
void forEachIn(const VELAxisCollection* axes, Step& step) {
  const auto held = axes ? axes->weak_from_this().lock() : nullptr;
  for (int32_t i = 0; axes && i < axes->count(); ++i) {
    const auto axis = axes->itemAt(i);
    step(*axis);
  }
}

template <class Step>
void forEachAxis(const VELAxisSurface& surface, Step step) {
  forEachIn(surface.xAxes(), step);
  forEachIn(surface.yAxes(), step);
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
