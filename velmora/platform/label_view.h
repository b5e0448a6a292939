// platform/label_view.h: one line of text as a view.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "velmora/platform/color.h"
#include "velmora/platform/text.h"
#include "velmora/platform/view.h"

/// A label. Its frame is the box around the transformed text; setting text, font or transform leaves the
/// frame alone until `sizeToFit`.
class VELMORA_API VELLabelView : public VELView {
 public:
  VELLabelView() = default;
  explicit VELLabelView(const VELRect& frame) : VELView(frame) {}

  /// The plain text of all pieces.
  std::string text() const;
  /// One piece in the label's font.
  virtual void setText(std::string_view text);
  const VELAttributedText& attributedText() const { return _text; }
  virtual void setAttributedText(VELAttributedText text);
  const VELFont& font() const { return _font; }
  /// Also sets the font of a plain text.
  void setFont(const VELFont& font);
  VELColor textColor() const { return _textColor; }
  void setTextColor(const VELColor& color) { _textColor = color; }
  const VELAffineTransform& transform() const { return _transform; }
  void setTransform(const VELAffineTransform& transform) { _transform = transform; }

  /// Size of the text before its transform, in points; measured once per text and font.
  const VELSize& textSize() const;
  /// Cuts a text that is wider than @p points, before its transform, and ends it in an ellipsis: whole
  /// characters only, and in the font of its first piece.
  void shortenToWidth(double points);
  /// Gives the frame the size of the transformed text; the centre stays.
  void sizeToFit();

  void compose(VELComposer& composer, const VELRect& frameInRoot) override;

 private:
  VELFont _font;
  VELAttributedText _text;
  VELColor _textColor;
  VELAffineTransform _transform;
  mutable VELSize _textSize;
  mutable bool _measured = false;
};
