// series/line_hit_test_provider.h: how a finger finds a line.
#pragma once

#include "velmora/platform/export.h"
#include "velmora/surface/hit_test_provider.h"

/// Hit test against the straight lines between the drawn points, gaps left out.
class VELMORA_API VELLineHitTestProvider : public VELHitTestProvider {
 public:
  /// Whether the line that is looked for runs in steps.
  virtual bool isDigitalLine() const { return false; }

 protected:
  VELHitTestInfo hitTestPass(const VELRenderPassData& data, VELPoint point, double radius) const override;
};

/// Hit test against steps: along the X axis first, then along the Y axis.
class VELMORA_API VELDigitalLineHitTestProvider : public VELLineHitTestProvider {
 public:
  bool isDigitalLine() const override { return true; }
};
