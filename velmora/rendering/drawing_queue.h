// rendering/drawing_queue.h: which shapes of a recorded frame share a draw call.
//
// Shapes with the same brush, area and buffer merge into one triangle strip, joined by triangles without
// area.
#pragma once

#include <cstdint>
#include <vector>

#include "velmora/platform/geometry.h"
#include "velmora/rendering/brush.h"
#include "velmora/rendering/command_pool.h"
#include "velmora/rendering/draw_commands.h"
#include "velmora/rendering/state_commands.h"

/// The commands of one render context. A primitive announces its brush, then its shape with the index head as
/// start and the number of indices that it is about to write as amount.
///
/// Always true: a frame as large as one before allocates nothing.
class VELOpenGLDrawingQueue {
 public:
  /// @param attributes shared by the commands; not owned, outlive the queue
  explicit VELOpenGLDrawingQueue(VELShaderAttributes& attributes) : _shaderAttributes(&attributes) {}
  VELOpenGLDrawingQueue(const VELOpenGLDrawingQueue&) = delete;
  VELOpenGLDrawingQueue& operator=(const VELOpenGLDrawingQueue&) = delete;

  /// Forgets the frame; the memory of its commands is kept for the next one.
  void o_clearQueue();
  /// Forgets the frame and gives the memory back.
  void o_freeDrawingQueue();
  /// Replays the frame: no program is assumed active, then every command in order.
  void o_performCommands();
  /// Does nothing: what may be merged is decided shape by shape.
  void o_beginNewPrimitive() {}

  /// @param buffer not owned, lives until the queue is cleared; the current one again is ignored
  void o_addDrawingBufferCommandWithBuffer(VELDrawingBuffer* buffer, uint32_t position, uint32_t color,
                                           uint32_t texture);
  template <typename Brush>
  void o_addBrushCommandWithBrush(const std::shared_ptr<Brush>& brush);
  /// For a brush that colours vertices of a shape whose shader another brush chooses: a gradient gets its row
  /// in the atlas, and no command is recorded.
  void o_registerBrush(const VELBrushPtr& brush) {
    if (brush && brush->shaderType() == VELShaderType_LinearGradient)
      _shaderAttributes->sa_brushAtlas.o_addBrush(brush);
  }
  /// @param restart true where the shape does not go on from the last one
  void o_addDrawPolylineCommandWithStart(uint32_t start, uint32_t amount, bool restart) {
    // The common case of every point of a line: it costs one addition.
    if (p_VEL_goesOn(polyline, restart)) return _runningStrip->o_increaseCount(static_cast<int32_t>(amount));
    p_VEL_addPolyline(start, amount, restart);
  }
  void o_addDrawLineCommandWithStart(uint32_t start, uint32_t amount) {
    p_VEL_addSeparateShape(line, start, amount);
  }
  void o_addDrawRectCommandWithStart(uint32_t start, uint32_t amount) {
    p_VEL_addSeparateShape(rectangle, start, amount);
  }
  void o_addDrawTriangleCommandWithStart(uint32_t start, uint32_t amount) {
    p_VEL_addSeparateShape(triangle, start, amount);
  }
  void o_addFillEllipseCommandWithStart(uint32_t start, uint32_t amount) {
    p_VEL_addSeparateShape(filledEllipse, start, amount);
  }
  /// @param restart true where the area does not go on from the last one
  void o_addZeroToLineAreaCommandWithStart(uint32_t start, uint32_t amount, bool restart) {
    if (p_VEL_goesOn(zeroToLineArea, restart))
      return _runningStrip->o_increaseCount(static_cast<int32_t>(amount));
    p_VEL_addArea(start, amount, restart);
  }
  /// An area equal to the last one is dropped; the first one never is. (The spelling is part of the
  /// interface.)
  void o_addSetDrawingAreaComandWithFrame(const VELRect& frame, const VELRect& scissor);

  /// The recorded frame, in order.
  const std::vector<VELDrawingCommand*>& drawingOrder() const { return _drawingOrder; }

 private:
  enum PrimitiveType : uint64_t {
    noPrimitive = 0,
    line = 1,
    rectangle = 2,
    triangle = 3,
    polyline = 4,
    zeroToLineArea = 5,
    filledEllipse = 6,
  };
  enum CommandType : uint64_t { nothing = 0, setBuffer = 1, setShader = 2, drawStrip = 3, setArea = 4 };

  bool p_VEL_sharesState(const VELBrush2D& brush) const;
  void p_VEL_addBrush(const VELBrushPtr& brush);
  void p_VEL_addPolyline(uint32_t start, uint32_t amount, bool restart);
  void p_VEL_addArea(uint32_t start, uint32_t amount, bool restart);
  void p_VEL_addSeparateShape(PrimitiveType type, uint32_t start, uint32_t amount);
  void p_VEL_join(PrimitiveType type, bool restart);
  void p_VEL_growStrip(uint32_t start, uint32_t amount);
  bool p_VEL_goesOn(PrimitiveType type, bool restart) const {
    return !restart && _lastDrawCommandType == drawStrip && _lastDrawPrimitiveType == type;
  }
  void p_VEL_append(VELDrawingCommand& command, CommandType type);
  void p_VEL_insertRestart();

  std::vector<VELDrawingCommand*> _drawingOrder;
  PrimitiveType _lastDrawPrimitiveType = noPrimitive;
  CommandType _lastDrawCommandType = nothing;
  VELDrawTriangleStripCommand* _runningStrip = nullptr;  ///< the last one, valid while it is the last command
  VELSetDrawingAreaCommand* _lastAreaCmd = nullptr;
  VELBrushPtr _currentBrush;
  bool _isCurrentGradient = false;
  VELShaderAttributes* _shaderAttributes;
  VELDrawingBuffer* _currentBuffer = nullptr;
  VELCommandPool<VELSetDrawingBufferCommand> _bufferCommands;
  VELCommandPool<VELSetShaderCommand> _shaderCommands;
  VELCommandPool<VELDrawTriangleStripCommand> _stripCommands;
  VELCommandPool<VELSetDrawingAreaCommand> _areaCommands;
};

template <typename Brush>
inline void VELOpenGLDrawingQueue::o_addBrushCommandWithBrush(const std::shared_ptr<Brush>& brush) {
  // A polyline asks this for every point: the answer "nothing to do" must cost no reference count.
  if (!brush) return;
  const bool isCurrent = brush.get() == _currentBrush.get();
  // Drawn with in another context in between, a gradient knows the row that it has there.
  if (isCurrent && (!_isCurrentGradient || _shaderAttributes->sa_brushAtlas.hasRowOf(*brush))) return;
  if (!p_VEL_sharesState(*brush)) p_VEL_addBrush(brush);
}
