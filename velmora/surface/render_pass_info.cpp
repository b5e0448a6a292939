#include "velmora/surface/render_pass_info.h"

#include <utility>

std::shared_ptr<const VELRenderPassData> VELRenderPassInfo::renderPassDataAt(int32_t index) const {
  if (index < 0 || index >= renderPassDataCount()) return nullptr;
  return _renderData[static_cast<size_t>(index)];
}

void VELRenderPassInfo::addRenderPassData(std::shared_ptr<const VELRenderPassData> data) {
  _renderData.push_back(std::move(data));
}

void VELRenderPassInfo::setRenderPassData(std::shared_ptr<const VELRenderPassData> data, int32_t index) {
  if (index < 0 || index >= renderPassDataCount()) return;
  _renderData[static_cast<size_t>(index)] = std::move(data);
}

void VELRenderPassInfo::clear() {
  _xCalculators.clear();
  _yCalculators.clear();
  _renderData.clear();
  _viewportSize = {};
  _viewportOrigin = {};
}
