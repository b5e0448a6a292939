// The program of a library that was built without windows.
#include "examples/plot/failure.h"
#include "examples/plot/plot_window.h"

namespace {

[[noreturn]] void refuse() {
  throw PlotFailure("This program was built without windows; give --out, as in --out chart.png.");
}

}  // namespace

bool canOpenWindow(std::string& why) {
  why = "This program was built without windows.";
  return false;
}

void showPlot(const PlotColumns&, const PlotOptions&) { refuse(); }

void followInWindow(const PlotOptions&) { refuse(); }
