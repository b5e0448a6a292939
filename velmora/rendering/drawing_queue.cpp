#include "velmora/rendering/drawing_queue.h"

#include "velmora/rendering/brush_shader_controller.h"

void VELOpenGLDrawingQueue::o_clearQueue() {
  _drawingOrder.clear();
  _bufferCommands.clear();
  _shaderCommands.clear();
  _stripCommands.clear();
  _areaCommands.clear();
  _currentBuffer = nullptr;
  _currentBrush.reset();
  _isCurrentGradient = false;
  _runningStrip = nullptr;
  _lastAreaCmd = nullptr;
  _lastDrawCommandType = nothing;
  _lastDrawPrimitiveType = noPrimitive;
  VELBrushShaderController::o_reset(*_shaderAttributes);
}

void VELOpenGLDrawingQueue::o_freeDrawingQueue() {
  o_clearQueue();
  _drawingOrder.shrink_to_fit();
  _bufferCommands = {};
  _shaderCommands = {};
  _stripCommands = {};
  _areaCommands = {};
}

void VELOpenGLDrawingQueue::o_performCommands() {
  VELBrushShaderController::o_reset(*_shaderAttributes);
  for (VELDrawingCommand* const command : _drawingOrder) command->o_performCommand();
}

void VELOpenGLDrawingQueue::o_addDrawingBufferCommandWithBuffer(VELDrawingBuffer* buffer, uint32_t position,
                                                                uint32_t color, uint32_t texture) {
  if (buffer == _currentBuffer) return;
  _currentBuffer = buffer;
  p_VEL_append(_bufferCommands.add({buffer, position, color, texture}), setBuffer);
}

// True when the brush needs neither a row in the atlas nor a shader command.
bool VELOpenGLDrawingQueue::p_VEL_sharesState(const VELBrush2D& brush) const {
  if (!_currentBrush || !_currentBrush->equalsToBrush(brush)) return false;
  return brush.shaderType() != VELShaderType_LinearGradient ||
         _shaderAttributes->sa_brushAtlas.hasRowOf(brush);
}

void VELOpenGLDrawingQueue::p_VEL_addBrush(const VELBrushPtr& brush) {
  _shaderAttributes->sa_brushAtlas.o_addBrush(brush);
  if (_currentBrush && _currentBrush->equalsToBrush(*brush)) return;
  _currentBrush = brush;
  _isCurrentGradient = brush->shaderType() == VELShaderType_LinearGradient;
  p_VEL_append(_shaderCommands.add({brush, _shaderAttributes}), setShader);
}

void VELOpenGLDrawingQueue::p_VEL_addPolyline(uint32_t start, uint32_t amount, bool restart) {
  p_VEL_join(polyline, restart);
  // The first point of a polyline draws nothing yet.
  if (amount != 0) p_VEL_growStrip(start, amount);
}

void VELOpenGLDrawingQueue::p_VEL_addArea(uint32_t start, uint32_t amount, bool restart) {
  p_VEL_join(zeroToLineArea, restart);
  p_VEL_growStrip(start, amount);
}

void VELOpenGLDrawingQueue::o_addSetDrawingAreaComandWithFrame(const VELRect& frame, const VELRect& scissor) {
  const VELSetDrawingAreaCommand command(frame, scissor, _shaderAttributes);
  // No area yet is not a zero area: that one has to clip everything away.
  if (_lastAreaCmd && command.isEqual(_lastAreaCmd)) return;
  _lastAreaCmd = &_areaCommands.add(command);
  p_VEL_append(*_lastAreaCmd, setArea);
}

void VELOpenGLDrawingQueue::p_VEL_addSeparateShape(PrimitiveType type, uint32_t start, uint32_t amount) {
  _lastDrawPrimitiveType = type;
  if (_lastDrawCommandType == drawStrip) p_VEL_insertRestart();
  p_VEL_growStrip(start, amount);
}

// Goes on from a shape of the same kind, or separates a shape from what the running strip drew before.
void VELOpenGLDrawingQueue::p_VEL_join(PrimitiveType type, bool restart) {
  const bool continues =
      !restart && (_lastDrawPrimitiveType == noPrimitive || _lastDrawPrimitiveType == type);
  if (!continues && _lastDrawCommandType == drawStrip) p_VEL_insertRestart();
  _lastDrawPrimitiveType = type;
}

void VELOpenGLDrawingQueue::p_VEL_growStrip(uint32_t start, uint32_t amount) {
  if (_lastDrawCommandType == drawStrip)
    _runningStrip->o_increaseCount(static_cast<int32_t>(amount));
  else
    p_VEL_append(*(_runningStrip = &_stripCommands.add(VELDrawTriangleStripCommand(start, amount))),
                 drawStrip);
}

void VELOpenGLDrawingQueue::p_VEL_append(VELDrawingCommand& command, CommandType type) {
  _drawingOrder.push_back(&command);
  _lastDrawCommandType = type;
}

void VELOpenGLDrawingQueue::p_VEL_insertRestart() {
  if (_currentBuffer)
    _runningStrip->o_increaseCount(static_cast<int32_t>(_currentBuffer->o_insertPrimitiveRestart()));
}
