// axes/label_culling.h: which labels give way when not all have room.
#pragma once

#include <cstdint>
#include <span>

#include "velmora/platform/export.h"

/// A label as the culling sees it. Units: points along the axis.
struct VELLabelExtent {
  double centre = 0.0;
  double size = 0.0;
  int32_t index = 0;    ///< number of the major tick that it belongs to
  bool isShown = true;  ///< the answer
};

/// How often the number of a major can be halved: majors at even strides stand above odd ones, 0 above all.
VELMORA_API int32_t VELLabelPriority(int32_t index);

/// Hides labels until no two come closer than @p spacing.
///
/// Labels are kept in even strides, every, every second, every fourth …, counted by the numbers of their
/// majors: the same majors keep their labels while the axis is panned. Of labels that are given, in the
/// order of their places, at least one is kept.
VELMORA_API void VELCullLabels(std::span<VELLabelExtent> labels, double spacing);
