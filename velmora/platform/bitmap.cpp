#include "velmora/platform/bitmap.h"

VELBitmap::VELBitmap(int32_t width, int32_t height) {
  if (width < 1 || height < 1) return;
  _width = width;
  _height = height;
  _pixels.resize(size_t{4} * static_cast<size_t>(width) * static_cast<size_t>(height));
}

bool VELBitmap::isOpaque() const {
  for (size_t i = 3; i < _pixels.size(); i += 4)
    if (_pixels[i] != 255) return false;
  return true;
}

std::span<uint8_t> VELBitmap::row(int32_t y) {
  const size_t bytes = size_t{4} * static_cast<size_t>(_width);
  return pixels().subspan(bytes * static_cast<size_t>(y), bytes);
}

std::span<const uint8_t> VELBitmap::row(int32_t y) const {
  const size_t bytes = size_t{4} * static_cast<size_t>(_width);
  return pixels().subspan(bytes * static_cast<size_t>(y), bytes);
}

uint32_t VELBitmap::colorCodeAt(int32_t x, int32_t y) const {
  if (x < 0 || y < 0 || x >= _width || y >= _height) return 0;
  const auto pixel = row(y).subspan(size_t{4} * static_cast<size_t>(x), 4);
  return uint32_t{pixel[0]} | uint32_t{pixel[1]} << 8 | uint32_t{pixel[2]} << 16 | uint32_t{pixel[3]} << 24;
}
