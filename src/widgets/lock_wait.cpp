#include "widgets/lock_wait.h"

#include <memory>
#include <thread>

#include <QCursor>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>

namespace {

class BusyPointer {
 public:
  BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace

Brivon1::LockWait WaitWithBusyPointer() {
  const QDeadlineTimer deadline(Brivon1::kLongestLockWait);
  // Shared, because the function is copied; most saves wait for nobody, and their pointer stays.
  return [deadline, pointer = std::shared_ptr<BusyPointer>()]() mutable {
    if (deadline.hasExpired()) return false;
    if (!pointer) pointer = std::make_shared<BusyPointer>();
    QEventLoop loop;
    QTimer::singleShot(Brivon1::kBetweenLockTries, &loop, &QEventLoop::quit);
    const bool is_ending = loop.exec(QEventLoop::ExcludeUserInputEvents) != 0;
    // What the operator has asked to be saved is saved even so.
    if (is_ending) std::this_thread::sleep_for(Brivon1::kBetweenLockTries);
    return true;
  };
}
