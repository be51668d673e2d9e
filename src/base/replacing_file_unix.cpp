#include "base/replacing_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include <QFile>

#include "base/left_over_files.h"

namespace Brivon1 {
namespace {

constexpr int kMostLinks = 40;
constexpr int kMostNames = 1000;  // tried before the folder is taken for full of them

/// What the link `path` says, byte for byte; empty where it is none.
QByteArray LinkAt(const QByteArray& path) {
  std::array<char, PATH_MAX> text;
  const ssize_t size = readlink(path.constData(), text.data(), text.size());
  return size <= 0 ? QByteArray() : QByteArray(text.data(), size);
}

/// The file that a save to `path` replaces. Links that lead to each other are files themselves. The
/// system resolves what stands before a name, because ".." behind a link leads elsewhere.
QByteArray TargetOf(const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  if (name.contains('\0')) return name;
  QByteArray target = name;
  for (int links = 0; links < kMostLinks; ++links) {
    const QByteArray link = LinkAt(target);
    if (link.isEmpty()) return target;
    target = link.startsWith('/') || !target.contains('/') ? link : FolderOf(target) + link;
  }
  return name;
}

/// Whether a flush has failed because this disk, or the system for this user, has none.
bool CannotFlush(int error) {
  return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EACCES ||
         error == EPERM;
}

/// Whether a file that has a name from the beginning would meet the same error; others may come
/// from the way in which a nameless one receives its name.
bool IsFinalForName(int error) {
  return error == ENOSPC || error == EIO || error == EDQUOT || error == EEXIST ||
         error == ENAMETOOLONG;
}

bool Exists(const QByteArray& path) { return access(path.constData(), F_OK) == 0; }

/// Waits until a name has reached the disk, which could have the old file again after a power
/// failure. A disk that cannot tell changes nothing: the new one is there.
void FlushFolder(const QByteArray& folder) {
  const int handle = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  fsync(handle);
  close(handle);
}

/// A lock that another save's program asks for in order to know whether this one lives. A disk that
/// has no locks is none to look for left-over files on.
void Lock(int handle) { flock(handle, LOCK_EX | LOCK_NB); }

}  // namespace

QString ReplacedFile(const QString& path) { return QFile::decodeName(TargetOf(path)); }

ReplacingFile::ReplacingFile(const QString& path, bool has_name)
    : target_(TargetOf(path)), has_name_(has_name) {}

ReplacingFile::~ReplacingFile() {
  // The name first, as long as the lock holds.
  if (!name_.isEmpty()) unlink(name_.constData());
  if (handle_ >= 0) close(handle_);
}

int ReplacingFile::Open() {
  if (target_.contains('\0')) return EINVAL;
  // The folder's permission would do for the system; a file that may not be written is not
  // replaced.
  if (Exists(target_) && access(target_.constData(), W_OK) != 0) return errno;
  RemoveLeftOverFiles(target_);
  struct stat old {};
  const bool is_new = stat(target_.constData(), &old) != 0;
  const mode_t mode = is_new ? 0666U : old.st_mode & 0777U;
#ifdef O_TMPFILE
  if (!has_name_ && Exists("/proc/self/fd")) {
    handle_ = open(FolderOf(target_).constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    if (handle_ >= 0) {
      Lock(handle_);
      return 0;
    }
    // Otherwise it is the disk that has no files without a name.
    if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) return errno;
  }
#endif
  return OpenWithName(mode);
}

int ReplacingFile::OpenWithName(unsigned mode) {
  for (int attempt = 0; attempt < kMostNames; ++attempt) {
    const QByteArray name = SomeLeftOverName(target_);
    handle_ = open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (handle_ < 0 && errno == EEXIST) continue;
    if (handle_ < 0) return errno;
    Lock(handle_);
    if (Exists(name)) {
      name_ = name;
      return 0;
    }
    // Another program took it for a left-over one, before it was locked.
    close(handle_);
    handle_ = -1;
  }
  return EEXIST;
}

int ReplacingFile::Write(const QByteArray& content) const {
  QByteArrayView rest = content;
  while (!rest.isEmpty()) {
    const ssize_t written = write(handle_, rest.data(), static_cast<std::size_t>(rest.size()));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    if (written == 0) return ENOSPC;
    rest = rest.sliced(written);
  }
  return 0;
}

void ReplacingFile::KeepOwner() const {
  struct stat old {};
  if (stat(target_.constData(), &old) != 0) return;
  // The superuser's save would take the file away from its owner. Others can give a file to a group
  // of theirs at the most, and the system's refusal changes nothing.
  const auto give_to = [&](uid_t owner) { return fchown(handle_, owner, old.st_gid) == 0; };
  const bool is_kept = give_to(old.st_uid);
  const bool is_group_kept = is_kept || give_to(static_cast<uid_t>(-1));  // that is, nobody else
  // What runs as its owner may be made by that owner alone, and what one group may do is nothing to
  // another.
  mode_t mode = old.st_mode & (is_kept ? 07777U : 0777U);
  if (!is_group_kept) mode = (mode & 0707U) | ((mode & 07U) << 3U);
  // Last, because a change of hands and a write may cost bits.
  fchmod(handle_, mode);
}

int ReplacingFile::Flush() {
  KeepOwner();
  while (fsync(handle_) != 0) {
    if (errno != EINTR) return CannotFlush(errno) ? 0 : errno;
  }
  return 0;
}

int ReplacingFile::TakePlace() {
  const int error = Rename();
  if (error == 0) FlushFolder(FolderOf(target_));
  return error;
}

int ReplacingFile::Rename() {
  if (name_.isEmpty()) {
    const int error = GiveName();
    if (error != 0 || name_.isEmpty()) return error;
  }
  if (rename(name_.constData(), target_.constData()) != 0) {
    // Another machine has taken it for a left-over one.
    may_succeed_with_name_ = errno == ENOENT;
    return errno;
  }
  name_.clear();
  return 0;
}

/// Leaves the name empty where the file has taken its place by it.
int ReplacingFile::GiveName() {
  const QByteArray nameless = "/proc/self/fd/" + QByteArray::number(handle_);
  const auto link_to = [&nameless](const QByteArray& name) {
    return linkat(AT_FDCWD, nameless.constData(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW);
  };
  if (link_to(target_) == 0) return 0;
  for (int attempt = 0; errno == EEXIST && attempt < kMostNames; ++attempt) {
    const QByteArray name = SomeLeftOverName(target_);
    if (link_to(name) == 0) {
      name_ = name;
      return 0;
    }
  }
  may_succeed_with_name_ = !IsFinalForName(errno);
  return errno;
}

}  // namespace Brivon1
