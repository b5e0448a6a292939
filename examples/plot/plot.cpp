#include "examples/plot/plot.h"

#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "examples/plot/failure.h"
#include "examples/plot/follow.h"
#include "examples/plot/options.h"
#include "examples/plot/picture.h"
#include "examples/plot/plot_columns.h"
#include "examples/plot/plot_window.h"

namespace {

void tell(const std::string& sentence) {
  if (!sentence.empty()) std::cerr << "velmora-plot: " << sentence << '\n';
}

void plot(const PlotOptions& options) {
  const bool inWindow = !options.isOutGiven && canOpenWindow();
  if (inWindow && options.isScaleGiven)
    tell("--scale is for pictures; the window has the pixels per point of its display.");
  const std::string noWindow =
      inWindow || options.isOutGiven
          ? ""
          : "There is no display to open a window on; the chart goes to '" + options.out.string() + "'.";
  if (options.follow) tell(noWindow);
  if (options.follow) return inWindow ? followInWindow(options) : followToPicture(options);

  const PlotColumns columns = choosePlotColumns(readCsv(options.file), options);
  tell(columns.gapNote);
  tell(columns.logNote);
  if (inWindow) return showPlot(columns, options);
  tell(noWindow);
  writePicture(drawPlot(columns, options), options);
}

}  // namespace

int runPlot(int argc, const char* const* argv) {
  try {
    if (const auto options = parseOptions(argc, argv)) plot(*options);
    return 0;
  } catch (const PlotFailure& failure) {
    tell(failure.what());
  } catch (const std::bad_alloc&) {
    tell("There is not enough memory for this data; give a smaller file, or a smaller --capacity.");
  } catch (const std::exception& error) {
    tell(error.what());
  }
  return 2;
}
