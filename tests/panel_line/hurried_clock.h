// A clock that handles events as the real one does, and is ten thousand times as fast.
#pragma once

#include <QTest>

#include "panel_line/link.h"

class HurriedClock : public Brivon1::MillisecondClock {
 public:
  qint64 Milliseconds() const override { return now_; }
  bool WaitForEvent(qint64 at_most) override {
    QTest::qWait(1);
    now_ += 10000 * at_most;
    return true;
  }

 private:
  qint64 now_ = 0;
};
