// support/reason_of.h: what a misuse says.
#pragma once

#include <string>

#include "velmora/platform/exception.h"

constexpr const char* kNothingRaised = "nothing was raised";

/// The text of the exception of type @p Misuse that an action raises, kNothingRaised without one.
template <typename Misuse = VELException, typename Action>
std::string reasonOf(Action action) {
  try {
    action();
  } catch (const Misuse& misuse) {
    return misuse.what();
  }
  return kNothingRaised;
}

/// Name and text of what an action raises: "name: text"; kNothingRaised without.
template <typename Action>
std::string raisedBy(Action action) {
  try {
    action();
  } catch (const VELException& misuse) {
    return misuse.name() + ": " + misuse.what();
  }
  return kNothingRaised;
}
