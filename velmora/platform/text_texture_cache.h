// platform/text_texture_cache.h: which texts lie in GL already.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <unordered_map>

#include "velmora/platform/export.h"
#include "velmora/platform/gl_context.h"
#include "velmora/platform/text.h"

/// A text's coverage as an alpha texture; texture 0 means that there is nothing to draw.
struct VELTextTexture {
  uint32_t texture = 0;
  int32_t width = 0;   ///< pixels
  int32_t height = 0;  ///< pixels
};

/// Textures of rasterised texts, by text and scale. A turned text is the same texture, turned when drawn.
///
/// Always true: an unchanged text is rasterised once as long as it stays in the cache; after `trim` the cache
/// holds at most `byteLimit()` bytes. After a lost context every text is new again.
class VELMORA_API VELTextTextureCache {
 public:
  /// @param context where the textures live, held strongly
  /// @param engine what rasterises; outlives the cache
  explicit VELTextTextureCache(std::shared_ptr<VELGLContext> context,
                               VELTextEngine& engine = VELTextEngine::instance());
  VELTextTextureCache(const VELTextTextureCache&) = delete;
  VELTextTextureCache& operator=(const VELTextTextureCache&) = delete;
  ~VELTextTextureCache();

  /// The texture of a text at @p scale pixels a point, made when it is new; it stays until the next `trim`.
  /// The context must be current; leaves no texture bound. A text larger than GL's largest texture is
  /// nothing.
  VELTextTexture textureFor(const VELAttributedText& text, double scale);
  /// Frees the textures used longest ago until the rest keeps to the limit. The context must be current.
  void trim();

  size_t byteLimit() const { return _byteLimit; }
  void setByteLimit(size_t bytes) { _byteLimit = bytes; }
  /// Held now: the textures, and a fixed sum for what a text costs beside its texture.
  size_t bytes() const { return _bytes; }
  size_t count() const { return _entries.size(); }  ///< texts held now
  /// How many texts were rasterised since the cache was made.
  uint64_t rasterised() const { return _rasterised; }

 private:
  struct Entry {
    VELAttributedText text;
    double scale;
    VELTextTexture texture;
  };
  /// Looked up by reference, so that a known text costs no copy.
  struct Key {
    const VELAttributedText* text;
    double scale;
    bool operator==(const Key& other) const;
  };
  struct KeyHash {
    size_t operator()(const Key& key) const;
  };
  using Entries = std::list<Entry>;

  bool isLost() const { return _context->hasLost(_generation); }
  void forgetLostTextures();
  static size_t costOf(const VELTextTexture& texture);
  VELTextTexture upload(const VELTextMask& mask);

  std::shared_ptr<VELGLContext> _context;
  VELTextEngine* _engine;
  uint32_t _generation;  ///< of the context, when the textures were made
  Entries _entries;      ///< used last first
  std::unordered_map<Key, Entries::iterator, KeyHash> _index;
  size_t _byteLimit = size_t{2} << 20;
  size_t _bytes = 0;
  int32_t _largestSide = 0;
  uint64_t _rasterised = 0;
};
