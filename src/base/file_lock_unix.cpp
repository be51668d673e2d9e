#include "base/file_lock.h"

#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>

#include "base/replacing_file.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// From then on a lock is looked at more closely whose process seems to live, or which names none:
/// another program may have taken the number, or this one was killed before it had written its own.
/// One that is held stays even so, because the system keeps it, too.
constexpr std::chrono::milliseconds kUndoubted{1000};

/// The same of a lock that names another machine: this one's clock may differ from its disk's, and
/// its system may know nothing of that machine's locks.
constexpr std::chrono::milliseconds kUndoubtedElsewhere{30000};

std::chrono::milliseconds Undoubted(const QLockFile& lock) {
  QString machine;
  const bool is_named = lock.getLockInfo(nullptr, &machine, nullptr) && !machine.isEmpty();
  return is_named && machine != QSysInfo::machineHostName() ? kUndoubtedElsewhere : kUndoubted;
}

/// Removes the toolkit's second lock, under which it takes the first one over, where a program was
/// killed meanwhile. The system keeps one that is held.
void RemoveLeftOverTakeover(const QString& lock) {
  const QString second = lock + u".rmlock"_s;
  if (QFileInfo::exists(second)) QLockFile(second).removeStaleLockFile();
}

}  // namespace

struct FileLock::LockFile {
  QLockFile file;
};

FileLock::FileLock(const QString& path)
    : file_(new LockFile{.file{ReplacedFile(QFileInfo(path).absoluteFilePath()) + u".lock"_s}}) {
  file_->file.setStaleLockTime(kUndoubtedElsewhere);
}

FileLock::~FileLock() = default;

QString FileLock::Path() const { return file_->file.fileName(); }

bool FileLock::Take(const LockWait& wait) {
  QLockFile& file = file_->file;
  while (!file.tryLock(0)) {
    if (file.error() != QLockFile::LockFailedError) return true;
    if (!wait()) return false;
    file.setStaleLockTime(Undoubted(file));
  }
  RemoveLeftOverTakeover(Path());
  return true;
}

}  // namespace Brivon1
