#include "base/file_lock.h"

#include <thread>

#include <QDeadlineTimer>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// From then on a lock is looked at more closely whose process seems to live, or which names none:
/// another program may have taken the number, or this one was killed before it had written its own.
/// One that is held stays even so, because the system keeps it, too.
constexpr std::chrono::milliseconds kUndoubted{1000};

QString LockPath(const QString& path) {
  const QFileInfo file(path);
  const QString target = file.canonicalFilePath();  // empty where there is none
  return (target.isEmpty() ? file.absoluteFilePath() : target) + u".lock"_s;
}

}  // namespace

LockWait SleepBetweenTries(std::chrono::milliseconds at_most) {
  return [deadline = QDeadlineTimer(at_most)] {
    if (deadline.hasExpired()) return false;
    std::this_thread::sleep_for(kBetweenLockTries);
    return true;
  };
}

FileLock::FileLock(const QString& path) : file_(LockPath(path)) {
  file_.setStaleLockTime(kUndoubted);
}

bool FileLock::Take(const LockWait& wait) {
  while (!file_.tryLock(0)) {
    if (file_.error() != QLockFile::LockFailedError) return true;
    if (!wait()) return false;
  }
  return true;
}

}  // namespace Brivon1
