// Time as the rules see it, taken from the toolkit's event loop: the 100 ms tick timer of a window
// that sends, and the millisecond clock. Waits sleep in the event loop, so the window stays alive.
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QTimer>

#include "panel_line/link.h"

namespace Brivon1 {

/// Sleeps in the event loop until it is woken.
class EventWaiter {
 public:
  /// Handles events, asleep in between, until Wake() is called or `at_most` milliseconds have
  /// passed (-1: without limit). Returns false when the program is ending.
  bool Wait(qint64 at_most);

  /// Ends the wait in progress; without one, the next wait returns at once.
  void Wake();

  /// Whether the next wait returns at once, without handling events.
  bool IsWoken() const { return woken_; }

 private:
  QEventLoop* current_loop_ = nullptr;
  bool woken_ = false;
};

/// The tick timer of a window: a QTimer named "Timer1".
class WindowTickTimer : public QObject, public TickTimer {
  Q_OBJECT

 public:
  WindowTickTimer(QObject* parent, EventWaiter& waiter);

  void Enable() override;
  void Disable() override;
  bool WaitForEvent() override;
  void ProcessEvents() override;

 private:
  EventWaiter& waiter_;
  QTimer* timer_;
  QElapsedTimer since_events_;
};

class EventClock : public MillisecondClock {
 public:
  explicit EventClock(EventWaiter& waiter);

  qint64 Milliseconds() const override;
  bool WaitForEvent(qint64 at_most) override;

 private:
  EventWaiter& waiter_;
  QElapsedTimer elapsed_;
};

}  // namespace Brivon1
