#include "velmora/rendering/band_area_primitive.h"

uint32_t VELBandAreaPrimitive::o_beginAreaBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2,
                                                 float x, float y1, float y2, bool isVertical) {
  if (!isConnected()) return 0;
  o_reset();
  return o_expandAreaBrush1(brush1, brush2, x, y1, y2, isVertical);
}

uint32_t VELBandAreaPrimitive::o_expandAreaBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2,
                                                  float x, float y1, float y2, bool isVertical) {
  if (!isConnected()) return 0;
  const VELBrushPtr& shading = brush1 ? brush1 : brush2;
  if (!shading || !VELAreDrawable(x, y1, y2)) return leaveGap();
  _command->o_addBrushCommandWithBrush(shading);
  _command->o_registerBrush(brush2);
  return isVertical ? o_expandVerticalAreaBrush1(brush1, brush2, y1, y2, x)
                    : o_expandHorizontalAreaBrush1(brush1, brush2, x, y1, y2);
}

uint32_t VELBandAreaPrimitive::o_expandHorizontalAreaBrush1(const VELBrushPtr& brush1,
                                                            const VELBrushPtr& brush2, float x, float y1,
                                                            float y2) {
  return p_VEL_expand<false>(brush1, brush2, x, y1, y2);
}

uint32_t VELBandAreaPrimitive::o_expandVerticalAreaBrush1(const VELBrushPtr& brush1,
                                                          const VELBrushPtr& brush2, float x1, float x2,
                                                          float y) {
  return p_VEL_expand<true>(brush1, brush2, y, x1, x2);
}

template <bool isVertical>
uint32_t VELBandAreaPrimitive::p_VEL_expand(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float along,
                                            float across1, float across2) {
  if (!isConnected()) return 0;
  if (!VELAreDrawable(along, across1, across2)) return leaveGap();
  const bool restart = !isOpen() || (along == _lastX && across1 == _lastY1 && across2 == _lastY2);
  // How far the first line is from the second; in doubles the product cannot vanish.
  const double apart = double{across1} - double{across2}, lastApart = double{_lastY1} - double{_lastY2};
  const bool crosses = !restart && apart * lastApart < 0.0;
  const uint32_t count = crosses ? 4 : 2;
  if (!hasRoomForStep(count, count, restart)) return 0;

  const auto brushOf = [&](double distance) {
    return (isVertical ? distance > 0.0 : distance < 0.0) ? brush1.get() : brush2.get();
  };
  const auto tinted = [](const VELBrush2D* brush, double atX, double atY) {
    if (isVertical) std::swap(atX, atY);
    return vertex(atX, atY, brush ? tintAt(*brush, atX, atY) : Tint());
  };
  const VELBrush2D* const brush = brushOf(apart);
  const uint32_t written = announceStep(count, count, restart);
  if (crosses) {
    // Both lines come closer at a constant rate, so the crossing lies at the same share of either step.
    const double share = lastApart / (lastApart - apart);
    const double x = double{_lastX} + share * (double{along} - double{_lastX});
    const double y = double{_lastY1} + share * (double{across1} - double{_lastY1});
    VELVertex* const crossing = takeConsecutive(pairCount);
    crossing[0] = tinted(brushOf(lastApart), x, y);
    crossing[1] = tinted(brush, x, y);
  }
  VELVertex* const pair = takeConsecutive(pairCount);
  pair[0] = tinted(brush, double{along}, double{across1});
  pair[1] = tinted(brush, double{along}, double{across2});
  keepPair(pair);
  _lastX = along;
  _lastY1 = across1;
  _lastY2 = across2;
  return written;
}
