// For how long at most nobody handled events, so that a window would have stood still.
#pragma once

#include <algorithm>

#include <QElapsedTimer>
#include <QTimer>

/// Measures from its making on.
class LongestFreeze {
 public:
  LongestFreeze() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
    since_.start();
    timer_.start(10);
  }

  qint64 Milliseconds() {
    Look();
    return longest_;
  }

 private:
  void Look() { longest_ = std::max(longest_, since_.restart()); }

  QTimer timer_;
  QElapsedTimer since_;
  qint64 longest_ = 0;
};
