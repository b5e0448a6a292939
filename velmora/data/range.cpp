#include "velmora/data/range.h"

#include <cstdio>
#include <ostream>

#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"

VELRange::~VELRange() = default;

std::shared_ptr<VELDoubleRange> VELRange::asDoubleRange() const {
  auto range = VELMakeRecycled<VELDoubleRange>();
  range->setMinTo(minAsDouble(), maxAsDouble());
  return range;
}

std::string VELRange::description() const {
  char bounds[80];
  std::snprintf(bounds, sizeof bounds, " [%.17g, %.17g]", minAsDouble(), maxAsDouble());
  return std::string(className()) + bounds;
}

std::ostream& operator<<(std::ostream& out, const VELRange& range) { return out << range.description(); }
