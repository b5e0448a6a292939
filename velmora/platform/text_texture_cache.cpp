#include "velmora/platform/text_texture_cache.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <string>
#include <utility>

namespace {

constexpr size_t kCostOfEntry = 256;

// Numbers are compared and hashed by their bits: a key that holds a NaN must find itself again.
uint64_t bits(double value) { return std::bit_cast<uint64_t>(value); }

bool sameRun(const VELTextRun& a, const VELTextRun& b) {
  return a.text == b.text && a.font.name == b.font.name && a.font.isBold == b.font.isBold &&
         bits(a.font.size) == bits(b.font.size) && bits(a.baselineOffset) == bits(b.baselineOffset);
}

size_t mixed(size_t hash, size_t value) {
  return (hash ^ value) * size_t{0x9E3779B97F4A7C15u} + (hash >> 32);
}

}  // namespace

bool VELTextTextureCache::Key::operator==(const Key& other) const {
  return bits(scale) == bits(other.scale) &&
         std::equal(text->begin(), text->end(), other.text->begin(), other.text->end(), sameRun);
}

size_t VELTextTextureCache::KeyHash::operator()(const Key& key) const {
  size_t hash = bits(key.scale);
  for (const VELTextRun& run : *key.text) {
    hash = mixed(hash, std::hash<std::string>{}(run.text));
    hash = mixed(hash, std::hash<std::string>{}(run.font.name));
    hash = mixed(hash, bits(run.font.size) + (run.font.isBold ? 1 : 0));
    hash = mixed(hash, bits(run.baselineOffset));
  }
  return hash;
}

VELTextTextureCache::VELTextTextureCache(std::shared_ptr<VELGLContext> context, VELTextEngine& engine)
    : _context(std::move(context)), _engine(&engine), _generation(_context->generation()) {}

VELTextTextureCache::~VELTextTextureCache() {
  const VELGLContextScope scope(*_context, _generation);
  if (!scope.isCurrent()) return;
  for (const Entry& entry : _entries)
    if (entry.texture.texture != 0) _context->gl().deleteTexture(entry.texture.texture);
}

VELTextTexture VELTextTextureCache::textureFor(const VELAttributedText& text, double scale) {
  if (text.empty() || !(scale > 0.0)) return {};
  forgetLostTextures();
  if (const auto known = _index.find(Key{&text, scale}); known != _index.end()) {
    _entries.splice(_entries.begin(), _entries, known->second);
    return known->second->texture;
  }
  ++_rasterised;
  _entries.push_front({text, scale, upload(_engine->rasterise(text, scale))});
  const Entry& entry = _entries.front();
  _index.emplace(Key{&entry.text, scale}, _entries.begin());
  _bytes += costOf(entry.texture);
  return entry.texture;
}

void VELTextTextureCache::forgetLostTextures() {
  if (!isLost()) return;
  _generation = _context->generation();
  _index.clear();
  _entries.clear();
  _bytes = 0;
  _largestSide = 0;
}

void VELTextTextureCache::trim() {
  forgetLostTextures();
  while (_bytes > _byteLimit && !_entries.empty()) {
    const Entry& oldest = _entries.back();
    if (oldest.texture.texture != 0) _context->gl().deleteTexture(oldest.texture.texture);
    _bytes -= costOf(oldest.texture);
    _index.erase(Key{&oldest.text, oldest.scale});
    _entries.pop_back();
  }
}

size_t VELTextTextureCache::costOf(const VELTextTexture& texture) {
  return kCostOfEntry + static_cast<size_t>(texture.width) * static_cast<size_t>(texture.height);
}

VELTextTexture VELTextTextureCache::upload(const VELTextMask& mask) {
  VELGL& gl = _context->gl();
  if (_largestSide == 0) _largestSide = gl.getInteger(VELGL_MAX_TEXTURE_SIZE);
  if (mask.coverage.empty() || mask.width > _largestSide || mask.height > _largestSide) return {};

  const VELTextTexture result{gl.genTexture(), mask.width, mask.height};
  gl.bindTexture(VELGL_TEXTURE_2D, result.texture);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_S, VELGL_CLAMP_TO_EDGE);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_T, VELGL_CLAMP_TO_EDGE);
  // Rows of single bytes are not aligned to GL's usual four; others rely on the usual ones.
  gl.pixelStorei(VELGL_UNPACK_ALIGNMENT, 1);
  gl.texImage2D(VELGL_TEXTURE_2D, VELGL_ALPHA, mask.width, mask.height, mask.coverage.data());
  gl.pixelStorei(VELGL_UNPACK_ALIGNMENT, 4);
  gl.bindTexture(VELGL_TEXTURE_2D, 0);
  return result;
}
