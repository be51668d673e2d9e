// What the benchmarks share: timing one piece of work, and the middle of many timings.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

#include <benchmark/benchmark.h>

template <typename Work>
double Microseconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
      .count();
}

/// The median; `values` is not empty.
inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Prints a figure beside its limit, and says so where it lies beyond.
inline void Report(benchmark::State& state, const char* name, double value, double limit) {
  state.counters[name] = value;
  state.counters["limit"] = limit;
  state.SetLabel(value <= limit ? "within its limit" : "BEYOND ITS LIMIT");
}
