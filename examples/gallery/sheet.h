// gallery/sheet.h: a picture with one chart or several.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "velmora/velmora.h"

/// A sheet of paper in memory on which charts stand. Units: points; `scale` is pixels per point.
class Sheet {
 public:
  /// @throws std::runtime_error with one sentence when this machine cannot draw
  Sheet(VELSize size, double scale);

  const VELSize& size() const { return _size; }
  /// An empty chart in the cell of a grid of @p columns by @p rows, counted from the top left row by row.
  VELChartSurface& addChart(const std::string& title, int columns = 1, int rows = 1, int cell = 0);
  /// A render surface of its own over the whole sheet, without a chart. @return where to draw
  VELRenderContext2D& addCanvas();
  /// A small text around a centre, or from a left middle on.
  void addLabel(const std::string& text, VELPoint place, bool fromLeft = false);
  /// Draws until nothing changes any more.
  VELBitmap picture();

 private:
  VELSize _size;
  std::shared_ptr<VELOffscreenHost> _host;
  std::vector<std::shared_ptr<VELView>> _views;
};

/// A picture of the gallery.
struct GalleryPicture {
  const char* name;  ///< of the file, without density and ".png"
  VELSize size;      ///< points
  void (*draw)(Sheet& sheet);
};
