// rendering/polyline_primitive.h: a thick line through many points.
//
// Each segment is a quad; the last edge of one and the first edge of the next make the join, all in one
// strip. A segment with an end that is not finite draws nothing and leaves a gap: the strip starts anew
// behind it.
#pragma once

#include <limits>
#include <span>

#include "velmora/rendering/drawing_primitive.h"
#include "velmora/rendering/thick_segment.h"

class VELPolylinePrimitive final : public VELDrawingPrimitive {
 public:
  /// Forgets where the line stands: an extension without a first point draws nothing, it becomes that point.
  void o_reset() { _head = {}; }
  /// The first point, also without a pen: whoever extends goes on from here. @return always 0; without room
  /// the first extension moves to another buffer anyway
  uint32_t o_beginPolylinePrimitiveWithBrush(const VELPenPtr& pen, double x, double y);
  /// The next point. Without a pen the line has a gap up to it. @return vertices written: 4, or 6 where the
  /// strip is turned over
  uint32_t o_extendPolylinePrimitiveWithBrush(const VELPenPtr& pen, double x, double y);
  /// A polyline from point @p start on, as far as the buffer has room. An extension afterwards goes on from
  /// the last point drawn.
  /// @param xs, ys columns of the same length, in points
  /// @return segments consumed; 0 when not even one fits, or with fewer than 2 points left
  uint32_t o_drawPolylinePrimitiveWithBrush(const VELPenPtr& pen, std::span<const double> xs,
                                            std::span<const double> ys, size_t start);

 private:
  struct Batch;
  template <bool variative>
  void p_VEL_drawSegments(Batch& batch, const VELPen2D& pen);

  /// Where the line stands. A batch works on a copy, which the compiler keeps in registers.
  struct Head {
    double _lastX = std::numeric_limits<double>::quiet_NaN();
    double _lastY = std::numeric_limits<double>::quiet_NaN();
    bool _isLastSegmentReversed = false;
    bool _hasSegment = false;       ///< a segment was written since the last start
    bool _startsBehindGap = false;  ///< the next segment must not join the one before

    void moveTo(double x, double y);
    void leaveGap(double x, double y);
    void lineTo(double x, double y);
    bool turnsStrip(double y) const { return _isLastSegmentReversed && _lastY > y; }
  };
  static VELVertex* writeSegment(VELVertex* vertices, double px, double py, double qx, double qy,
                                 const VELThickSegment& edge, const Tint& from, const Tint& to, bool turns);
  Head _head;
};
