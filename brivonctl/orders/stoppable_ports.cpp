#include "orders/stoppable_ports.h"

namespace BrivonCtl {

bool StoppableTimer::WaitForEvent() {
  const bool goes_on = WindowTickTimer::WaitForEvent();
  TakeInStop();
  return goes_on;
}

void StoppableTimer::ProcessEvents() {
  WindowTickTimer::ProcessEvents();
  TakeInStop();
}

bool StoppableClock::WaitForEvent(qint64 at_most) {
  const bool goes_on = EventClock::WaitForEvent(at_most);
  timer_.TakeInStop();
  return goes_on;
}

StoppablePorts::StoppablePorts(const StopFlag& flag)
    : timer_(this, waiter_, flag), clock_(waiter_, timer_), serial_(this), tcp_(this) {
  connect(&serial_, &Brivon1::SerialLink::Happened, this, [this] { waiter_.Wake(); });
  connect(&tcp_, &Brivon1::TcpLink::Happened, this, [this] { waiter_.Wake(); });
}

}  // namespace BrivonCtl
