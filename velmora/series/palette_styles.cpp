#include "velmora/series/palette_styles.h"

#include <algorithm>
#include <utility>

#include "velmora/series/palette_provider.h"
#include "velmora/surface/render_pass_data.h"

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

VELPointMarkerBase* VELPaletteStyles::markerAt(double x, double y, int32_t index) {
  const VELLineSeriesStyle* const style = ask(x, y, index);
  if (!(style ? *style : _own).drawPointMarkers()) return nullptr;
  return style && style->pointMarker() ? style->pointMarker().get() : _own.pointMarker().get();
}

void VELPaletteStyles::span(const VELPenPtr& pen) {
  const auto end = _spanned.begin() + static_cast<std::ptrdiff_t>(std::min(_spannedCount, _spanned.size()));
  if (std::find(_spanned.begin(), end, pen) != end) return;
  pen->setRenderPassData(&_data);
  _spanned[_spannedCount++ % _spanned.size()] = pen;
}
