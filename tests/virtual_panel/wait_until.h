// Waiting for a condition in a test, with the event loop running.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

// Runs the event loop until `condition` holds. False if it does not within ten seconds.
template <typename Condition>
bool WaitUntil(Condition condition) {
  const QDeadlineTimer deadline(10'000);
  while (!condition()) {
    if (deadline.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
  }
  return true;
}
