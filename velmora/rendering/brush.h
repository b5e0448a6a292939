// rendering/brush.h: what colours a shape: brushes fill, pens stroke.
//
// A brush decides the colour and the texture place of each vertex, the shader program that draws it, and
// whether the shape after it may share its shader state. Colour codes are 0xAABBGGRR (platform/color.h).
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>

#include "velmora/platform/color.h"
#include "velmora/platform/export.h"
#include "velmora/rendering/gradient_ramp.h"

class VELBrush2D;
class VELBrushPassData;
class VELPen2D;
struct VELShaderAttributes;

/// Brushes are shared: the recorded frame holds the ones it was drawn with.
using VELBrushPtr = std::shared_ptr<VELBrush2D>;
using VELPenPtr = std::shared_ptr<VELPen2D>;
/// A brush as the drawing queue sees it.
using VELOpenGLBrush = VELBrush2D;

/// How a brush is shaded.
enum VELShaderType : uint64_t {
  VELShaderType_Texture = 0,
  VELShaderType_PalettedTexture = 1,
  VELShaderType_ColoredTexture = 2,
  VELShaderType_Solid = 3,
  VELShaderType_LinearGradient = 4,
};

/// The way along which the colour of a gradient changes.
enum VELGradientDirection : int32_t {
  VELGradientDirection_Vertical = 0,    ///< from the top down
  VELGradientDirection_Horizontal = 1,  ///< from left to right
};

/// Colours a shape. Positions are in points, relative to the current drawing area.
///
/// Contexts ask brushes in the middle of recording and replaying a frame: no operation of a brush draws.
class VELMORA_API VELBrush2D {
 public:
  /// A brush of one colour.
  static VELBrushPtr solid(uint32_t colorCode);
  /// A gradient from one colour to another, or through several stops as in
  /// `linearGradient({{0.0, red}, {0.2, yellow}, {1.0, white}}, VELGradientDirection_Vertical)`.
  static VELBrushPtr linearGradient(uint32_t start, uint32_t finish, VELGradientDirection direction);
  static VELBrushPtr linearGradient(std::initializer_list<VELGradientStop> stops,
                                    VELGradientDirection direction);

  virtual ~VELBrush2D() = default;

  /// The one colour of the brush; for a brush of many colours, the one that stands for it.
  virtual uint32_t colorCode() const = 0;
  VELColor color() const { return VELColor::fromColorCode(colorCode()); }
  virtual uint32_t colorCodeAtX(double /*x*/, double /*y*/) const { return colorCode(); }
  /// Colour and texture place (0 to 65535 for 0 to 1) of a vertex that belongs to a position.
  virtual void getColorCode(uint32_t& outColorCode, uint16_t& outTextureX, uint16_t& outTextureY, double x,
                            double y) const = 0;
  /// True when the colour depends on the position; otherwise a shape asks once.
  virtual bool variativeColor() const { return false; }
  /// True when the brush's colour lets something through.
  virtual bool hasAlpha() const { return colorCode() < 0xFF000000u; }
  virtual VELShaderType shaderType() const = 0;
  /// True when a shape of @p other may follow a shape of this brush without a change of shader state.
  /// Not symmetric: a gradient takes a following solid brush, a solid brush takes no following gradient.
  virtual bool equalsToBrush(const VELBrush2D& other) const = 0;
  /// Switches GL to the program, matrix and textures of the brush. The GL context must be current.
  virtual void apply(VELShaderAttributes& attributes) const = 0;

  /// Spans a brush that depends on the position over a rectangle; brushes of one colour ignore it.
  virtual void setDrawingAreaX(double /*x*/, double /*y*/, double /*width*/, double /*height*/) {}
  /// True when `setRenderPassData` has a meaning for this brush.
  virtual bool requireRenderPassData() const { return false; }
  virtual void setRequireRenderPassData(bool /*require*/) {}
  /// Spans the brush over the data of a series. @param data read at once and not kept; null does nothing
  virtual void setRenderPassData(const VELBrushPassData* /*data*/) {}

  /// Row of the brush in the atlas of the render context that drew with it last; 0, the row of the solid
  /// colours, until an atlas assigns one.
  virtual int32_t gradientIndex() const { return 0; }
  virtual void setGradientIndex(int32_t /*index*/) {}
  /// The colour codes along the gradient, owned by the brush; none for a brush that is no gradient.
  virtual std::span<const uint32_t> getGradientData() const { return {}; }

  /// A copy that shares nothing but textures; a pen's copy is a pen.
  virtual VELBrushPtr clone() const = 0;
};

/// Strokes a line.
class VELMORA_API VELPen2D : public VELBrush2D {
 public:
  /// A pen of one colour. @param width see `strokeThickness`
  static VELPenPtr solid(uint32_t colorCode, float width);
  /// The same gradients as a brush has.
  static VELPenPtr linearGradient(uint32_t start, uint32_t finish, VELGradientDirection direction,
                                  float width);
  static VELPenPtr linearGradient(std::initializer_list<VELGradientStop> stops,
                                  VELGradientDirection direction, float width);

  /// How far a line reaches to each side of its centre, in points: a line is twice as wide.
  virtual float strokeThickness() const = 0;
};

/// A copy of a pen, as a pen; null for null.
inline VELPenPtr VELClonePen(const VELPenPtr& pen) {
  return pen ? std::static_pointer_cast<VELPen2D>(pen->clone()) : nullptr;
}
