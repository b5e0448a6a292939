#include "velmora/platform/pango/text_markup.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr size_t kMostCharacters = 1000;
constexpr double kLargestFont = 250.0;  // points
constexpr const char* kDefaultFamily = "DejaVu Sans, sans-serif";

struct FontDescriptionRelease {
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};

bool isControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; }

int pangoUnits(double points) {
  if (std::isnan(points)) return 0;
  return static_cast<int>(std::lround(std::clamp(points, -kLargestFont, kLargestFont) * PANGO_SCALE));
}

void addAttribute(PangoAttrList* list, PangoAttribute* attribute, size_t begin, size_t end) {
  attribute->start_index = static_cast<guint>(begin);
  attribute->end_index = static_cast<guint>(end);
  pango_attr_list_insert(list, attribute);
}

void addFont(PangoAttrList* list, const VELFont& font, size_t begin, size_t end) {
  const std::unique_ptr<PangoFontDescription, FontDescriptionRelease> description(
      pango_font_description_new());
  const std::string family = VELPlainLine(font.name, kMostCharacters);
  pango_font_description_set_family(description.get(), family.empty() ? kDefaultFamily : family.c_str());
  // Absolute, so that no resolution of a screen comes in: a point is a point.
  pango_font_description_set_absolute_size(description.get(), pangoUnits(font.size));
  pango_font_description_set_weight(description.get(), font.isBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  addAttribute(list, pango_attr_font_desc_new(description.get()), begin, end);
}

}  // namespace

std::string VELPlainLine(std::string_view text, size_t most) {
  // No character has more than four bytes; what is beyond can be left before anything looks at it.
  text = text.substr(0, most * 4);
  const std::unique_ptr<char, decltype(&g_free)> valid(
      g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), &g_free);
  std::string line(valid.get());
  const char* end = line.c_str();
  for (size_t i = 0; i < most && *end != '\0'; ++i) end = g_utf8_next_char(end);
  line.resize(static_cast<size_t>(end - line.c_str()));
  std::replace_if(line.begin(), line.end(), isControl, ' ');
  return line;
}

VELPangoText VELPangoTextFrom(const VELAttributedText& text) {
  VELPangoText result;
  result.attributes.reset(pango_attr_list_new());
  size_t left = kMostCharacters;
  for (const VELTextRun& run : text) {
    if (pangoUnits(run.font.size) <= 0) continue;
    const std::string line = VELPlainLine(run.text, left);
    left -= static_cast<size_t>(g_utf8_strlen(line.data(), static_cast<gssize>(line.size())));
    const size_t begin = result.text.size();
    result.text += line;
    addFont(result.attributes.get(), run.font, begin, result.text.size());
    if (const int rise = pangoUnits(run.baselineOffset); rise != 0)
      addAttribute(result.attributes.get(), pango_attr_rise_new(rise), begin, result.text.size());
  }
  return result;
}
