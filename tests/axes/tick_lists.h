// Tick lists as plain numbers: for the tests of this folder.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "velmora/data/array_controller.h"

inline std::vector<double> listOf(const std::shared_ptr<VELArrayController>& list) {
  if (!list) return {};
  const auto values = std::as_const(*list).doubles();
  return {values.begin(), values.end()};
}
