// axes/label_provider.h: the text of an axis value.
#pragma once

#include <memory>
#include <string>

#include "velmora/data/generic_type.h"
#include "velmora/platform/export.h"

class VELAxisCore;
class VELDefaultTickLabel;
class VELTextFormattingStyle;

/// Turns values into texts for one axis, which it holds weakly. Formats are read from the axis at each
/// call, so that a changed format shows at the next draw.
class VELMORA_API VELLabelProviderBase {
 public:
  virtual ~VELLabelProviderBase() = default;
  std::shared_ptr<VELAxisCore> parentAxis() const { return _parentAxis.lock(); }
  void setParentAxis(const std::weak_ptr<VELAxisCore>& axis) { _parentAxis = axis; }

  /// Text of a tick label, UTF-8.
  /// @throws VELInternalInconsistencyException here: a subclass formats
  virtual std::string formatLabel(const VELGenericType& value) const;
  /// Text of cursors and tooltips, UTF-8.
  /// @throws VELInternalInconsistencyException here: a subclass formats
  virtual std::string formatCursorLabel(const VELGenericType& value) const;
  /// Gives a label font, colour, transform and text. Without a style the transform is all zeros, which
  /// shows nothing, and font and colour stay.
  virtual void updateDataContextWithContext(VELDefaultTickLabel& label, const VELGenericType& value,
                                            const VELTextFormattingStyle* style) const;
  /// Called at the start of every draw of the axis.
  virtual void onBeginAxisDraw() {}

 protected:
  /// All but the text of `updateDataContextWithContext`.
  static void applyStyle(VELDefaultTickLabel& label, const VELTextFormattingStyle* style);

 private:
  std::weak_ptr<VELAxisCore> _parentAxis;
};
