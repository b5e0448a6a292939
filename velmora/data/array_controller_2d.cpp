#include "velmora/data/array_controller_2d.h"

#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>

std::shared_ptr<VELArrayController2D> VELArrayController2D::initWithType(VELDataType type, int32_t sizeX,
                                                                         int32_t sizeY) {
  if (!VELIsNumericType(type) || sizeX < 0 || sizeY < 0) return nullptr;
  const int64_t count = int64_t{sizeX} * sizeY;
  if (count > std::numeric_limits<ptrdiff_t>::max() / VELElementSize(type)) return nullptr;
  auto data = VELArrayController::initWithType(type, count);
  data->setCount(count);
  if (count > 0)
    std::memset(data->data(), 0, static_cast<size_t>(count) * static_cast<size_t>(data->dataTypeSize()));
  struct Made : VELArrayController2D {
    Made(std::shared_ptr<VELArrayController> elements, int32_t x, int32_t y)
        : VELArrayController2D(std::move(elements), x, y) {}
  };
  return std::make_shared<Made>(std::move(data), sizeX, sizeY);
}
