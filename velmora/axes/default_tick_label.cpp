#include "velmora/axes/default_tick_label.h"

#include <utility>

namespace {

// Meant as (0, 255, 0, 255) on a scale that ends at 1: opaque green, which nobody overlooks.
const VELColor kUnstyled{0.0, 1.0, 0.0, 1.0};

}  // namespace

VELDefaultTickLabel::VELDefaultTickLabel() { setTextColor(kUnstyled); }

VELDefaultTickLabel::VELDefaultTickLabel(const VELRect& frame) : VELLabelView(frame) {
  setTextColor(kUnstyled);
}

void VELDefaultTickLabel::setText(std::string_view text) {
  VELLabelView::setText(text);
  sizeToFit();
}

void VELDefaultTickLabel::setAttributedText(VELAttributedText text) {
  VELLabelView::setAttributedText(std::move(text));
  sizeToFit();
}

void VELDefaultTickLabel::setPosition(VELPoint centre) {
  const VELSize size = frame().size();
  setFrame({centre.x - size.width / 2.0, centre.y - size.height / 2.0, size.width, size.height});
}

bool VELDefaultTickLabel::hasIntersectionWithNext(const VELDefaultTickLabel& next) const {
  const auto overlap = [](double start, double end, double otherStart, double otherEnd) {
    return static_cast<float>(start) < static_cast<float>(otherEnd) &&
           static_cast<float>(otherStart) < static_cast<float>(end);
  };
  const VELRect &a = frame(), &b = next.frame();
  return overlap(a.x, a.right(), b.x, b.right()) && overlap(a.y, a.bottom(), b.y, b.bottom());
}

bool VELDefaultTickLabel::fitsInArea(const VELRect& area) const {
  const VELRect& f = frame();
  return f.x >= area.x && f.y >= area.y && f.right() <= area.right() && f.bottom() <= area.bottom();
}
