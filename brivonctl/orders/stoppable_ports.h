// The ports and the time of one thread that sends. All of it lives and dies in that thread; a stop
// that another one asks for is taken in at the thread's own next event.
#pragma once

#include <atomic>

#include <QElapsedTimer>
#include <QObject>

#include "panel_line/panel_connection.h"
#include "panel_line/serial_link.h"
#include "panel_line/tcp_link.h"
#include "panel_line/tick_timer.h"

namespace BrivonCtl {

/// Set by one thread, looked at by many.
using StopFlag = std::atomic<bool>;

/// Counts its ticks by the clock, and sleeps through those that nobody can be waiting for: hundreds
/// of threads that woke up at every tick would keep a processor busy.
class StoppableTimer : public Brivon1::TickTimer {
 public:
  StoppableTimer(Brivon1::EventWaiter& waiter, Brivon1::TcpLink& tcp, const StopFlag& flag)
      : waiter_(waiter), tcp_(tcp), flag_(flag) {}

  void Enable() override;
  void Disable() override { is_enabled_ = false; }
  bool WaitForEvent() override;
  void ProcessEvents() override;

  void TakeInStop() { stop.made = stop.made || flag_.load(); }

 private:
  bool Sleep(qint64 at_most);
  qint64 TicksPassed() const { return since_enabled_.elapsed() / kInterval; }

  Brivon1::EventWaiter& waiter_;
  Brivon1::TcpLink& tcp_;
  const StopFlag& flag_;
  bool is_enabled_ = false;
  qint64 counted_ = 0;  // ticks since it was enabled
  QElapsedTimer since_enabled_;
  QElapsedTimer since_events_;
};

class StoppableClock : public Brivon1::EventClock {
 public:
  StoppableClock(Brivon1::EventWaiter& waiter, StoppableTimer& timer)
      : EventClock(waiter), timer_(timer) {}

  bool WaitForEvent(qint64 at_most) override;

 private:
  StoppableTimer& timer_;
};

class StoppablePorts : public QObject {
  Q_OBJECT

 public:
  /// `flag` outlives the ports. The thread has an event loop, running or not.
  explicit StoppablePorts(const StopFlag& flag);

  Brivon1::PanelPorts Ports() { return {serial_, tcp_, timer_, clock_}; }

 private:
  Brivon1::EventWaiter waiter_;
  Brivon1::SerialLink serial_;
  Brivon1::TcpLink tcp_;
  StoppableTimer timer_;
  StoppableClock clock_;
};

}  // namespace BrivonCtl
