// Tick lists and ranges as plain numbers: for the tests of this folder.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/numbers.h"
#include "tests/support/reason_of.h"
#include "velmora/data/array_controller.h"
#include "velmora/data/ranges.h"

inline std::vector<double> listOf(const std::shared_ptr<VELArrayController>& list) {
  if (!list) return {};
  const auto values = std::as_const(*list).doubles();
  return {values.begin(), values.end()};
}

inline void expectRange(const VELRangePtr& range, double min, double max) {
  ASSERT_NE(range, nullptr);
  const double tolerance = 1e-9 * std::max(std::abs(min), std::abs(max));
  EXPECT_NEAR(range->minAsDouble(), min, tolerance);
  EXPECT_NEAR(range->maxAsDouble(), max, tolerance);
}
