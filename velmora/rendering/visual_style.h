// rendering/visual_style.h: how a chart looks when nobody says otherwise.
//
// One place for every colour, width, font size and distance, so that a theme replaces all of it at once.
// Units: points; colours are codes 0xAABBGGRR; pen widths are full widths of what is seen.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "velmora/platform/export.h"

/// A colour code from the notation that designers write: 0xRRGGBB and an alpha from 0 to 255.
constexpr uint32_t VELColorCodeFromRGB(uint32_t rgb, uint32_t alpha = 255) {
  return alpha << 24 | (rgb & 0xFFu) << 16 | (rgb & 0xFF00u) | (rgb >> 16 & 0xFFu);
}

/// The look of a chart. Values only; shared by everything that draws.
struct VELVisualStyle {
  // Surfaces.
  uint32_t background = VELColorCodeFromRGB(0xF4F6F9);
  uint32_t chartArea = VELColorCodeFromRGB(0xFFFFFF);
  uint32_t chartBorder = VELColorCodeFromRGB(0xAEB7C4);
  double chartBorderWidth = 1.0;

  // Grid: bands faintest, minor lines next, major lines strongest, all below any series colour.
  uint32_t axisBand = VELColorCodeFromRGB(0x6B84A8, 14);
  uint32_t minorGrid = VELColorCodeFromRGB(0x5A6E8C, 26);
  uint32_t majorGrid = VELColorCodeFromRGB(0x5A6E8C, 72);
  double gridWidth = 1.0;

  // Ticks stand outside the chart frame.
  uint32_t minorTick = VELColorCodeFromRGB(0xAEB7C4);
  uint32_t majorTick = VELColorCodeFromRGB(0x7C8797);
  double tickWidth = 1.0;
  double minorTickLength = 3.0;
  double majorTickLength = 6.0;

  // Text.
  uint32_t labelColor = VELColorCodeFromRGB(0x4A5464);
  uint32_t axisTitleColor = VELColorCodeFromRGB(0x2E3744);
  uint32_t chartTitleColor = VELColorCodeFromRGB(0x1B222C);
  double labelFontSize = 11.0;
  double axisTitleFontSize = 12.0;
  double chartTitleFontSize = 15.0;
  double labelGap = 4.0;         ///< from tick to label
  double axisTitleGap = 6.0;     ///< from labels to axis title
  double minLabelSpacing = 4.0;  ///< between two labels of one axis

  // The chart inside its view.
  double padding = 10.0;
  double chartTitleGap = 8.0;

  /// Line width of a series, in points.
  double seriesLineWidth = 1.5;

  /// Eight series colours, in the order of use. Each has a contrast of 3:1 and more on `chartArea`, and any
  /// two of them differ for normal, red-blind, green-blind and blue-blind eyes (held by a test).
  std::array<uint32_t, 8> seriesPalette = {VELColorCodeFromRGB(0x0076CB), VELColorCodeFromRGB(0xC54800),
                                           VELColorCodeFromRGB(0x0A8A64), VELColorCodeFromRGB(0xA73D8F),
                                           VELColorCodeFromRGB(0xB08E4C), VELColorCodeFromRGB(0x299CD3),
                                           VELColorCodeFromRGB(0x492988), VELColorCodeFromRGB(0x2E343D)};

  /// The colour of the series at a position; begins again after the eighth.
  uint32_t seriesColor(size_t position) const { return seriesPalette[position % seriesPalette.size()]; }

  /// The one style of this version.
  VELMORA_API static const VELVisualStyle& standard();
};
