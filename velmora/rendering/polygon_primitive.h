// rendering/polygon_primitive.h: the inside of any simple polygon, by clipping ears.
#pragma once

#include <cstdint>
#include <span>

#include "velmora/platform/geometry.h"
#include "velmora/rendering/brush.h"
#include "velmora/rendering/drawing_buffer.h"
#include "velmora/rendering/drawing_queue.h"

/// Writes a polygon straight into a buffer, for who fills buffers without a render context.
///
/// Method: an ear is a corner that turns inwards and whose triangle holds no other point; cutting off ear by
/// ear leaves triangles only (G. H. Meisters, "Polygons have ears", 1975). Always ends, after at most
/// 3 × points tests; a polygon that crosses itself is filled as far as it has ears.
class VELPolygonPrimitive {
 public:
  VELPolygonPrimitive() = delete;

  /// With a solid brush the filled polygon. With any other brush its points become vertices without indices:
  /// they show nothing by themselves and are there for indices of the caller's own.
  /// @param buffer the current one of @p command
  /// @param points corners in order, either way round, in points; at most 65535
  /// @return the number of points, or 0 when nothing was written: without a brush, with fewer than 3 points
  ///         or too many, with one that is not finite, and when the buffer lacks room
  static uint32_t DrawPolygonToBuffer(VELDrawingBuffer& buffer, VELOpenGLDrawingQueue& command,
                                      const VELBrushPtr& brush, std::span<const VELPoint> points);
  /// The filled polygon in the brush's one colour: every triangle is a piece of the strip, joined to the one
  /// before. Arguments and result as `DrawPolygonToBuffer`.
  static uint32_t triangulateToBuffer(VELDrawingBuffer& buffer, VELOpenGLDrawingQueue& command,
                                      const VELBrushPtr& brush, std::span<const VELPoint> points);

  /// True when the point lies on the inner side of the edges b→c, c→a and a→b or on them, for a triangle that
  /// runs clockwise on the screen. In single precision.
  static bool pointInTriangle(VELPoint a, VELPoint b, VELPoint c, VELPoint point);
  /// True when a point that is none of the corners lies inside the box around the triangle and in the
  /// triangle. (The spelling is part of the interface.)
  /// @param i, j, k numbers of the corners
  static bool isTriangleInPoligon(size_t i, size_t j, size_t k, std::span<const VELPoint> points);
  /// True when the corner b on the way from a to c turns clockwise on the screen; a corner within 1e-5 of
  /// straight does not turn.
  static bool connectionAllowed(VELPoint a, VELPoint b, VELPoint c);
};
