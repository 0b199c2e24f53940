// SPDX-License-Identifier: MIT
#include "effects/Timeline.h"

#include <cmath>

namespace tarnwick {

namespace {

/// One coordinate of the curve; its end points are 0 and 1.
double coordinate(double first, double second, double u) {
  const double rest = 1 - u;
  return 3 * rest * rest * u * first + 3 * rest * u * u * second + u * u * u;
}

double slope(double first, double second, double u) {
  const double rest = 1 - u;
  return 3 * rest * rest * first + 6 * rest * u * (second - first) + 3 * u * u * (1 - second);
}

}  // namespace

double TimingFunction::at(double fraction) const {
  if (fraction <= 0) return 0;
  if (fraction >= 1) return 1;
  constexpr double kPrecision = 1e-9;
  double u = fraction;
  double low = 0;
  double high = 1;
  // Newton's step where it stays inside the bracket, halving where the curve is too flat for it.
  for (int step = 0; step < 60; ++step) {
    const double miss = coordinate(m_x1, m_x2, u) - fraction;
    if (std::abs(miss) < kPrecision) break;
    (miss > 0 ? high : low) = u;
    const double rise = slope(m_x1, m_x2, u);
    const double guess = u - miss / rise;
    u = rise > 1e-6 && guess > low && guess < high ? guess : (low + high) / 2;
  }
  return coordinate(m_y1, m_y2, u);
}

}  // namespace tarnwick
