#include "velmora/rendering/polyline_primitive.h"

#include <algorithm>

#include "velmora/rendering/thick_segment.h"

namespace {

constexpr uint32_t segmentCount = 4;  // vertices, and as many indices, of one segment
constexpr uint32_t turnCount = 2;     // the same, more, where the strip is turned over

// The two edges of a line swap sides when it turns from down to up. Only a line that also runs leftwards is
// turned over; the other case is left as it is, and the picture of every chart depends on it staying so.
bool isReversed(double px, double py, double qx, double qy) {
  return px > qx && (qy > py || std::abs(py - qy) < DBL_EPSILON);
}

}  // namespace

uint32_t VELPolylinePrimitive::o_beginPolylinePrimitiveWithBrush(const VELPenPtr& pen, double x, double y) {
  if (!isConnected() || !pen) return 0;
  p_VEL_moveTo(x, y);
  _command->o_addBrushCommandWithBrush(pen);
  if (hasRoomFor(0)) _command->o_addDrawPolylineCommandWithStart(indexHead(), 0, true);
  return 0;
}

uint32_t VELPolylinePrimitive::o_extendPolylinePrimitiveWithBrush(const VELPenPtr& pen, double x, double y) {
  if (!isConnected()) return 0;
  if (!pen) return nothingOnPurpose;
  const float thickness = pen->strokeThickness();
  for (const double value : {x, y, _lastX, _lastY, double{thickness}}) {
    if (VELIsDrawable(value)) continue;
    p_VEL_leaveGap(x, y);
    return nothingOnPurpose;
  }
  const bool turns = p_VEL_turnsStrip(y);
  const uint32_t count = turns ? segmentCount + turnCount : segmentCount;
  if (!hasRoomFor(count)) return 0;

  _command->o_addBrushCommandWithBrush(pen);
  _command->o_addDrawPolylineCommandWithStart(indexHead(), count, _startsBehindGap);
  const VELThickSegment edge = VELMakeThickSegment(_lastX, _lastY, x, y, thickness);
  const Tint to = tintAt(*pen, x, y);
  const Tint from = pen->variativeColor() ? tintAt(*pen, _lastX, _lastY) : to;
  VELVertex* vertices = takeConsecutive(count);
  if (turns) {
    *vertices++ = vertex(_lastX - double{edge.x}, _lastY - double{edge.y}, from);
    *vertices++ = vertex(_lastX + double{edge.x}, _lastY + double{edge.y}, from);
  }
  vertices[0] = vertex(_lastX + double{edge.x}, _lastY + double{edge.y}, from);
  vertices[1] = vertex(_lastX - double{edge.x}, _lastY - double{edge.y}, from);
  vertices[2] = vertex(x + double{edge.x}, y + double{edge.y}, to);
  vertices[3] = vertex(x - double{edge.x}, y - double{edge.y}, to);
  p_VEL_lineTo(x, y);
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

  p_VEL_moveTo(xs[start], ys[start]);
  if (!VELIsDrawable(pen->strokeThickness())) {
    p_VEL_moveTo(xs[points - 1], ys[points - 1]);
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
  Tint to = tintAt(pen, _lastX, _lastY);
  for (; batch.next < batch.points; ++batch.next) {
    const double x = batch.x[batch.next], y = batch.y[batch.next];
    if (!(VELIsDrawable(x) && VELIsDrawable(y) && VELIsDrawable(_lastX) && VELIsDrawable(_lastY))) {
      p_VEL_leaveGap(x, y);
      continue;
    }
    const bool turns = p_VEL_turnsStrip(y);
    const uint32_t count = turns ? segmentCount + turnCount : segmentCount;
    const uint32_t cost = _startsBehindGap ? count + restartMargin : count;
    if (cost > batch.budget) return;
    batch.budget -= cost;
    if (_startsBehindGap) {
      batch.indices[0] = batch.indices[-1];
      batch.indices[1] = static_cast<uint16_t>(batch.vertexHead);
      batch.indices += restartMargin;
    }

    const VELThickSegment edge = VELMakeThickSegment(_lastX, _lastY, x, y, thickness);
    const Tint from = to;
    if constexpr (variative) to = tintAt(pen, x, y);
    const double ax = edge.x, ay = edge.y;
    VELVertex* vertices = batch.vertices;
    if (turns) {
      *vertices++ = vertex(_lastX - ax, _lastY - ay, from);
      *vertices++ = vertex(_lastX + ax, _lastY + ay, from);
    }
    vertices[0] = vertex(_lastX + ax, _lastY + ay, from);
    vertices[1] = vertex(_lastX - ax, _lastY - ay, from);
    vertices[2] = vertex(x + ax, y + ay, to);
    vertices[3] = vertex(x - ax, y - ay, to);
    for (uint32_t i = 0; i < count; ++i) batch.indices[i] = static_cast<uint16_t>(batch.vertexHead + i);
    batch.vertices += count;
    batch.indices += count;
    batch.vertexHead += count;
    p_VEL_lineTo(x, y);
  }
}

void VELPolylinePrimitive::p_VEL_moveTo(double x, double y) {
  _lastX = x;
  _lastY = y;
  _isLastSegmentReversed = _hasSegment = _startsBehindGap = false;
}

void VELPolylinePrimitive::p_VEL_leaveGap(double x, double y) {
  const bool joined = _hasSegment || _startsBehindGap;
  p_VEL_moveTo(x, y);
  _startsBehindGap = joined;
}

void VELPolylinePrimitive::p_VEL_lineTo(double x, double y) {
  _isLastSegmentReversed = isReversed(_lastX, _lastY, x, y);
  _lastX = x;
  _lastY = y;
  _hasSegment = true;
  _startsBehindGap = false;
}
