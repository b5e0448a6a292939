// PNG through Cairo, whose pixels are 32-bit words 0xAARRGGBB in the machine's byte order, premultiplied.
#include <cairo.h>

#include <cstring>
#include <memory>
#include <vector>

#include "velmora/platform/bitmap.h"
#include "velmora/platform/file_replacement.h"

namespace {

struct SurfaceRelease {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using SurfacePtr = std::unique_ptr<cairo_surface_t, SurfaceRelease>;

uint32_t premultiply(uint32_t channel, uint32_t alpha) { return (channel * alpha + 127) / 255; }
uint8_t straight(uint32_t channel, uint32_t alpha) {
  return static_cast<uint8_t>((channel * 255 + alpha / 2) / alpha);
}

uint32_t wordFrom(const uint8_t* rgba) {
  const uint32_t alpha = rgba[3];
  return alpha << 24 | premultiply(rgba[0], alpha) << 16 | premultiply(rgba[1], alpha) << 8 |
         premultiply(rgba[2], alpha);
}

void pixelFrom(uint32_t word, uint8_t* rgba) {
  const uint32_t alpha = word >> 24;
  if (alpha == 0) return;
  rgba[0] = straight(word >> 16 & 0xFFu, alpha);
  rgba[1] = straight(word >> 8 & 0xFFu, alpha);
  rgba[2] = straight(word & 0xFFu, alpha);
  rgba[3] = static_cast<uint8_t>(alpha);
}

SurfacePtr surfaceFrom(const VELBitmap& bitmap) {
  SurfacePtr surface(cairo_image_surface_create(bitmap.isOpaque() ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                                bitmap.width(), bitmap.height()));
  unsigned char* data = cairo_image_surface_get_data(surface.get());
  if (!data) return surface;
  const int stride = cairo_image_surface_get_stride(surface.get());
  for (int32_t y = 0; y < bitmap.height(); ++y) {
    const auto row = bitmap.row(y);
    unsigned char* target = data + static_cast<ptrdiff_t>(y) * stride;
    for (size_t i = 0; i < row.size(); i += 4) {
      const uint32_t word = wordFrom(&row[i]);
      std::memcpy(target + i, &word, sizeof word);
    }
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

cairo_status_t appendBytes(void* bytes, const unsigned char* data, unsigned int length) {
  auto& target = *static_cast<std::vector<uint8_t>*>(bytes);
  target.insert(target.end(), data, data + length);
  return CAIRO_STATUS_SUCCESS;
}

void report(std::string* failure, const std::string& path, cairo_status_t status) {
  if (!failure) return;
  // The decoder calls nearly everything that is wrong with a file a lack of memory.
  const bool isMissing = status == CAIRO_STATUS_FILE_NOT_FOUND;
  *failure = "Cannot read the picture '" + path +
             "': " + (isMissing ? "there is no such file" : "it is no PNG") +
             "; a PNG file that exists and may be read would do.";
}

}  // namespace

std::optional<std::string> VELBitmap::writePng(const std::string& path) const {
  if (isEmpty())
    return "Cannot write the picture '" + path + "': it has no pixels; it needs at least one by one.";
  const SurfacePtr surface = surfaceFrom(*this);
  std::vector<uint8_t> bytes;
  const cairo_status_t status = cairo_surface_write_to_png_stream(surface.get(), appendBytes, &bytes);
  if (status != CAIRO_STATUS_SUCCESS)
    return "Cannot encode the picture '" + path + "': " + cairo_status_to_string(status) + ".";
  return VELReplaceFile(path, bytes);
}

std::optional<VELBitmap> VELBitmap::readPng(const std::string& path, std::string* failure) {
  SurfacePtr surface(cairo_image_surface_create_from_png(path.c_str()));
  if (const cairo_status_t status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS) {
    report(failure, path, status);
    return std::nullopt;
  }
  // The file decides which kind of pixels it gives; drawn onto a surface of the kind known here, all are
  // alike.
  VELBitmap bitmap(cairo_image_surface_get_width(surface.get()),
                   cairo_image_surface_get_height(surface.get()));
  SurfacePtr known(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, bitmap.width(), bitmap.height()));
  cairo_t* cairo = cairo_create(known.get());
  cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(cairo, surface.get(), 0.0, 0.0);
  cairo_paint(cairo);
  cairo_destroy(cairo);
  cairo_surface_flush(known.get());
  const unsigned char* data = cairo_image_surface_get_data(known.get());
  if (!data) {
    report(failure, path, cairo_surface_status(known.get()));
    return std::nullopt;
  }
  const int stride = cairo_image_surface_get_stride(known.get());
  for (int32_t y = 0; y < bitmap.height(); ++y) {
    const auto row = bitmap.row(y);
    for (size_t i = 0; i < row.size(); i += 4) {
      uint32_t word = 0;
      std::memcpy(&word, data + static_cast<ptrdiff_t>(y) * stride + i, sizeof word);
      pixelFrom(word, &row[i]);
    }
  }
  return bitmap;
}
