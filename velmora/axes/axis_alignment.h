// axes/axis_alignment.h: the side of the chart frame on which an axis stands.
#pragma once

#include <cstdint>

/// Side of an axis; the default is the bottom for X axes and the right for Y axes.
enum VELAxisAlignment : int32_t {
  VELAxisAlignment_Default = 0,
  VELAxisAlignment_Right = 1,
  VELAxisAlignment_Left = 2,
  VELAxisAlignment_Top = 3,
  VELAxisAlignment_Bottom = 4,
};

/// Whether an axis on this side runs horizontally.
constexpr bool VELIsHorizontal(VELAxisAlignment alignment) {
  return alignment == VELAxisAlignment_Top || alignment == VELAxisAlignment_Bottom;
}
