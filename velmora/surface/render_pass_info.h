// surface/render_pass_info.h: everything that one pass knows.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "velmora/data/recycled.h"
#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"

class VELCoordinateCalculator;
class VELRenderPassData;

/// The calculators of all axes and the records of all series of one pass. Lives for that pass alone.
class VELMORA_API VELRenderPassInfo {
 public:
  /// Axis id to the calculator that the axis had when the pass was prepared.
  using Calculators =
      std::map<std::string, std::shared_ptr<VELCoordinateCalculator>, std::less<>,
               VELRecyclingAllocator<std::pair<const std::string, std::shared_ptr<VELCoordinateCalculator>>>>;

  Calculators& xCalculators() { return _xCalculators; }
  const Calculators& xCalculators() const { return _xCalculators; }
  Calculators& yCalculators() { return _yCalculators; }
  const Calculators& yCalculators() const { return _yCalculators; }

  /// Records stand in the order of the surface's series; null beyond them.
  std::shared_ptr<const VELRenderPassData> renderPassDataAt(int32_t index) const;
  void addRenderPassData(std::shared_ptr<const VELRenderPassData> data);
  /// Replaces a record; an index beyond them is ignored.
  void setRenderPassData(std::shared_ptr<const VELRenderPassData> data, int32_t index);
  /// No records and no calculators any more; room for the records is kept.
  void clear();
  int32_t renderPassDataCount() const { return static_cast<int32_t>(_renderData.size()); }

  /// Size of the chart frame in points.
  const VELSize& viewportSize() const { return _viewportSize; }
  void setViewportSize(const VELSize& size) { _viewportSize = size; }
  const VELPoint& viewportOrigin() const { return _viewportOrigin; }
  void setViewportOrigin(const VELPoint& origin) { _viewportOrigin = origin; }

 private:
  Calculators _xCalculators;
  Calculators _yCalculators;
  std::vector<std::shared_ptr<const VELRenderPassData>> _renderData;
  VELSize _viewportSize;
  VELPoint _viewportOrigin;
};
