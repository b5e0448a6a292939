// support/calling_label_provider.h: a label provider that does something in the middle of a pass.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "velmora/axes/numeric_label_provider.h"

/// Runs an action before it formats each label as numeric axes do.
class CallingLabelProvider : public VELNumericLabelProvider {
 public:
  explicit CallingLabelProvider(std::function<void()> action) : _action(std::move(action)) {}
  std::string formatLabel(const VELGenericType& value) const override {
    _action();
    return VELNumericLabelProvider::formatLabel(value);
  }

 private:
  std::function<void()> _action;
};
