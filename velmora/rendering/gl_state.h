// rendering/gl_state.h: the fixed-function GL state of one context, and what is known of it.
//
// The one place of the charts that sets blending, clipping, viewport and attribute arrays. Host and charts
// share a GL context, so before a frame the state is told to forget and then sets everything again; the
// composer of a host does the same for itself before it shows the charts.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

/// State of the GL context that is current during the calls; without one they do nothing.
///
/// Always true: a call that would set what is known to be set makes no GL call.
class VELGLState {
 public:
  /// Knows nothing any more: somebody else may have changed everything.
  void forget() { *this = VELGLState(); }
  /// What every frame of a chart starts from: the library's baseline (platform/gl_baseline.h) with clipping
  /// on. Forgets first.
  void prepareForDrawing();
  /// True from `prepareForDrawing` to `finishDrawing`, or until somebody else may have changed something.
  bool isDrawing() const { return _isDrawing; }
  /// Leaves neither clipping, blending nor attribute arrays behind for whoever draws next.
  void finishDrawing();

  /// Source over target; the alpha of an opaque target stays opaque.
  void setBlending(bool on);
  /// Pixels, from the bottom left corner.
  void setViewport(int32_t x, int32_t y, int32_t width, int32_t height);
  /// Pixels, from the bottom left corner; a negative extent clips everything.
  void setScissor(int32_t x, int32_t y, int32_t width, int32_t height);

  bool attributeArraysEnabled() const { return _attributeArrays; }
  /// The three vertex attributes: position, colour, texture place.
  void setAttributeArrays(bool on);

 private:
  using Box = std::array<int32_t, 4>;
  std::optional<bool> _blending;
  std::optional<Box> _viewport;
  std::optional<Box> _scissor;
  bool _attributeArrays = false;
  bool _isDrawing = false;
};
