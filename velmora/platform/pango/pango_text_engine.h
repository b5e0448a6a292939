// platform/pango/pango_text_engine.h: text by Pango and Cairo.
#pragma once

#include <pango/pangocairo.h>

#include <memory>

#include "velmora/platform/text.h"

/// Frees what a GObject library handed out.
struct VELGObjectRelease {
  void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using VELGObjectPtr = std::unique_ptr<Object, VELGObjectRelease>;

/// Lays text out in points, with metrics that no hinting rounds, so that a layout is the same at every scale;
/// only when it draws does it fit letters to the pixel grid.
class VELPangoTextEngine : public VELTextEngine {
 public:
  VELPangoTextEngine();

  bool hasFonts() override { return _hasFonts; }
  VELSize measure(const VELAttributedText& text) override;
  double capHeight(const VELFont& font) override;
  VELTextMask rasterise(const VELAttributedText& text, double scale) override;

 private:
  VELGObjectPtr<PangoFontMap> _fontMap;
  VELGObjectPtr<PangoContext> _measuring;
  VELGObjectPtr<PangoContext> _drawing;
  bool _hasFonts = false;
};
