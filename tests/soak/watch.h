// Measures what the process holds, again and again, writes it down, and says at the end what grows.
#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

#include "soak/growth.h"
#include "soak/usage.h"

class Watch {
 public:
  /// Each measurement is a line of the file at `csv_path`, if that is not empty.
  explicit Watch(const QString& csv_path);

  double Minutes() const { return static_cast<double>(since_.elapsed()) / 60'000; }

  /// `is_calm`: no window is open, so that it can be compared with other such moments.
  void Measure(bool is_calm, qint64 transfers);

  /// The slopes of what was measured at calm moments from `from` minutes on, one line each.
  /// `*grows` tells whether any of it does.
  QStringList Report(double from, bool* grows) const;

 private:
  struct Entry {
    double minute;
    Usage usage;
  };

  QElapsedTimer since_;
  QFile csv_;
  QList<Entry> calm_;
};
