#include "base/left_over_files.h"

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <system_error>

#include <QByteArrayView>

namespace Brivon1 {
namespace {

constexpr QByteArrayView kBeforeLetters = ".~brivon-";
constexpr QByteArrayView kBehindLetters = "~";
constexpr qsizetype kMarkSize = kBeforeLetters.size() + kLeftOverLetters + kBehindLetters.size();

constexpr qsizetype kLongestName = 255;    // in bytes, on any disk
constexpr std::time_t kLongestSave = 300;  // in seconds

/// As much of the name of `target`, in whole characters, as leaves room for the mark.
QByteArrayView BeginningOfName(const QByteArray& target) {
  const QByteArrayView name = QByteArrayView(target).sliced(target.lastIndexOf('/') + 1);
  const qsizetype longest = pathconf(FolderOf(target).constData(), _PC_NAME_MAX);
  const qsizetype room =
      (longest > kMarkSize ? std::min(longest, kLongestName) : kLongestName) - kMarkSize;
  if (name.size() <= room) return name;
  qsizetype size = room;
  while (size > 0 && (static_cast<unsigned char>(name[size]) & 0xC0U) == 0x80U) --size;
  return name.first(size);
}

bool IsLetter(char letter) {
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

bool IsLeftOverName(QByteArrayView name, QByteArrayView beginning) {
  if (!name.startsWith(beginning)) return false;
  name = name.sliced(beginning.size());
  if (name.size() != kMarkSize) return false;
  const QByteArrayView letters = name.sliced(kBeforeLetters.size(), kLeftOverLetters);
  return name.startsWith(kBeforeLetters) && name.endsWith(kBehindLetters) &&
         std::all_of(letters.begin(), letters.end(), IsLetter);
}

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

QByteArray FolderOf(const QByteArray& path) {
  const qsizetype slash = path.lastIndexOf('/');
  return slash < 0 ? QByteArray(".") : path.first(slash + 1);
}

QByteArray LeftOverName(const QByteArray& target, const QByteArray& letters) {
  const qsizetype folder_size = target.lastIndexOf('/') + 1;
  return target.first(folder_size) + BeginningOfName(target).toByteArray() +
         kBeforeLetters.toByteArray() + letters + kBehindLetters.toByteArray();
}

void RemoveLeftOverFiles(const QByteArray& target) {
  const QByteArrayView beginning = BeginningOfName(target);
  if (beginning.isEmpty()) return;
  struct stat old {};
  const uid_t owner = stat(target.constData(), &old) == 0 ? old.st_uid : geteuid();
  std::error_code error;
  std::filesystem::directory_iterator entry(FolderOf(target).constData(), error);
  for (const std::filesystem::directory_iterator end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const QByteArrayView view(name.data(), static_cast<qsizetype>(name.size()));
    if (!IsLeftOverName(view, beginning)) continue;
    const char* path = entry->path().c_str();
    if (IsOldOrdinaryFileOf(owner, path)) RemoveUnlessLocked(path);
  }
}

}  // namespace Brivon1

#endif
