// rendering/draw_commands.h: the steps of a replay that draw a range of indices.
#pragma once

#include <cstdint>

#include "velmora/platform/gl.h"
#include "velmora/rendering/drawing_command.h"

/// Draws a range of the 16-bit indices of the selected buffer, as one kind of shape.
class VELDrawIndicesCommand : public VELDrawingCommand {
 public:
  uint32_t start() const { return _start; }
  uint32_t count() const { return _count; }
  void o_performCommand() final;
  void o_increaseCount(int32_t count) final { _count += static_cast<uint32_t>(count); }

 protected:
  VELDrawIndicesCommand(uint32_t mode, uint32_t start, uint32_t count)
      : _mode(mode), _start(start), _count(count) {}

 private:
  uint32_t _mode;   ///< of GL
  uint32_t _start;  ///< first index
  uint32_t _count;  ///< indices
};

/// The one that the queue records: every shape is a triangle strip.
class VELDrawTriangleStripCommand final : public VELDrawIndicesCommand {
 public:
  explicit VELDrawTriangleStripCommand(uint32_t start = 0, uint32_t count = 0)
      : VELDrawIndicesCommand(VELGL_TRIANGLE_STRIP, start, count) {}
};

// The rest of the family serves frames that are put together by hand.

class VELDrawLineCommand final : public VELDrawIndicesCommand {
 public:
  VELDrawLineCommand(uint32_t start, uint32_t count) : VELDrawIndicesCommand(VELGL_LINES, start, count) {}
};

class VELDrawLineLoopCommand final : public VELDrawIndicesCommand {
 public:
  VELDrawLineLoopCommand(uint32_t start, uint32_t count)
      : VELDrawIndicesCommand(VELGL_LINE_LOOP, start, count) {}
};

class VELDrawPolylineCommand final : public VELDrawIndicesCommand {
 public:
  VELDrawPolylineCommand(uint32_t start, uint32_t count)
      : VELDrawIndicesCommand(VELGL_LINE_STRIP, start, count) {}
};

class VELDrawTriangleCommand final : public VELDrawIndicesCommand {
 public:
  VELDrawTriangleCommand(uint32_t start, uint32_t count)
      : VELDrawIndicesCommand(VELGL_TRIANGLES, start, count) {}
};

class VELDrawTriangleFanCommand final : public VELDrawIndicesCommand {
 public:
  VELDrawTriangleFanCommand(uint32_t start, uint32_t count)
      : VELDrawIndicesCommand(VELGL_TRIANGLE_FAN, start, count) {}
};
