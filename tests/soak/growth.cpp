#include "soak/growth.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

double StudentQuantile(qsizetype degrees_of_freedom) {
  static constexpr std::array<double, 30> kQuantiles = {
      12.706, 4.303, 3.182, 2.776, 2.571, 2.447, 2.365, 2.306, 2.262, 2.228,
      2.201,  2.179, 2.160, 2.145, 2.131, 2.120, 2.110, 2.101, 2.093, 2.086,
      2.080,  2.074, 2.069, 2.064, 2.060, 2.056, 2.052, 2.048, 2.045, 2.042};
  constexpr double kOfNormalDistribution = 1.960;
  if (degrees_of_freedom < 1) return std::numeric_limits<double>::infinity();
  if (degrees_of_freedom <= static_cast<qsizetype>(kQuantiles.size())) {
    return kQuantiles.at(static_cast<std::size_t>(degrees_of_freedom - 1));
  }
  return kOfNormalDistribution + 2.4 / static_cast<double>(degrees_of_freedom);
}

Slope FitSlope(const QList<Measurement>& measurements) {
  constexpr double kUnknown = std::numeric_limits<double>::infinity();
  const auto count = static_cast<double>(measurements.size());
  double mean_at = 0;
  double mean_value = 0;
  for (const Measurement& measurement : measurements) {
    mean_at += measurement.at / count;
    mean_value += measurement.value / count;
  }
  double squares = 0;
  double products = 0;
  for (const Measurement& measurement : measurements) {
    squares += (measurement.at - mean_at) * (measurement.at - mean_at);
    products += (measurement.at - mean_at) * (measurement.value - mean_value);
  }
  if (measurements.size() < 3 || squares <= 0) return {0, kUnknown, kUnknown};
  Slope slope;
  slope.value = products / squares;
  double residue = 0;
  for (const Measurement& measurement : measurements) {
    const double fitted = mean_value + slope.value * (measurement.at - mean_at);
    residue += (measurement.value - fitted) * (measurement.value - fitted);
  }
  slope.standard_error = std::sqrt(residue / (count - 2) / squares);
  slope.margin = slope.standard_error * StudentQuantile(measurements.size() - 2);
  return slope;
}

QList<Measurement> From(double from, const QList<Measurement>& measurements) {
  QList<Measurement> rest;
  std::copy_if(measurements.cbegin(), measurements.cend(), std::back_inserter(rest),
               [from](const Measurement& measurement) { return measurement.at >= from; });
  return rest;
}

bool Grows(const Slope& slope, double allowed) {
  return slope.Lowest() > allowed || slope.Highest() > 3 * allowed;
}
