#include "velmora/platform/label_view.h"

#include <utility>

#include "velmora/platform/composer.h"

std::string VELLabelView::text() const {
  std::string all;
  for (const VELTextRun& run : _text) all += run.text;
  return all;
}

void VELLabelView::setText(std::string_view text) {
  // The same text again must not be measured again: labels are refilled at every draw.
  if (_text.size() == 1 && _text[0].text == text && _text[0].font == _font && _text[0].baselineOffset == 0.0)
    return;
  _text.resize(1);
  _text[0].text.assign(text);
  _text[0].font = _font;
  _text[0].baselineOffset = 0.0;
  _measured = false;
}

void VELLabelView::setAttributedText(VELAttributedText text) {
  if (text == _text) return;
  _text = std::move(text);
  _measured = false;
}

void VELLabelView::setFont(const VELFont& font) {
  if (font == _font) return;
  _font = font;
  if (_text.size() != 1) return;
  _text[0].font = font;
  _measured = false;
}

const VELSize& VELLabelView::textSize() const {
  if (!_measured) _textSize = VELTextEngine::instance().measure(_text);
  _measured = true;
  return _textSize;
}

void VELLabelView::shortenToWidth(double points) {
  if (_text.empty() || textSize().width <= points) return;
  const std::string full = text();
  const VELFont font = _text.front().font;
  const auto shortened = [&](size_t bytes) {
    while (bytes > 0 && bytes < full.size() && (static_cast<unsigned char>(full[bytes]) & 0xC0u) == 0x80u)
      --bytes;
    return VELAttributedText{{full.substr(0, bytes) + "…", font, 0.0}};
  };
  // The longest beginning that fits, by halving: a width grows with its text.
  size_t fits = 0, tooLong = full.size();
  while (fits + 1 < tooLong) {
    const size_t middle = (fits + tooLong) / 2;
    if (VELTextEngine::instance().measure(shortened(middle)).width <= points)
      fits = middle;
    else
      tooLong = middle;
  }
  _text = shortened(fits);
  _measured = false;
}

void VELLabelView::sizeToFit() {
  const VELPoint centre = frame().center();
  const VELSize size = _transform.boundsOf(textSize());
  setFrame({centre.x - size.width / 2.0, centre.y - size.height / 2.0, size.width, size.height});
}

void VELLabelView::compose(VELComposer& composer, const VELRect& frameInRoot) {
  if (_text.empty()) return;
  composer.composeText(_text, _textColor.colorCode(), textSize(), _transform, frameInRoot);
}
