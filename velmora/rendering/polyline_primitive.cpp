#include "velmora/rendering/polyline_primitive.h"

#include <algorithm>

namespace {

constexpr uint32_t segmentCount = 4;  // vertices, and as many indices, of one segment
constexpr uint32_t turnCount = 2;     // the same, more, where the strip is turned over

}  // namespace

inline void VELPolylinePrimitive::Head::moveTo(double x, double y) { *this = {x, y, false, false, false}; }

inline void VELPolylinePrimitive::Head::leaveGap(double x, double y) {
  *this = {x, y, false, false, _hasSegment || _startsBehindGap};
}

inline void VELPolylinePrimitive::Head::lineTo(double x, double y) {
  // The two edges of a line swap sides when it turns from down to up. Only a line that also runs leftwards is
  // turned over; the other case is left as it is, and the picture of every chart depends on it staying so.
  const bool isReversed = _lastX > x && (y > _lastY || std::abs(_lastY - y) < DBL_EPSILON);
  *this = {x, y, isReversed, true, false};
}

// The segment from P to Q, behind the turned edge at P where the strip is turned over. @return the next place
inline VELVertex* VELPolylinePrimitive::writeSegment(VELVertex* vertices, double px, double py, double qx,
                                                     double qy, const VELThickSegment& edge, const Tint& from,
                                                     const Tint& to, bool turns) {
  const double ax = double{edge.x}, ay = double{edge.y};
  if (turns) {
    *vertices++ = vertex(px - ax, py - ay, from);
    *vertices++ = vertex(px + ax, py + ay, from);
  }
  vertices[0] = vertex(px + ax, py + ay, from);
  vertices[1] = vertex(px - ax, py - ay, from);
  vertices[2] = vertex(qx + ax, qy + ay, to);
  vertices[3] = vertex(qx - ax, qy - ay, to);
  return vertices + segmentCount;
}

uint32_t VELPolylinePrimitive::o_beginPolylinePrimitiveWithBrush(const VELPenPtr& pen, double x, double y) {
  if (!isConnected()) return 0;
  _head.moveTo(x, y);
  // Without a pen the queue hears of no new polyline, so the first segment drawn has to tell it.
  _head._startsBehindGap = !pen;
  if (!pen) return 0;
  _command->o_addBrushCommandWithBrush(pen);
  if (hasRoomFor(0)) _command->o_addDrawPolylineCommandWithStart(indexHead(), 0, true);
  return 0;
}

uint32_t VELPolylinePrimitive::o_extendPolylinePrimitiveWithBrush(const VELPenPtr& pen, double x, double y) {
  if (!isConnected()) return 0;
  if (!pen) {
    _head.leaveGap(x, y);
    return nothingOnPurpose;
  }
  const float thickness = pen->strokeThickness();
  for (const double value : {x, y, _head._lastX, _head._lastY, double{thickness}}) {
    if (VELIsDrawable(value)) continue;
    _head.leaveGap(x, y);
    return nothingOnPurpose;
  }
  const bool turns = _head.turnsStrip(y);
  const uint32_t count = turns ? segmentCount + turnCount : segmentCount;
  if (!hasRoomFor(count)) return 0;

  _command->o_addBrushCommandWithBrush(pen);
  _command->o_addDrawPolylineCommandWithStart(indexHead(), count, _head._startsBehindGap);
  const VELThickSegment edge = VELMakeThickSegment(_head._lastX, _head._lastY, x, y, thickness);
  const Tint to = tintAt(*pen, x, y);
  const Tint from = pen->variativeColor() ? tintAt(*pen, _head._lastX, _head._lastY) : to;
  writeSegment(takeConsecutive(count), _head._lastX, _head._lastY, x, y, edge, from, to, turns);
  _head.lineTo(x, y);
  return count;
}

// What the batch loop reads and moves on, all of it plain values.
struct VELPolylinePrimitive::Batch {
  const double* x;
  const double* y;
  size_t points;    // all of the column
  size_t next;      // the point that the next segment ends at
  uint32_t budget;  // vertices and indices still allowed
  VELVertex* vertices;
  uint16_t* indices;
  uint32_t vertexHead;  // number of the next vertex
};

uint32_t VELPolylinePrimitive::o_drawPolylinePrimitiveWithBrush(const VELPenPtr& pen,
                                                                std::span<const double> xs,
                                                                std::span<const double> ys, size_t start) {
  constexpr uint32_t reserve = 2 * restartMargin;  // one restart now, room for the next one
  const size_t points = std::min(xs.size(), ys.size());
  if (!isConnected() || !pen || start >= points || points - start < 2) return 0;
  VELDrawingBufferInfo& info = _buffer->o_getBufferInfo();
  const uint32_t room =
      static_cast<uint32_t>(info.dbi_bufferSize) - std::max(info.dbi_vertexHead, info.dbi_indexHead);
  if (room < segmentCount + reserve) return 0;

  _head.moveTo(xs[start], ys[start]);
  if (!VELIsDrawable(pen->strokeThickness())) {
    _head.moveTo(xs[points - 1], ys[points - 1]);
    return static_cast<uint32_t>(points - 1 - start);
  }
  _command->o_addBrushCommandWithBrush(pen);
  _command->o_addDrawPolylineCommandWithStart(indexHead(), 0, true);

  const uint32_t firstIndex = info.dbi_indexHead;
  Batch batch = {.x = xs.data(),
                 .y = ys.data(),
                 .points = points,
                 .next = start + 1,
                 .budget = room - reserve,
                 .vertices = _buffer->o_vertexBufferTail(),
                 .indices = _buffer->o_indexBufferTail(),
                 .vertexHead = info.dbi_vertexHead};
  pen->variativeColor() ? p_VEL_drawSegments<true>(batch, *pen) : p_VEL_drawSegments<false>(batch, *pen);

  const auto indices = static_cast<uint32_t>(batch.indices - _buffer->o_indexBufferTail());
  const uint32_t vertices = batch.vertexHead - info.dbi_vertexHead;
  _buffer->o_addVerticesUpdateRange(vertices);
  _buffer->o_addIndicesUpdateRange(indices);
  info.dbi_vertexHead += vertices;
  info.dbi_indexHead += indices;
  _command->o_addDrawPolylineCommandWithStart(firstIndex, indices, false);
  return static_cast<uint32_t>(batch.next - 1 - start);
}

template <bool variative>
void VELPolylinePrimitive::p_VEL_drawSegments(Batch& batch, const VELPen2D& pen) {
  const float thickness = pen.strokeThickness();
  Head head = _head;
  VELVertex* vertices = batch.vertices;
  uint16_t* indices = batch.indices;
  uint32_t number = batch.vertexHead, budget = batch.budget;
  bool isDrawable = VELIsDrawable(head._lastX) && VELIsDrawable(head._lastY);
  Tint to;
  if (!variative || isDrawable) to = tintAt(pen, head._lastX, head._lastY);
  size_t next = batch.next;
  for (; next < batch.points; ++next) {
    const double x = batch.x[next], y = batch.y[next];
    const bool wasDrawable = isDrawable;
    const Tint from = to;
    isDrawable = VELIsDrawable(x) && VELIsDrawable(y);
    if (variative && isDrawable) to = tintAt(pen, x, y);
    if (!(wasDrawable && isDrawable)) {
      head.leaveGap(x, y);
      continue;
    }
    const bool turns = head.turnsStrip(y);
    const uint32_t count = turns ? segmentCount + turnCount : segmentCount;
    const uint32_t cost = head._startsBehindGap ? count + restartMargin : count;
    if (cost > budget) break;
    budget -= cost;
    if (head._startsBehindGap) {
      indices[0] = indices[-1];
      indices[1] = static_cast<uint16_t>(number);
      indices += restartMargin;
    }
    const VELThickSegment edge = VELMakeThickSegment(head._lastX, head._lastY, x, y, thickness);
    vertices = writeSegment(vertices, head._lastX, head._lastY, x, y, edge, from, to, turns);
    for (uint32_t i = 0; i < count; ++i) indices[i] = static_cast<uint16_t>(number + i);
    indices += count;
    number += count;
    head.lineTo(x, y);
  }
  _head = head;
  batch.next = next;
  batch.vertexHead = number;
  batch.indices = indices;
}
