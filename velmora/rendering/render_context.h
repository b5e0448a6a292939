// rendering/render_context.h: the drawing operations of axes, series, modifiers and applications.
//
// Drawing records; nothing reaches the screen before the surface replays the recorded frame, which stays in
// place until `clear`. Coordinates are points, origin top left, y downwards, relative to the drawing area.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/rendering/brush.h"

class VELArrayController;
class VELRenderSurface;

/// Records shapes. A null brush and coordinates that are not finite draw nothing.
///
/// No operation raises but for want of memory (`std::bad_alloc`). A recorded frame takes 16 bytes for a
/// vertex and 2 for an index, 4 of each for a segment of a line, in memory and again in GL; what the largest
/// frame took stays for the life of the context. Lines with many more points than pixels are best resampled
/// first.
///
/// While the context replays its frame, which a brush of the application's own sees from inside its `apply`,
/// every operation that draws, `setDrawingArea`, `clear` and `performDrawingCommands` are ignored.
class VELMORA_API VELRenderContext2D {
 public:
  virtual ~VELRenderContext2D() = default;

  /// Marks the context changed and asks its surface for a redraw.
  virtual void invalidate() = 0;
  /// Size of the parent surface's chart frame, in points; zero when the surface is gone.
  virtual VELSize viewportSize() const = 0;
  /// Forgets the recorded frame.
  virtual void clear() = 0;
  /// Replays the recorded frame on the current GL context. A frame recorded for another one, or for none,
  /// draws nothing.
  virtual void performDrawingCommands() = 0;

  /// One segment with square ends.
  virtual void drawLineWithBrush(const VELPenPtr& pen, float fromX, float fromY, float toX, float toY) = 0;
  /// A filled rectangle between two opposite corners.
  virtual void drawRectWithBrush(const VELBrushPtr& brush, float fromX, float fromY, float toX,
                                 float toY) = 0;
  /// A filled triangle.
  virtual void drawTriangleWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2, float y2,
                                     float x3, float y3) = 0;
  /// The outline of an ellipse around (0, 0) as places, from angle 0 on; draws nothing.
  /// @param xData, yData emptied, then filled; unless both hold 32-bit floats they stay empty
  /// @param radiusVertical, radiusHorizontal in points of the screen
  /// @param detalization places in the outline, at most 32766, which is also what a larger number gives;
  /// below
  ///        1 there are none
  virtual void renderEllipseToBufferX(VELArrayController& xData, VELArrayController& yData,
                                      float radiusVertical, float radiusHorizontal, int32_t detalization) = 0;
  /// A filled ellipse around a centre, from an outline as `renderEllipseToBufferX` gives it. Columns that are
  /// no 32-bit floats or differ in length draw nothing.
  virtual void drawEllipseWithBrush(const VELBrushPtr& brush, float centerX, float centerY,
                                    const VELArrayController& xData, const VELArrayController& yData) = 0;
  /// A rectangle filled with the whole texture of a texture brush.
  virtual void drawSpriteWithBrush(const VELBrushPtr& brush, float fromX, float fromY, float toX,
                                   float toY) = 0;
  /// Starts a polyline at a point.
  virtual void beginPolylineWithBrush(const VELPenPtr& pen, float x, float y) = 0;
  /// The next point of the polyline. A point that is not finite leaves a gap.
  virtual void extendPolylineWithBrush(const VELPenPtr& pen, float x, float y) = 0;
  /// A whole polyline from two columns of doubles of the same length, at least 2; anything else draws
  /// nothing. A point that is not finite leaves a gap. Elements are taken in storage order.
  /// @param startingIndex ignored on purpose: a polyline is always drawn from its first point
  virtual void drawPolylineWithBrush(const VELPenPtr& pen, const VELArrayController& xData,
                                     const VELArrayController& yData, int32_t startingIndex) = 0;
  /// Starts the filled area between a line and a base. From here to the last extension nothing else may be
  /// recorded in this context: behind another shape, drawing area or kind of brush the next slice is missing.
  /// @param zero coordinate of the base: a y, on a vertical chart an x
  virtual void beginZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                            bool isVertical) = 0;
  /// The next point of the line, with nothing else recorded since the last one. A point that is not finite
  /// leaves a gap.
  virtual void extendZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                             bool isVertical) = 0;
  /// Starts the filled band between two lines. As above, nothing else may be recorded before its last
  /// extension.
  /// @param brush1 colours it where the second line has the larger coordinate, @p brush2 elsewhere; on a
  ///        vertical chart where the first line has it
  /// @param x place along the X axis: a y on the screen of a vertical chart, where @p y1 and @p y2 are x
  virtual void beginBandAreaWithBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x,
                                       float y1, float y2, bool isVertical) = 0;
  /// The next pair of points, with nothing else recorded since the last one. A point that is not finite
  /// leaves a gap.
  virtual void extendBandAreaWithBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x,
                                        float y1, float y2, bool isVertical) = 0;
  /// Tells that the next shape is unrelated to the last one.
  virtual void beginNewPrimitive() = 0;
  /// Origin and clip of what is drawn from here on; in points, relative to the surface.
  virtual void setDrawingArea(const VELRect& area) = 0;

  /// The redraw callback; its owner holds what it captures weakly.
  virtual const std::function<void()>& invalidated() const = 0;
  virtual void setInvalidated(std::function<void()> invalidated) = 0;
  /// The surface that owns the context, held weakly; null when it is gone.
  virtual std::shared_ptr<VELRenderSurface> parentRenderSurface() const = 0;
  virtual void setParentRenderSurface(const std::shared_ptr<VELRenderSurface>& surface) = 0;
  /// True when something was drawn or cleared since the last replay.
  virtual bool wasChanged() const = 0;
  virtual void setWasChanged(bool changed) = 0;
};
