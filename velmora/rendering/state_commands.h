// rendering/state_commands.h: the steps of a replay that change what the next shapes are drawn with.
//
// Commands hold what they need without owning it, brushes excepted: buffers and attributes belong to the
// render context and outlive its recorded frame. A default command does nothing.
#pragma once

#include <cstdint>

#include "velmora/platform/geometry.h"
#include "velmora/rendering/brush.h"
#include "velmora/rendering/drawing_buffer.h"
#include "velmora/rendering/drawing_command.h"
#include "velmora/rendering/shader_attributes.h"

/// Selects a buffer, uploads what is new in it and points the attribute slots at it.
class VELSetDrawingBufferCommand final : public VELDrawingCommand {
 public:
  VELSetDrawingBufferCommand() = default;
  VELSetDrawingBufferCommand(VELDrawingBuffer* buffer, uint32_t position, uint32_t color, uint32_t texture)
      : _buffer(buffer), _position(position), _color(color), _texture(texture) {}
  void o_performCommand() override;

 private:
  VELDrawingBuffer* _buffer = nullptr;
  uint32_t _position = 0, _color = 0, _texture = 0;  ///< attribute slots
};

/// Applies a brush: the form that the queue records.
class VELSetShaderCommand final : public VELDrawingCommand {
 public:
  VELSetShaderCommand() = default;
  VELSetShaderCommand(VELBrushPtr brush, VELShaderAttributes* attributes)
      : _brush(std::move(brush)), _attributes(attributes) {}
  void o_performCommand() override;

 private:
  VELBrushPtr _brush;
  VELShaderAttributes* _attributes = nullptr;
};

/// Applies a brush: the form for frames that are put together by hand.
class VELSetBrushCommand final : public VELDrawingCommand {
 public:
  VELSetBrushCommand(VELBrushPtr brush, VELShaderAttributes* attributes)
      : _brush(std::move(brush)), _attributes(attributes) {}
  void o_performCommand() override;

 private:
  VELBrushPtr _brush;
  VELShaderAttributes* _attributes = nullptr;
};

/// Switches blending. Modes: 1 on, with the blend function of every frame; 0 off; others change nothing.
class VELAlphaBlendingModeCommand final : public VELDrawingCommand {
 public:
  explicit VELAlphaBlendingModeCommand(uint64_t mode) : _mode(mode) {}
  uint64_t blendingMode() const { return _mode; }
  void o_performCommand() override;

 private:
  uint64_t _mode = 1;
};

/// Moves the origin and clips.
class VELSetDrawingAreaCommand final : public VELDrawingCommand {
 public:
  VELSetDrawingAreaCommand() = default;
  /// @param frame origin of the coordinates, in points; @param scissor clip in pixels from the bottom left
  VELSetDrawingAreaCommand(const VELRect& frame, const VELRect& scissor, VELShaderAttributes* attributes)
      : _frame(frame), _scissor(scissor), _attributes(attributes) {}
  const VELRect& frame() const { return _frame; }
  const VELRect& scissor() const { return _scissor; }
  /// Frame and scissor field by field; null compares as zero rectangles.
  bool isEqual(const VELSetDrawingAreaCommand* other) const;
  void o_performCommand() override;

 private:
  VELRect _frame;
  VELRect _scissor;
  VELShaderAttributes* _attributes = nullptr;
};
