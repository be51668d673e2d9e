// Waiting for a condition in a test, with the event loop running.
#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

// Runs the event loop until `condition` holds. False if it does not within ten seconds.
template <typename Condition>
bool WaitUntil(Condition condition) {
  const QDeadlineTimer deadline(10'000);
  while (!condition()) {
    if (deadline.hasExpired()) return false;
    QEventLoop loop;
    QTimer::singleShot(2, &loop, &QEventLoop::quit);
    loop.exec();
  }
  return true;
}
