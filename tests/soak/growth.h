// Whether a quantity that is measured again and again grows: the straight line that fits best, and
// how sure its slope is.
#pragma once

#include <QList>
#include <QString>

struct Measurement {
  double at = 0;
  double value = 0;
};

/// The line through measurements by the least squares of their distances.
struct Slope {
  double value = 0;           ///< Of the quantity for each unit of `at`.
  double standard_error = 0;  ///< Infinite where fewer than three moments were measured.
  double margin = 0;          ///< The slope lies within it, to 95 %.

  double Lowest() const { return value - margin; }
  double Highest() const { return value + margin; }
};

Slope FitSlope(const QList<Measurement>& measurements);

/// Those from `from` on.
QList<Measurement> From(double from, const QList<Measurement>& measurements);

/// Whether the quantity grows: by more than `allowed` for each unit, to 97.5 %. Measurements that
/// scatter so much that three times `allowed` would pass unseen are taken for growth too: they show
/// nothing.
bool Grows(const Slope& slope, double allowed);

/// Student's quantile for 95 % on both sides.
double StudentQuantile(qsizetype degrees_of_freedom);
