#include "velmora/platform/pango/pango_text_engine.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "velmora/platform/pango/text_markup.h"

namespace {

constexpr double kLargestScale = 16.0;   // with the largest font, a letter still fits into a mask
constexpr double kLargestSide = 4096.0;  // every driver of today takes textures of this size
constexpr int kMarginX = 1;              // pixels at either side
constexpr int kMarginY = 2;              // hinting may raise an edge by one

struct SurfaceRelease {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct CairoRelease {
  void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};
struct FontOptionsRelease {
  void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};

VELGObjectPtr<PangoContext> makeContext(PangoFontMap* fontMap, cairo_hint_style_t hinting) {
  VELGObjectPtr<PangoContext> context(pango_font_map_create_context(fontMap));
  const std::unique_ptr<cairo_font_options_t, FontOptionsRelease> options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options.get(), hinting);
  pango_cairo_context_set_font_options(context.get(), options.get());
  pango_cairo_context_set_resolution(context.get(), 72.0);
  pango_context_set_round_glyph_positions(context.get(), FALSE);
  return context;
}

/// A text on one line, in points: x grows from where the first letter starts, y downwards from the baseline.
struct Line {
  VELGObjectPtr<PangoLayout> layout;
  PangoLayoutLine* line = nullptr;  // owned by the layout
  double left = 0.0, top = 0.0, width = 0.0, height = 0.0;
  double inkHeight = 0.0;
  double reach = 0.0;  // how far ink goes beyond the top or the bottom of the box
};

Line layOut(PangoContext* context, const VELAttributedText& text) {
  Line result;
  const VELPangoText source = VELPangoTextFrom(text);
  if (source.text.empty()) return result;
  result.layout.reset(pango_layout_new(context));
  pango_layout_set_single_paragraph_mode(result.layout.get(), TRUE);
  pango_layout_set_text(result.layout.get(), source.text.data(), static_cast<int>(source.text.size()));
  pango_layout_set_attributes(result.layout.get(), source.attributes.get());
  result.line = pango_layout_get_line_readonly(result.layout.get(), 0);
  if (!result.line) return result;

  PangoRectangle ink{}, logical{};
  pango_layout_line_get_extents(result.line, &ink, &logical);
  const auto points = [](int units) { return static_cast<double>(units) / PANGO_SCALE; };
  // A letter may reach out of its advance (the tail of a j): the box takes the ink in.
  const bool hasInk = ink.width > 0;
  const int left = hasInk ? std::min(ink.x, logical.x) : logical.x;
  const int right =
      std::max(logical.x + logical.width, hasInk ? ink.x + ink.width : logical.x + logical.width);
  result.left = points(left);
  result.width = points(right - left);
  result.top = points(logical.y);
  result.height = points(logical.height);
  result.inkHeight = points(ink.height);
  const int below = ink.y + ink.height - logical.y - logical.height;
  if (ink.height > 0) result.reach = points(std::max({0, logical.y - ink.y, below}));
  return result;
}

/// Whole pixels of a length, bounded, with a margin at both ends.
int maskSide(double points, double scale, int margin) {
  return static_cast<int>(std::min(std::ceil(points * scale - 1e-6) + 2 * margin, kLargestSide));
}

VELTextMask maskFrom(cairo_surface_t* surface, int width, int height) {
  VELTextMask mask;
  cairo_surface_flush(surface);
  const unsigned char* data = cairo_image_surface_get_data(surface);
  if (!data) return mask;
  const int stride = cairo_image_surface_get_stride(surface);
  mask.width = width;
  mask.height = height;
  mask.coverage.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
  for (int y = 0; y < height; ++y)
    std::copy_n(data + static_cast<ptrdiff_t>(y) * stride, width,
                mask.coverage.begin() + static_cast<ptrdiff_t>(y) * width);
  return mask;
}

}  // namespace

VELTextEngine& VELTextEngine::instance() {
  static VELPangoTextEngine engine;
  return engine;
}

VELPangoTextEngine::VELPangoTextEngine()
    : _fontMap(pango_cairo_font_map_new()),
      _measuring(makeContext(_fontMap.get(), CAIRO_HINT_STYLE_NONE)),
      _drawing(makeContext(_fontMap.get(), CAIRO_HINT_STYLE_SLIGHT)) {
  // Asked of fontconfig: Pango itself lists its generic families also where there is no font at all.
  const FcFontSet* fonts = FcConfigGetFonts(nullptr, FcSetSystem);
  _hasFonts = fonts && fonts->nfont > 0;
}

VELSize VELPangoTextEngine::measure(const VELAttributedText& text) {
  if (!_hasFonts) return {};
  const Line line = layOut(_measuring.get(), text);
  return {line.width, line.height};
}

double VELPangoTextEngine::capHeight(const VELFont& font) {
  if (!_hasFonts) return 0.0;
  return layOut(_measuring.get(), {{"H", font, 0.0}}).inkHeight;
}

VELTextMask VELPangoTextEngine::rasterise(const VELAttributedText& text, double scale) {
  if (!_hasFonts || !(scale > 0.0)) return {};
  scale = std::min(scale, kLargestScale);
  // The box comes from the metrics without hinting, so that it is the one that was measured.
  const Line box = layOut(_measuring.get(), text);
  if (!(box.width > 0.0) || !(box.height > 0.0)) return {};

  // The same room above and below, so that the middle of the line stays the middle of the mask.
  const int marginY = kMarginY + static_cast<int>(std::ceil(box.reach * scale));
  const int width = maskSide(box.width, scale, kMarginX), height = maskSide(box.height, scale, marginY);
  const std::unique_ptr<cairo_surface_t, SurfaceRelease> surface(
      cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
  const std::unique_ptr<cairo_t, CairoRelease> cairo(cairo_create(surface.get()));
  // Letters are sharp only when the baseline lies on a whole pixel.
  cairo_translate(cairo.get(), kMarginX + std::ceil(-box.left * scale - 1e-6),
                  marginY + std::round(-box.top * scale));
  cairo_scale(cairo.get(), scale, scale);
  pango_cairo_update_context(cairo.get(), _drawing.get());
  const Line line = layOut(_drawing.get(), text);
  if (!line.line) return {};
  cairo_set_source_rgba(cairo.get(), 1.0, 1.0, 1.0, 1.0);
  pango_cairo_show_layout_line(cairo.get(), line.line);
  return maskFrom(surface.get(), width, height);
}
