// velmora-live: the smallest program with a chart in a window: one line that grows while it is on screen.
#include <cmath>
#include <iostream>
#include <memory>
#include <string>

#include "velmora/velmora.h"

int main() {
  std::string failure;
  const auto host = VELWindowHost::create({.title = "Velmora live", .size = {800.0, 450.0}}, &failure);
  if (!host) {
    std::cerr << "velmora-live: " << failure << '\n';
    return 2;
  }
  const auto chart = VELChartSurfaceView::initWithFrame(host->rootView()->bounds(), *host);
  if (!chart) {
    std::cerr << "velmora-live: The window has no OpenGL ES 2.0 to draw a chart with.\n";
    return 2;
  }
  host->rootView()->addSubview(chart);
  host->setSizeChanged([&](const VELSize& size) { chart->setFrame({0.0, 0.0, size.width, size.height}); });

  // Axes that follow the data.
  for (const bool isX : {true, false}) {
    const auto axis = std::make_shared<VELNumericAxis>();
    axis->setAutoRange(VELAutoRange_Always);
    if (!isX) axis->setGrowBy(std::make_shared<VELDoubleRange>(0.1, 0.1));  // room above and below the line
    chart->surface()->attachAxis(axis, isX);
  }

  // A ring of the newest 2,000 points.
  const auto data = VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, 2000);
  const auto line = std::make_shared<VELFastLineRenderableSeries>();
  line->setDataSeries(data);
  chart->surface()->attachRenderableSeries(line);

  // Data comes in on the same thread as everything else: here from a timer of the window.
  host->addTimer(1.0 / 60.0, [&](double seconds) {
    for (int i = 0; i < 10; ++i) {
      const double time = seconds + i / 600.0;
      data->appendX(time, std::sin(6.0 * time) * std::cos(0.7 * time));
    }
  });
  host->run();  // until the window is closed or the process is interrupted
}
