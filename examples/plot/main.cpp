// velmora-plot: draws the columns of a CSV file as a line chart.
#include <fcntl.h>

#include "examples/plot/plot.h"

namespace {

// The connection to the display would else take the place of a stream that was closed, and be read as data.
void openClosedStreams() {
  for (int stream = 0; stream <= 2; ++stream)
    if (::fcntl(stream, F_GETFD) < 0)
      static_cast<void>(::open("/dev/null", stream == 0 ? O_RDONLY : O_WRONLY));
}

}  // namespace

int main(int argc, char** argv) {
  openClosedStreams();
  return runPlot(argc, argv);
}
