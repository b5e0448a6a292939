#include "velmora/axes/axis_collection.h"

#include <algorithm>
#include <string>

#include "velmora/platform/exception.h"

std::shared_ptr<VELAxisBase> VELAxisCollection::itemAt(int32_t index) const {
  return index >= 0 && index < count() ? _axes[static_cast<size_t>(index)] : nullptr;
}

void VELAxisCollection::addItem(const std::shared_ptr<VELAxisBase>& axis) {
  if (axis) _axes.push_back(axis);
}

void VELAxisCollection::insertItem(const std::shared_ptr<VELAxisBase>& axis, int32_t at) {
  if (axis && at >= 0 && at <= count()) _axes.insert(_axes.begin() + at, axis);
}

bool VELAxisCollection::contains(const std::shared_ptr<VELAxisBase>& axis) const {
  return std::find(_axes.begin(), _axes.end(), axis) != _axes.end();
}

void VELAxisCollection::removeItem(const std::shared_ptr<VELAxisBase>& axis) { std::erase(_axes, axis); }

void VELAxisCollection::removeItemAt(int32_t index) {
  if (index >= 0 && index < count()) _axes.erase(_axes.begin() + index);
}

std::shared_ptr<VELAxisBase> VELAxisCollection::getAxisById(std::string_view id, bool assertAxisExist) const {
  std::shared_ptr<VELAxisBase> found;
  for (const auto& axis : _axes) {
    if (axis->axisId() != id) continue;
    if (found)
      throw VELInvalidArgumentException("There is more than one axis with Id:" + std::string(id) +
                                        " in AxisCollection");
    found = axis;
  }
  if (!found && assertAxisExist)
    throw VELInvalidArgumentException("There is no axis with Id:" + std::string(id) + " in AxisCollection");
  return found;
}

std::shared_ptr<VELAxisBase> VELAxisCollection::primaryAxis() const {
  const auto found =
      std::find_if(_axes.begin(), _axes.end(), [](const auto& axis) { return axis->isPrimaryAxis(); });
  return found == _axes.end() ? nullptr : *found;
}

std::shared_ptr<VELAxisBase> VELAxisCollection::defaultAxis() const {
  return _axes.empty() ? nullptr : getAxisById(VELAxisBase::defaultAxisId);
}
