#include "examples/plot/legend.h"

#include <algorithm>
#include <cmath>

#include "velmora/rendering/visual_style.h"

namespace {

constexpr double kRowHeight = 18.0;
constexpr double kItemGap = 18.0;
constexpr double kSwatchGap = 5.0;
constexpr double kBottomPadding = 6.0;
constexpr double kRestWidth = 90.0;
constexpr size_t kMaxRows = 3;
constexpr size_t kLongestName = 40;  // bytes, then an ellipsis

std::shared_ptr<VELLabelView> makeLabel(const std::string& text, uint32_t colorCode, bool isBold) {
  auto label = std::make_shared<VELLabelView>();
  label->setFont({"", VELVisualStyle::standard().labelFontSize, isBold});
  label->setTextColor(VELColor::fromColorCode(colorCode));
  label->setText(text);
  label->sizeToFit();
  return label;
}

void place(VELLabelView& label, double x, double rowTop) {
  const VELSize size = label.frame().size();
  label.setFrame(
      {std::round(x), std::round(rowTop + (kRowHeight - size.height) / 2.0), size.width, size.height});
}

}  // namespace

std::string shortenedName(const std::string& name) {
  if (name.size() <= kLongestName) return name;
  size_t end = kLongestName;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0u) == 0x80u) --end;  // whole characters
  return name.substr(0, end) + "…";
}

Legend::Item Legend::makeItem(const std::string& name, const uint32_t* colorCode) {
  Item item;
  item.name = makeLabel(name, VELVisualStyle::standard().labelColor, false);
  item.width = item.name->frame().width;
  if (!colorCode) return item;
  item.swatch = makeLabel("━━", *colorCode, true);
  item.width += item.swatch->frame().width + kSwatchGap;
  return item;
}

Legend::Legend(const std::vector<LegendEntry>& entries) {
  for (const LegendEntry& entry : entries)
    _items.push_back(makeItem(shortenedName(entry.name), &entry.colorCode));
}

std::vector<Legend::Row> Legend::makeRows(double width) {
  std::vector<Row> rows(1);
  double used = 0.0;
  for (size_t i = 0; i < _items.size(); ++i) {
    const Item& item = _items[i];
    const bool lastRow = rows.size() == kMaxRows;
    // In the last row, leave room for the entry that counts the rest.
    const double reserve = lastRow && i + 1 < _items.size() ? kRestWidth : 0.0;
    const bool fits = rows.back().empty() || used + kItemGap + item.width + reserve <= width;
    if (!fits && lastRow) {
      const size_t rest = _items.size() - i;
      if (rest != _restCount) _rest = makeItem("+ " + std::to_string(rest) + " more", nullptr);
      _restCount = rest;
      rows.back().push_back(&_rest);
      break;
    }
    if (!fits) {
      rows.emplace_back();
      used = 0.0;
    }
    used += (rows.back().empty() ? 0.0 : kItemGap) + item.width;
    rows.back().push_back(&item);
  }
  return rows;
}

void Legend::placeRow(const Row& row, double width, double top) {
  double total = kItemGap * static_cast<double>(row.size() - 1);
  for (const Item* item : row) total += item->width;
  double x = std::max(0.0, (width - total) / 2.0);
  for (const Item* item : row) {
    double nameX = x;
    if (item->swatch) {
      place(*item->swatch, x, top);
      addSubview(item->swatch);
      nameX += item->swatch->frame().width + kSwatchGap;
    }
    place(*item->name, nameX, top);
    addSubview(item->name);
    x += item->width + kItemGap;
  }
}

void Legend::hideAll() {
  while (!subviews().empty()) subviews().back()->removeFromSuperview();
}

double Legend::fillWidth(double width) {
  hideAll();
  if (_items.empty()) return 0.0;
  double top = 0.0;
  for (const Row& row : makeRows(width)) {
    placeRow(row, width, top);
    top += kRowHeight;
  }
  return top + kBottomPadding;
}
