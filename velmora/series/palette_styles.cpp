#include "velmora/series/palette_styles.h"

#include <algorithm>
#include <utility>

#include "velmora/series/palette_provider.h"
#include "velmora/surface/render_pass_data.h"

namespace {
/// The memory of the last list of pens, so that a steady frame allocates nothing. Whoever needs it takes it
/// out: one drawing inside another begins a list of its own.
std::vector<VELPenPtr>& idlePens() {
  static std::vector<VELPenPtr> pens;
  return pens;
}
}  // namespace

VELPaletteStyles::VELPaletteStyles(VELPaletteProvider& palette, const VELRenderPassData& data,
                                   const VELLineSeriesStyle& own, const VELPenPtr& spanned)
    : _palette(palette), _data(data), _own(own), _spanned(std::exchange(idlePens(), {})) {
  if (spanned) _spanned.push_back(spanned);
}

VELPaletteStyles::~VELPaletteStyles() {
  constexpr size_t kKeep = size_t{1} << 12;
  _spanned.clear();
  if (_spanned.capacity() <= kKeep) idlePens() = std::move(_spanned);
}

const VELLineSeriesStyle* VELPaletteStyles::ask(double x, double y, int32_t index) {
  auto style = _palette.styleForX(x, y, static_cast<uint32_t>(index));
  if (style == _last) return _lastLine;
  _last = std::move(style);
  _lastLine = dynamic_cast<const VELLineSeriesStyle*>(_last.get());
  return _lastLine;
}

const VELPenPtr& VELPaletteStyles::penAt(double x, double y, int32_t index) {
  const VELLineSeriesStyle* const style = ask(x, y, index);
  const VELPenPtr& pen = style && style->linePen() ? style->linePen() : _own.linePen();
  if (pen && pen->requireRenderPassData()) span(pen);
  return pen;
}

std::shared_ptr<VELPointMarkerBase> VELPaletteStyles::markerAt(double x, double y, int32_t index) {
  const VELLineSeriesStyle* const style = ask(x, y, index);
  if (!(style ? *style : _own).drawPointMarkers()) return nullptr;
  return style && style->pointMarker() ? style->pointMarker() : _own.pointMarker();
}

void VELPaletteStyles::span(const VELPenPtr& pen) {
  const auto place = std::lower_bound(_spanned.begin(), _spanned.end(), pen);
  if (place != _spanned.end() && *place == pen) return;
  (*_spanned.insert(place, pen))->setRenderPassData(&_data);
}
