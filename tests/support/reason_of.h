// support/reason_of.h: what a misuse says.
#pragma once

#include <string>

/// The text of the exception of type @p Misuse that an action raises; "nothing was raised" without one.
template <typename Misuse, typename Action>
std::string reasonOf(Action action) {
  try {
    action();
  } catch (const Misuse& misuse) {
    return misuse.what();
  }
  return "nothing was raised";
}
