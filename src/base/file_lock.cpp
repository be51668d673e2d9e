#include "base/file_lock.h"

#include <thread>

#include <QDeadlineTimer>

namespace Brivon1 {

LockWait SleepBetweenTries(std::chrono::milliseconds at_most) {
  return [deadline = QDeadlineTimer(at_most)] {
    if (deadline.hasExpired()) return false;
    std::this_thread::sleep_for(kBetweenLockTries);
    return true;
  };
}

}  // namespace Brivon1
