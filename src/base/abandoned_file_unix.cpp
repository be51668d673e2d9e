#include "base/abandoned_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>

namespace Brivon1 {
namespace {

constexpr std::time_t kLongestSave = 300;  // in seconds

/// Locks may be unknown to the other machines that use a disk. What may be one's save is not old.
bool IsOldOrdinaryFileOf(uid_t owner, const char* path) {
  struct stat status {};
  return lstat(path, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 &&
         (status.st_uid == geteuid() || status.st_uid == owner) &&
         std::abs(std::time(nullptr) - status.st_mtime) > kLongestSave;
}

void RemoveUnlessLocked(const char* path) {
  const int handle = open(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (handle < 0) return;
  if (flock(handle, LOCK_EX | LOCK_NB) == 0) unlink(path);
  close(handle);
}

}  // namespace

qsizetype LongestNameIn(const QByteArray& folder) {
  return pathconf(folder.constData(), _PC_NAME_MAX);
}

void RemoveIfAbandoned(const QByteArray& path, const QByteArray& target) {
  struct stat old {};
  const uid_t owner = stat(target.constData(), &old) == 0 ? old.st_uid : geteuid();
  if (IsOldOrdinaryFileOf(owner, path.constData())) RemoveUnlessLocked(path.constData());
}

}  // namespace Brivon1
