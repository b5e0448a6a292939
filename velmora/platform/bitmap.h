// platform/bitmap.h: a picture in memory, and as a PNG file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "velmora/platform/export.h"

/// RGBA pixels, 8 bits a channel, alpha not premultiplied; rows from the top down without padding.
class VELMORA_API VELBitmap {
 public:
  /// An empty picture.
  VELBitmap() = default;
  /// Transparent black. A side below 1 gives an empty picture.
  VELBitmap(int32_t width, int32_t height);

  int32_t width() const { return _width; }    ///< pixels
  int32_t height() const { return _height; }  ///< pixels
  bool isEmpty() const { return _pixels.empty(); }
  bool isOpaque() const;
  /// 4 × width × height bytes.
  std::span<uint8_t> pixels() { return _pixels; }
  std::span<const uint8_t> pixels() const { return _pixels; }
  /// One row of 4 × width bytes; y counts from the top and must be inside.
  std::span<uint8_t> row(int32_t y);
  std::span<const uint8_t> row(int32_t y) const;
  /// The pixel as 0xAABBGGRR; 0 outside of the picture.
  uint32_t colorCodeAt(int32_t x, int32_t y) const;

  /// Writes a PNG; an opaque picture without an alpha channel. The file is replaced as a whole or not at all.
  /// Opaque pixels keep every bit; translucent ones lose a little, as the encoder premultiplies them.
  /// @return nothing when all went well, else the reason in one sentence
  std::optional<std::string> writePng(const std::string& path) const;
  /// @param failure when given, takes the reason in one sentence
  /// @return nothing when the file cannot be read or is no PNG
  static std::optional<VELBitmap> readPng(const std::string& path, std::string* failure = nullptr);

  bool operator==(const VELBitmap&) const = default;

 private:
  int32_t _width = 0;
  int32_t _height = 0;
  std::vector<uint8_t> _pixels;
};
