// Data value to coordinate: the plain helper function, and the typed stage that hot loops take.
#include <benchmark/benchmark.h>

#include <numeric>
#include <vector>

#include "velmora/axes/calculator_stage.h"

namespace {

constexpr size_t kPoints = 1 << 16;

std::vector<double> makeValues() {
  std::vector<double> values(kPoints);
  std::iota(values.begin(), values.end(), 1.0);
  return values;
}

void throughHelper(benchmark::State& state) {
  const auto values = makeValues();
  std::vector<double> pixels(values.size());
  const VELDoubleCoordinateCalculator calculator(1080.0, 0.0, 1e5, false, false, false);
  const VELCalculatorHelper helper = calculator.getCalculatorHelper();
  for (auto _ : state) {
    for (size_t i = 0; i < values.size(); ++i) pixels[i] = helper.function(helper.info, values[i]);
    benchmark::DoNotOptimize(pixels.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kPoints));
}

void throughStage(benchmark::State& state) {
  const auto values = makeValues();
  std::vector<double> pixels(values.size());
  const VELDoubleCoordinateCalculator calculator(1080.0, 0.0, 1e5, false, false, false);
  for (auto _ : state) {
    VELWithCalculatorStage(calculator.getCalculatorHelper(), [&](const auto& toPixel) {
      for (size_t i = 0; i < values.size(); ++i) pixels[i] = toPixel(values[i]);
    });
    benchmark::DoNotOptimize(pixels.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kPoints));
}

BENCHMARK(throughHelper)->Name("calculator_helper");
BENCHMARK(throughStage)->Name("calculator_stage");

}  // namespace
