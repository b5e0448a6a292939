// rendering/texture.h: pixels that shaders sample.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "velmora/platform/bitmap.h"
#include "velmora/platform/export.h"
#include "velmora/platform/gl_context.h"

/// What a shader sees between the centres of two texels.
enum VELTextureFilter : int32_t {
  VELTextureFilter_Nearest = 0,  ///< the nearest one alone: cells and atlases
  VELTextureFilter_Linear = 1,   ///< a mix of its neighbours: pictures
};

/// A picture of RGBA bytes on the CPU side, alpha not premultiplied, and the GL texture that shows it. The
/// first row is the top one of a sprite. Beyond the edge its colour goes on.
///
/// The GL texture lives in the context given, else in the one that is current at construction. Drawing with
/// it in another context makes a further one there, and a lost one is made again, both from the CPU side. All
/// of them are deleted with this object, in contexts that still live; which context is current stays as it
/// was. A host that shares the context finds unit 0 active, this texture bound there, no vertex array bound
/// and the pixel store at its defaults.
///
/// Always true: pixels that do not fill the size, a side below 1 and one larger than GL can hold give an
/// empty texture: it has no size, is never valid and draws nothing. One that was made while no context was
/// current, and turns out too large where it is drawn first, keeps its size and draws nothing there.
class VELMORA_API VELTextureOpenGL {
 public:
  using ContextPtr = std::shared_ptr<VELGLContext>;
  static constexpr int32_t defaultDetalization = 128;

  /// Byte data. @param pixels 4 × width × height bytes, copied; what is beyond is ignored
  VELTextureOpenGL(std::span<const uint8_t> pixels, int32_t width, int32_t height,
                   const ContextPtr& context = nullptr);
  /// Float data. @param pixels 4 × width × height numbers R, G, B, A. 0 to 1 become 0 to 255, rounded; what
  /// is beyond is clamped and NaN becomes 0.
  VELTextureOpenGL(std::span<const float> pixels, int32_t width, int32_t height,
                   const ContextPtr& context = nullptr);
  explicit VELTextureOpenGL(const VELBitmap& image, const ContextPtr& context = nullptr);
  /// One row with the colours of a gradient from left to right, see `VELGradientRamp`: a palette.
  /// @param coords positions from 0 to 1 @param colorCodes one for each position
  /// @param detalization number of texels
  VELTextureOpenGL(std::span<const double> coords, std::span<const uint32_t> colorCodes,
                   int32_t detalization = defaultDetalization, const ContextPtr& context = nullptr);
  /// Transparent black, to be filled by updates. Its GL texture is made where it is drawn first.
  VELTextureOpenGL(int32_t width, int32_t height);
  /// Values that a palette gives a colour. @param values width × height numbers, one a texel, converted as
  /// above into all four channels
  static std::shared_ptr<VELTextureOpenGL> withValues(std::span<const float> values, int32_t width,
                                                      int32_t height, const ContextPtr& context = nullptr);
  /// A PNG file. @param failure when given, takes the reason in one sentence
  /// @return null when the file cannot be read or is no PNG
  static std::shared_ptr<VELTextureOpenGL> fromPng(const std::string& path, std::string* failure = nullptr,
                                                   const ContextPtr& context = nullptr);
  VELTextureOpenGL(const VELTextureOpenGL&) = delete;
  VELTextureOpenGL& operator=(const VELTextureOpenGL&) = delete;
  ~VELTextureOpenGL();

  int32_t width() const { return _width; }    ///< texels
  int32_t height() const { return _height; }  ///< texels
  bool isEmpty() const { return _pixels.empty(); }
  std::span<const uint8_t> pixels() const { return _pixels; }  ///< 4 × width × height bytes
  VELTextureFilter filter() const { return _filter; }
  void setFilter(VELTextureFilter filter);

  /// Replaces the pixels from the top left on; GL learns of it when the texture is drawn next. A picture that
  /// is larger than the texture, or has too few bytes, changes nothing.
  void updateWithByteData(std::span<const uint8_t> pixels, int32_t width, int32_t height);
  /// Some rows for writing: only they are sent when the texture is drawn next. Empty unless all lie inside.
  /// Valid until the next call of any kind.
  std::span<uint8_t> editRows(int32_t first, int32_t count);

  /// Asks GL, in the texture's own context, whether it still knows the texture.
  bool isValid() const;
  /// GL name in the texture's own context; 0 before it has one.
  uint32_t textureId() const { return _textures.empty() ? 0 : _textures.front().name; }
  /// The texture's own context; null when that is gone or there was none yet.
  ContextPtr parentContext() const { return _textures.empty() ? nullptr : _textures.front().context.lock(); }
  /// True when both show the same GL texture.
  bool isSameAs(const VELTextureOpenGL& other) const;

  /// Binds the texture of the current context to a unit, from 0, made and up to date. Leaves unit 0 active.
  /// An empty texture is one transparent texel.
  void bind(uint32_t unit);
  /// Makes the texture anew where it is drawn next, if GL does not know it any more.
  void makeAgainIfLost();

 private:
  /// The texture in one GL context.
  struct InContext {
    std::weak_ptr<VELGLContext> context;
    uint32_t generation = 0;  ///< of the context that made the name
    uint32_t name = 0;
    int32_t changedFirst = 0;  ///< rows that GL does not have yet, the end exclusive
    int32_t changedEnd = 0;
    bool hasPixels = false;  ///< or one transparent texel
    bool hasFilter = false;
  };

  void p_VEL_make(const ContextPtr& context);
  InContext& p_VEL_in(VELGLContext& context);
  void p_VEL_create(InContext& texture, VELGLContext& context) const;
  void p_VEL_bringUpToDate(InContext& texture, VELGL& gl) const;
  void p_VEL_rowsChanged(int32_t first, int32_t end);

  std::vector<uint8_t> _pixels;
  int32_t _width = 0;
  int32_t _height = 0;
  VELTextureFilter _filter = VELTextureFilter_Linear;
  std::vector<InContext> _textures;  ///< the own one first
};
