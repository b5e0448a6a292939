// rendering/drawing_command.h: one step of a recorded frame.
#pragma once

#include <cstdint>

/// A step of the replay. The GL context must be current while it is performed.
class VELDrawingCommand {
 public:
  VELDrawingCommand() = default;
  virtual ~VELDrawingCommand() = default;
  virtual void o_performCommand() = 0;
  /// Draws so many more indices; commands that draw none ignore it.
  virtual void o_increaseCount(int32_t /*count*/) {}

 protected:
  VELDrawingCommand(const VELDrawingCommand&) = default;
  VELDrawingCommand& operator=(const VELDrawingCommand&) = default;
};
