#include "orders/stoppable_ports.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>

#include "panel_line/waits.h"

namespace BrivonCtl {

void StoppableTimer::Enable() {
  if (std::exchange(is_enabled_, true)) return;
  counted_ = 0;
  since_enabled_.start();
}

bool StoppableTimer::WaitForEvent() {
  // Reading may have woken it already; of a line whose input never ends it does so each time.
  if (waiter_.IsWoken()) ProcessEvents();
  if (!is_enabled_) return waiter_.Wait(-1);
  // What has passed while nobody waited is one tick at the most.
  counted_ = std::max(counted_, TicksPassed() - 1);
  // A pause may end at each tick, an acknowledgement wait only at its time-out.
  const qint64 ticks = waiting ? 1 : (Brivon1::kAckTimeout - ack_tick_counter - 1) / kInterval + 1;
  const qint64 due = (counted_ + std::max<qint64>(ticks, 1)) * kInterval;
  const bool goes_on = Sleep(std::max<qint64>(due - since_enabled_.elapsed(), 0));
  for (; counted_ < TicksPassed(); ++counted_) Tick();
  TakeInStop();
  return goes_on;
}

/// An answer over TCP is waited for at its socket: a thread has no window to keep alive, and of
/// hundreds that get their answers at the same time each would go twice through its event loop.
bool StoppableTimer::Sleep(qint64 at_most) {
  if (waiting || waiter_.IsWoken() || !tcp_.WaitForInput(at_most)) return waiter_.Wait(at_most);
  return !waiter_.IsWoken() || waiter_.Wait(0);
}

void StoppableTimer::ProcessEvents() {
  constexpr qint64 kLongestWithoutEvents = kInterval;
  if (!since_events_.isValid() || since_events_.elapsed() >= kLongestWithoutEvents) {
    QCoreApplication::processEvents();
    since_events_.start();
  }
  TakeInStop();
}

bool StoppableClock::WaitForEvent(qint64 at_most) {
  const bool goes_on = EventClock::WaitForEvent(at_most);
  timer_.TakeInStop();
  return goes_on;
}

StoppablePorts::StoppablePorts(const StopFlag& flag)
    : serial_(this), tcp_(this, 0), timer_(waiter_, tcp_, flag), clock_(waiter_, timer_) {
  connect(&serial_, &Brivon1::SerialLink::Happened, this, [this] { waiter_.Wake(); });
  connect(&tcp_, &Brivon1::TcpLink::Happened, this, [this] { waiter_.Wake(); });
}

}  // namespace BrivonCtl
