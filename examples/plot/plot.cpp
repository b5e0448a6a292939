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

// Where the chart goes; tells when that is not where one would look for it.
bool goesToWindow(const PlotOptions& options) {
  if (options.isOutGiven) return false;
  std::string why;
  if (canOpenWindow(why)) return true;
  tell(why + " The chart goes to '" + options.out.string() + "'.");
  return false;
}

void plot(const PlotOptions& options) {
  if (options.follow) return goesToWindow(options) ? followInWindow(options) : followToPicture(options);

  // The window system takes interrupts for its own: while this reads, they end the program.
  const PlotColumns columns = choosePlotColumns(readCsv(options.file), options);
  tell(columns.gapNote);
  tell(columns.logNote);
  if (goesToWindow(options)) return showPlot(columns, options);
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
