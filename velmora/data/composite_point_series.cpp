#include "velmora/data/composite_point_series.h"

#include <algorithm>
#include <limits>
#include <typeinfo>
#include <utility>

#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"
#include "velmora/platform/exception.h"

namespace {

using Parts = std::vector<std::shared_ptr<VELPointSeries>>;

/// A class of its own might answer columns that it does not fill.
bool isPlain(const std::shared_ptr<VELPointSeries>& part) {
  const VELPointSeries* const points = part.get();
  return points != nullptr && typeid(*points) == typeid(VELPointSeries) &&
         points->xValues() != points->yValues();
}

bool fitTogether(const VELPointSeries& a, const VELPointSeries& b) {
  return a.xValues() == b.xValues() && a.indices() == b.indices() && a.yValues() != b.yValues() &&
         a.count() == b.count();
}

/// The part that lends its columns, of parts that make one series.
const VELPointSeries& mainOf(const Parts& parts, size_t main) {
  for (auto part = parts.begin(); part != parts.end(); ++part) {
    const auto fits = [part](const auto& before) { return fitTogether(*before, **part); };
    if (isPlain(*part) && std::all_of(parts.begin(), part, fits)) continue;
    throw VELInvalidArgumentException(
        "A composite of PointSeries needs plain ones of equal count that share their columns of x and "
        "indices and have each a column of y");
  }
  return *parts[main];
}

}  // namespace

VELCompositePointSeries::VELCompositePointSeries(Parts parts, size_t main, size_t partsAlongY)
    : VELPointSeries(mainOf(parts, main).xValues(), mainOf(parts, main).yValues(),
                     mainOf(parts, main).indices()),
      _parts(std::move(parts)),
      _partsAlongY(partsAlongY) {}

Parts VELCompositePointSeries::makeParts(size_t count, int64_t capacity) {
  const auto x = VELArrayController::initWithType(VELDataType_Double, capacity);
  const auto indices = VELArrayController::initWithType(VELDataType_Int32, capacity);
  Parts parts(count);
  for (auto& part : parts) {
    const auto y = VELArrayController::initWithType(VELDataType_Double, capacity);
    part = std::make_shared<VELPointSeries>(x, y, indices);
  }
  return parts;
}

int64_t VELCompositePointSeries::count() const {
  int64_t count = VELPointSeries::count();
  for (const auto& part : _parts) count = std::min(count, part->yValues()->count());
  return count;
}

void VELCompositePointSeries::clear() {
  for (const auto& part : _parts) part->clear();
}

VELRangePtr VELCompositePointSeries::getYRange() const {
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -lowest;
  for (size_t part = 0; part < _partsAlongY; ++part) {
    double min = 0.0;
    double max = 0.0;
    valuesOf(part)->getRangeMin(min, max);
    // A column without a number reports the pair the wrong way round.
    if (!(min <= max)) continue;
    lowest = std::min(lowest, min);
    highest = std::max(highest, max);
  }
  if (!(lowest <= highest)) return VELMakeRecycled<VELDoubleRange>();
  return VELMakeRecycled<VELDoubleRange>(lowest, highest);
}

void VELCompositePointSeries::setCount(int64_t count) {
  for (const auto& part : _parts) part->setCount(count);
}

bool VELCompositePointSeries::hasHolders() const {
  // This series and every part hold x and indices, this series and one part hold the y.
  const auto holders = static_cast<int64_t>(_parts.size()) + 1;
  const auto isHeld = [this](const auto& part) {
    const int64_t own = part->yValues() == yValues() ? 2 : 1;
    return part.use_count() > 1 || part->yValues().use_count() > own;
  };
  return xValues().use_count() > holders || indices().use_count() > holders ||
         std::any_of(_parts.begin(), _parts.end(), isHeld);
}

std::span<const double> VELCompositePointSeries::spanOf(size_t part) const {
  return valuesOf(part)->doubles().first(static_cast<size_t>(count()));
}

void VELCompositePointSeries::addPoint(double x, std::initializer_list<double> values, int32_t index) {
  xValues()->append(x);
  const double* value = values.begin();
  for (const auto& part : _parts) part->yValues()->append(*value++);
  indices()->append(index);
}
