#include "velmora/axes/label_provider.h"

#include "velmora/axes/default_tick_label.h"
#include "velmora/axes/text_formatting_style.h"
#include "velmora/platform/exception.h"

std::string VELLabelProviderBase::formatLabel(const VELGenericType&) const {
  throw VELInternalInconsistencyException("You must override formatLabel: in a subclass");
}

std::string VELLabelProviderBase::formatCursorLabel(const VELGenericType&) const {
  throw VELInternalInconsistencyException("You must override formatCursorLabel: in a subclass");
}

void VELLabelProviderBase::updateDataContextWithContext(VELDefaultTickLabel& label,
                                                        const VELGenericType& value,
                                                        const VELTextFormattingStyle* style) const {
  applyStyle(label, style);
  label.setHasExponent(false);
  label.setText(formatLabel(value));
}

void VELLabelProviderBase::applyStyle(VELDefaultTickLabel& label, const VELTextFormattingStyle* style) {
  if (style) {
    label.setFont(style->getFont());
    label.setTextColor(style->color());
  }
  label.setTransform(style ? style->transform() : VELAffineTransform::zero());
}
