// platform/pango/text_markup.h: attributed text as Pango wants it.
#pragma once

#include <pango/pango.h>

#include <memory>
#include <string>
#include <string_view>

#include "velmora/platform/text.h"

struct VELPangoAttrListRelease {
  void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
};

/// One string and its fonts by byte ranges.
struct VELPangoText {
  std::string text;
  std::unique_ptr<PangoAttrList, VELPangoAttrListRelease> attributes;
};

/// Valid UTF-8 of at most @p most characters: bytes that are none become replacement characters, control
/// characters spaces.
std::string VELPlainLine(std::string_view text, size_t most);

/// Leaves out runs that have no letters or no positive font size.
VELPangoText VELPangoTextFrom(const VELAttributedText& text);
