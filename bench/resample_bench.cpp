// How fast a series is reduced to the width of a chart.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <span>
#include <vector>

#include "bench/ratio.h"
#include "velmora/data/array_controller.h"
#include "velmora/data/resampler.h"

namespace {

constexpr int32_t kWidth = 1920;

/// Evenly spaced x and a noisy y, all of which is reduced into the same point series every time.
class Noise {
 public:
  explicit Noise(int64_t points) : _all(0, static_cast<int32_t>(points) - 1), _visible(0.0, 1.0) {
    std::mt19937 random(1);
    std::normal_distribution<double> noise;
    std::vector<double> x(static_cast<size_t>(points));
    std::vector<double> y(x.size());
    for (size_t i = 0; i < x.size(); ++i) {
      x[i] = static_cast<double>(i);
      y[i] = noise(random);
    }
    _x->appendRange(x);
    _y->appendRange(y);
    _visible.setMax(x.back());
  }

  VELArrayController& x() { return *_x; }
  VELArrayController& y() { return *_y; }
  const VELIndexRange& all() const { return _all; }
  void reduce(VELResamplingMode mode) {
    _reduced = _resampler.o_executeMode(mode, *_x, *_y, _all, _visible, kWidth, _reduced);
    benchmark::DoNotOptimize(_reduced->yValues()->data());
    benchmark::ClobberMemory();
  }
  void sum() const {
    double total = 0.0;
    for (const double value : _y->doubles()) total += value;
    benchmark::DoNotOptimize(total);
  }

 private:
  VELArrayControllerPtr _x = VELArrayController::initWithType(VELDataType_Double);
  VELArrayControllerPtr _y = VELArrayController::initWithType(VELDataType_Double);
  VELIndexRange _all;
  VELDoubleRange _visible;
  VELPointResampler _resampler;
  std::shared_ptr<VELPointSeries> _reduced;
};

/// Against a loop that only sums y; wanted is a ratio of at most 2.
void resample_minmax(benchmark::State& state) {
  Noise noise(state.range(0));
  const auto reduce = [&noise] { noise.reduce(VELResamplingMode_MinMax); };
  VELRunAgainstBaseline(state, state.range(0), reduce, [&noise] { noise.sum(); });
}
BENCHMARK(resample_minmax)
    ->RangeMultiplier(10)
    ->Range(10'000, 10'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

/// Against the reduction of even spacing; wanted is a ratio of at most 4.
void resample_uneven(benchmark::State& state) {
  Noise noise(state.range(0));
  Noise even(state.range(0));
  const auto reduce = [&noise] { noise.reduce(VELResamplingMode_MinMaxUnevenlySpaced); };
  VELRunAgainstBaseline(state, state.range(0), reduce, [&even] { even.reduce(VELResamplingMode_MinMax); });
}
BENCHMARK(resample_uneven)
    ->RangeMultiplier(10)
    ->Range(10'000, 10'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

/// Prices in columns of their own, against a loop that only sums the high and the low column.
void resample_ohlc(benchmark::State& state) {
  Noise open(state.range(0)), high(state.range(0)), low(state.range(0)), close(state.range(0));
  VELPointResampler resampler;
  std::shared_ptr<VELPointSeries> reduced;
  const auto reduce = [&] {
    reduced = resampler.o_executeModeOhlc(VELResamplingMode_Mid, open.x(), open.y(), high.y(), low.y(),
                                          close.y(), open.all(), open.all(), kWidth, reduced);
    benchmark::DoNotOptimize(reduced->yValues()->data());
    benchmark::ClobberMemory();
  };
  const auto sum = [&] {
    high.sum();
    low.sum();
  };
  VELRunAgainstBaseline(state, state.range(0), reduce, sum);
}
BENCHMARK(resample_ohlc)->Arg(10'000)->Arg(1'000'000)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
