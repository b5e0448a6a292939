// axes/text_formatting_style.h: how a text of an axis looks.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "velmora/platform/color.h"
#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/platform/text.h"

/// Where a label stands in the column of labels beside its axis; the default is the side next to the tick.
enum VELLabelAlignmentHorizontal : int32_t {
  VELLabelAlignmentHorizontal_Default = 0,
  VELLabelAlignmentHorizontal_Left = 1,
  VELLabelAlignmentHorizontal_Center = 2,
  VELLabelAlignmentHorizontal_Right = 3,
};

/// Where a label stands in the row of labels along its axis; the default is the side next to the tick.
enum VELLabelAlignmentVertical : int32_t {
  VELLabelAlignmentVertical_Default = 0,
  VELLabelAlignmentVertical_Top = 1,
  VELLabelAlignmentVertical_Center = 2,
  VELLabelAlignmentVertical_Bottom = 3,
};

/// Font, colour, transform and alignment of labels. A value: copies carry everything but `styleChanged`,
/// which belongs to the owner of the one object.
class VELMORA_API VELTextFormattingStyle {
 public:
  /// The look of tick labels in the standard visual style.
  VELTextFormattingStyle();
  VELTextFormattingStyle(std::string fontName, double fontSize, uint32_t colorCode);
  VELTextFormattingStyle(const VELTextFormattingStyle& other);
  VELTextFormattingStyle& operator=(const VELTextFormattingStyle& other);
  ~VELTextFormattingStyle() = default;

  /// Empty is the platform's sans-serif.
  const std::string& fontName() const { return _font.name; }
  void setFontName(std::string name);
  /// Points.
  double fontSize() const { return _font.size; }
  void setFontSize(double size);
  /// 0xAABBGGRR.
  uint32_t colorCode() const { return _colorCode; }
  void setColorCode(uint32_t code);
  /// Turns or scales each label around its centre.
  const VELAffineTransform& transform() const { return _transform; }
  void setTransform(const VELAffineTransform& transform);
  VELLabelAlignmentHorizontal alignmentHorizontal() const { return _alignmentHorizontal; }
  void setAlignmentHorizontal(VELLabelAlignmentHorizontal alignment);
  VELLabelAlignmentVertical alignmentVertical() const { return _alignmentVertical; }
  void setAlignmentVertical(VELLabelAlignmentVertical alignment);

  /// Made from name and size when they change, not at each use.
  const VELFont& getFont() const { return _font; }
  const VELColor& color() const { return _color; }

  /// Called by every setter.
  void setStyleChanged(std::function<void()> block) {
    _styleChanged = std::make_shared<const std::function<void()>>(std::move(block));
  }

 private:
  void changed() const;

  VELFont _font;
  uint32_t _colorCode;
  VELColor _color;
  VELAffineTransform _transform;
  VELLabelAlignmentHorizontal _alignmentHorizontal = VELLabelAlignmentHorizontal_Default;
  VELLabelAlignmentVertical _alignmentVertical = VELLabelAlignmentVertical_Default;
  /// Shared, so that a block outlives its own call when it replaces itself or the style.
  std::shared_ptr<const std::function<void()>> _styleChanged;
};
