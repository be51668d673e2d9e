#include "panel_line/tick_timer.h"

#include <utility>

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace Brivon1 {

bool EventWaiter::Wait(qint64 at_most) {
  if (!woken_) {
    QEventLoop loop;
    QTimer limit;
    if (at_most >= 0) {
      limit.setTimerType(Qt::PreciseTimer);
      limit.setSingleShot(true);
      QObject::connect(&limit, &QTimer::timeout, &loop, [this] { Wake(); });
      limit.start(static_cast<int>(at_most));
    }
    current_loop_ = &loop;
    loop.exec();
    current_loop_ = nullptr;
  }
  // A loop that ends without having been woken was ended by the program's end.
  return std::exchange(woken_, false);
}

void EventWaiter::Wake() {
  woken_ = true;
  if (current_loop_ != nullptr) current_loop_->quit();
}

WindowTickTimer::WindowTickTimer(QObject* parent, EventWaiter& waiter)
    : QObject(parent), waiter_(waiter), timer_(new QTimer(this)) {
  timer_->setObjectName(u"Timer1"_s);
  timer_->setTimerType(Qt::PreciseTimer);
  timer_->setInterval(kInterval);
  connect(timer_, &QTimer::timeout, this, [this] {
    Tick();
    waiter_.Wake();
  });
}

void WindowTickTimer::Enable() {
  if (!timer_->isActive()) timer_->start();
}

void WindowTickTimer::Disable() { timer_->stop(); }

bool WindowTickTimer::WaitForEvent() {
  // Reading may have woken it already. Of a line whose input never ends it does so each time, and
  // would keep the ticks away.
  if (waiter_.IsWoken()) {
    ProcessEvents();
    return waiter_.Wait(-1);
  }
  const bool goes_on = waiter_.Wait(-1);
  since_events_.start();
  return goes_on;
}

void WindowTickTimer::ProcessEvents() {
  // Between two answers that come at once nobody misses the window.
  constexpr qint64 kLongestWithoutEvents = 20;
  if (since_events_.isValid() && since_events_.elapsed() < kLongestWithoutEvents) return;
  QCoreApplication::processEvents();
  since_events_.start();
}

EventClock::EventClock(EventWaiter& waiter) : waiter_(waiter) { elapsed_.start(); }

qint64 EventClock::Milliseconds() const { return elapsed_.elapsed(); }

bool EventClock::WaitForEvent(qint64 at_most) { return waiter_.Wait(at_most); }

}  // namespace Brivon1
