// bench/ratio.h: a case judged by how much slower it is than a plain loop over the same bytes.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>

/// Measures the case and its baseline in turns, so that both meet the same machine, and reports the time of
/// the case, items per second and two counters: `baseline_s` and `ratio`, both from the fastest turn of each.
template <typename Case, typename Baseline>
void VELRunAgainstBaseline(benchmark::State& state, int64_t items, Case&& measured, Baseline&& baseline) {
  using Clock = std::chrono::steady_clock;
  const auto secondsOf = [](auto&& body) {
    const Clock::time_point start = Clock::now();
    body();
    return std::chrono::duration<double>(Clock::now() - start).count();
  };
  double best = std::numeric_limits<double>::infinity();
  double bestBaseline = std::numeric_limits<double>::infinity();
  for ([[maybe_unused]] auto _ : state) {
    bestBaseline = std::min(bestBaseline, secondsOf(baseline));
    const double seconds = secondsOf(measured);
    best = std::min(best, seconds);
    state.SetIterationTime(seconds);
  }
  state.SetItemsProcessed(state.iterations() * items);
  state.counters["baseline_s"] = bestBaseline;
  state.counters["ratio"] = best / bestBaseline;
}
