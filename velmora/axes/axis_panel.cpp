#include "velmora/axes/axis_panel.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/label_provider.h"

namespace {

// Of a point: what rounding leaves over is not cut off.
constexpr double kSlack = 1e-3;

constexpr VELAffineTransform kUpwards{0.0, -1.0, 1.0, 0.0, 0.0, 0.0};
constexpr VELAffineTransform kDownwards{0.0, 1.0, -1.0, 0.0, 0.0, 0.0};

VELRect inflated(const VELRect& rect, double by) {
  return {rect.x - by, rect.y - by, rect.width + 2.0 * by, rect.height + 2.0 * by};
}

bool isInside(const VELRect& rect, const VELRect& area) {
  return rect.x >= area.x && rect.y >= area.y && rect.right() <= area.right() &&
         rect.bottom() <= area.bottom();
}

// Which part of the free depth lies between the chart frame and a label: 0 stands at the tick, 1 outside.
double shareOutside(const VELTextFormattingStyle& style, VELAxisAlignment side) {
  const bool frameIsFar = side == VELAxisAlignment_Left || side == VELAxisAlignment_Top;
  const int32_t alignment = VELIsHorizontal(side) ? static_cast<int32_t>(style.alignmentVertical())
                                                  : static_cast<int32_t>(style.alignmentHorizontal());
  if (alignment == VELLabelAlignmentHorizontal_Center) return 0.5;
  if (alignment == VELLabelAlignmentHorizontal_Left) return frameIsFar ? 1.0 : 0.0;
  if (alignment == VELLabelAlignmentHorizontal_Right) return frameIsFar ? 0.0 : 1.0;
  return 0.0;
}

double tickDepth(const VELAxisStyle& style) {
  const double major = style.drawMajorTicks() ? style.majorTickSize() : 0.0;
  const double minor = style.drawMinorTicks() ? style.minorTickSize() : 0.0;
  return std::max({major, minor, 0.0});
}

}  // namespace

VELAxisPanel::VELAxisPanel()
    : _title(std::make_shared<VELLabelView>()), _recommendedSize(std::numeric_limits<double>::quiet_NaN()) {
  _title->setHidden(true);
}

VELAxisPanel::~VELAxisPanel() = default;

VELRect VELAxisPanel::frameInChart() const {
  const auto area = superview();
  return area ? frame().offsetBy(area->frame().x, area->frame().y) : frame();
}

void VELAxisPanel::clear() {
  for (const auto& label : _labels) label->setHidden(true);
  _title->setHidden(true);
}

void VELAxisPanel::updateWithAxis(const VELAxisBase& axis, std::span<const VELTickLabelRequest> ticks,
                                  const VELRect& viewBounds) {
  const VELAxisStyle& style = axis.style();
  const bool isHorizontal = axis.isHorizontalAxis();
  fillLabels(axis, style.drawLabels() ? ticks : ticks.first(0));
  cullLabels(style.drawLabels() ? ticks : ticks.first(0), isHorizontal, style.minLabelSpacing());
  measureLabels(isHorizontal);
  const VELRect room = inflated(viewBounds, kSlack);
  fillTitle(axis, isHorizontal ? room.width : room.height);
  const Depths depths = depthsOf(style, isHorizontal);
  _recommendedSize = std::ceil(depths.end - kSlack);

  const VELRect panel = frameInChart();
  const VELRect visible = inflated(viewBounds.offsetBy(-panel.x, -panel.y), kSlack);
  placeLabels(axis, depths, visible);
  placeTitle(axis, depths, visible);
}

void VELAxisPanel::fillLabels(const VELAxisBase& axis, std::span<const VELTickLabelRequest> ticks) {
  // A provider that raised in the last pass left labels behind.
  retireFormerLabels();
  // A label stays with its major while the axis is panned, so that only new ones are measured.
  std::swap(_labels, _formerLabels);
  std::swap(_indices, _formerIndices);
  _labels.clear();
  _indices.clear();
  const auto provider = axis.labelProvider();
  const VELTextFormattingStyle& style = axis.style().labelStyle();
  size_t former = 0;
  for (const VELTickLabelRequest& tick : ticks) {
    while (former < _formerIndices.size() && _formerIndices[former] < tick.index) ++former;
    const bool stays =
        former < _formerLabels.size() && _formerIndices[former] == tick.index && _formerLabels[former];
    std::shared_ptr<VELDefaultTickLabel> label = stays ? _formerLabels[former] : _pool.get();
    if (provider) {
      provider->updateDataContextWithContext(*label, axis.labelValue(tick.value), &style);
    } else {
      label->setFont(style.getFont());
      label->setTextColor(style.color());
      label->setTransform(style.transform());
      label->setText(axis.formatText(axis.labelValue(tick.value)));
    }
    if (stays) _formerLabels[former++].reset();
    if (label->superview().get() != this) addSubview(label);
    _labels.push_back(std::move(label));
    _indices.push_back(tick.index);
  }
  retireFormerLabels();
}

void VELAxisPanel::retireFormerLabels() {
  for (auto& label : _formerLabels) {
    if (!label) continue;
    label->removeFromSuperview();
    _pool.put(std::move(label));
  }
  _formerLabels.clear();
}

void VELAxisPanel::cullLabels(std::span<const VELTickLabelRequest> ticks, bool isHorizontal, double spacing) {
  _extents.clear();
  for (size_t i = 0; i < ticks.size(); ++i) {
    const VELSize size = _labels[i]->frame().size();
    _extents.push_back({ticks[i].centre, isHorizontal ? size.width : size.height, ticks[i].index, true});
    _labels[i]->setCullingPriority(VELLabelPriority(ticks[i].index));
  }
  VELCullLabels(_extents, spacing);
}

void VELAxisPanel::measureLabels(bool isHorizontal) {
  // An axis that shows no major just now keeps its depth, so that the chart does not jump.
  if (_labels.empty()) return;
  _labelDepth = 0.0;
  for (size_t i = 0; i < _labels.size(); ++i) {
    if (!_extents[i].isShown) continue;
    const VELSize size = _labels[i]->frame().size();
    _labelDepth = std::max(_labelDepth, isHorizontal ? size.height : size.width);
  }
}

void VELAxisPanel::fillTitle(const VELAxisBase& axis, double room) {
  if (!_title->superview()) addSubview(_title);
  const VELTextFormattingStyle& style = axis.style().titleStyle();
  const VELAxisAlignment side = axis.effectiveAlignment();
  _hasTitle = axis.style().drawTitle() && !axis.axisTitle().empty();
  _title->setFont(style.getFont());
  _title->setTextColor(style.color());
  _title->setTransform(VELIsHorizontal(side)           ? VELAffineTransform()
                       : side == VELAxisAlignment_Left ? kUpwards
                                                       : kDownwards);
  _title->setText(_hasTitle ? std::string_view(axis.axisTitle()) : std::string_view());
  _title->shortenToWidth(room);
  _title->sizeToFit();
}

VELAxisPanel::Depths VELAxisPanel::depthsOf(const VELAxisStyle& style, bool isHorizontal) const {
  Depths depths;
  const double ticks = tickDepth(style);
  const bool hasLabels = style.drawLabels() && _labelDepth > 0.0;
  depths.labels = hasLabels ? ticks + style.labelGap() : ticks;
  const double labelsEnd = hasLabels ? depths.labels + _labelDepth : ticks;
  depths.title = _hasTitle ? labelsEnd + style.titleGap() : labelsEnd;
  const VELSize title = _title->frame().size();
  depths.end = _hasTitle ? depths.title + (isHorizontal ? title.height : title.width) : labelsEnd;
  return depths;
}

double VELAxisPanel::acrossAt(VELAxisAlignment side, double depth) const {
  if (side == VELAxisAlignment_Left) return frame().width - depth;
  if (side == VELAxisAlignment_Top) return frame().height - depth;
  return depth;
}

void VELAxisPanel::placeLabels(const VELAxisBase& axis, const Depths& depths, const VELRect& visible) {
  const VELAxisAlignment side = axis.effectiveAlignment();
  const bool isHorizontal = VELIsHorizontal(side);
  const double share = shareOutside(axis.style().labelStyle(), side);
  for (size_t i = 0; i < _labels.size(); ++i) {
    VELDefaultTickLabel& label = *_labels[i];
    const VELSize size = label.frame().size();
    const double own = isHorizontal ? size.height : size.width;
    const double depth = depths.labels + (_labelDepth - own) * share + own / 2.0;
    const double across = acrossAt(side, depth), along = _extents[i].centre;
    label.setPosition(isHorizontal ? VELPoint{along, across} : VELPoint{across, along});
    label.setHidden(!_extents[i].isShown || !superview() || !label.fitsInArea(visible));
  }
}

void VELAxisPanel::placeTitle(const VELAxisBase& axis, const Depths& depths, const VELRect& visible) {
  const VELAxisAlignment side = axis.effectiveAlignment();
  const VELSize size = _title->frame().size();
  const double across = acrossAt(side, (depths.title + depths.end) / 2.0);
  VELRect place;
  if (VELIsHorizontal(side)) {
    place = {frame().width / 2.0 - size.width / 2.0, across - size.height / 2.0, size.width, size.height};
    // A long title leaves the middle of the axis before it is cut.
    place.x = std::max(visible.x, std::min(place.x, visible.right() - size.width));
  } else {
    place = {across - size.width / 2.0, frame().height / 2.0 - size.height / 2.0, size.width, size.height};
    place.y = std::max(visible.y, std::min(place.y, visible.bottom() - size.height));
  }
  _title->setFrame(place);
  _title->setHidden(!_hasTitle || !superview() || !isInside(place, visible));
}
