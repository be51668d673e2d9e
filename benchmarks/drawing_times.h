// What the benchmarks of the editors share: the times of single runs, and what they are compared
// to.
#pragma once

#include <algorithm>
#include <vector>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "measure.h"
#include "row/draw_cell.h"

/// One plain rectangle for each character cell of a page.
inline void FillPlainly(QImage& image, int columns, int rows) {
  QPainter painter(&image);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      painter.fillRect(column * Brivon1::kCellWidth, row * kCellHeight, Brivon1::kCellWidth,
                       kCellHeight, (row + column) % 2 == 0 ? Qt::red : Qt::green);
    }
  }
}

/// Times of single runs; what else the machine does shows in the worst, not in the median.
class Times {
 public:
  template <typename Run>
  void Take(const Run& run) {
    milliseconds_.push_back(Microseconds(run) / 1000);
  }

  double Middle() const { return Median(milliseconds_); }

  double Worst() const { return *std::max_element(milliseconds_.begin(), milliseconds_.end()); }

 private:
  std::vector<double> milliseconds_;
};

/// The median time of filling `rows` rows of `columns` cells, in milliseconds.
inline double PlainMilliseconds(int columns, int rows) {
  QImage image(columns * Brivon1::kCellWidth, rows * kCellHeight,
               QImage::Format_ARGB32_Premultiplied);
  Times times;
  for (int time = 0; time < 101; ++time) times.Take([&] { FillPlainly(image, columns, rows); });
  return times.Middle();
}

/// Prints the median and the worst beside what `plain` rectangles take, and beside the limit.
inline void ReportTimes(benchmark::State& state, Times& times, double plain, double limit) {
  const double median = times.Middle();
  state.counters["worst_ms"] = times.Worst();
  state.counters["plain_ms"] = plain;
  state.counters["ratio"] = median / plain;
  Report(state, "median_ms", median, limit);
}
