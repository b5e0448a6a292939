// plot/failure.h: what ends the program with one sentence.
#pragma once

#include <stdexcept>

/// Something outside the program is wrong; `what()` names it and says what would be right.
class PlotFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
