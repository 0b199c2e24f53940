// SPDX-License-Identifier: MIT
// What the measuring programs share: times of many runs, what is worked out of them, and the line that a figure prints.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace tarnwick::figures {

/// The value below which this part of all values lies; 0 of none.
[[nodiscard]] inline double quantile(std::vector<double> values, double part) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[std::min(values.size() - 1, static_cast<std::size_t>(part * static_cast<double>(values.size())))];
}

[[nodiscard]] inline double median(const std::vector<double>& values) { return quantile(values, 0.5); }

/// Milliseconds that the work takes.
template <typename Work>
[[nodiscard]] double timed(Work&& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// Prints one figure beside its floor; a value or a floor of 0 means that there was nothing to measure.
inline void report(const char* figure, double value, const char* unit, double floor, const char* of, double target) {
  if (value <= 0 || floor <= 0) {
    std::printf("%s %.3f %s ratio=- of=%s target=%.2f void\n", figure, value, unit, of, target);
    return;
  }
  const double ratio = value / floor;
  std::printf("%s %.3f %s ratio=%.2f of=%s target=%.2f %s\n", figure, value, unit, ratio, of, target,
              ratio <= target ? "ok" : "short");
}

/// The median cost of each, taken in turns: what else the machine does meets both.
template <typename Work, typename Floor>
void compare(const char* figure, int runs, Work&& work, const char* of, Floor&& floor, double target) {
  std::vector<double> values;
  std::vector<double> floors;
  for (int run = 0; run < runs; ++run) {
    floors.push_back(timed([&] { floor(run); }));
    values.push_back(timed([&] { work(run); }));
  }
  report(figure, median(values), "ms", median(floors), of, target);
}

}  // namespace tarnwick::figures
