#include "base/left_over_files.h"

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <QByteArrayView>

namespace Brivon1 {
namespace {

constexpr QByteArrayView kBeforeLetters = ".~";
constexpr QByteArrayView kBehindLetters = "~";

bool IsLetter(char letter) {
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

bool IsLeftOverName(QByteArrayView name, QByteArrayView target) {
  if (!name.startsWith(target)) return false;
  name = name.sliced(target.size());
  if (name.size() != kBeforeLetters.size() + kLeftOverLetters + kBehindLetters.size()) return false;
  const QByteArrayView letters = name.sliced(kBeforeLetters.size(), kLeftOverLetters);
  return name.startsWith(kBeforeLetters) && name.endsWith(kBehindLetters) &&
         std::all_of(letters.begin(), letters.end(), IsLetter);
}

bool IsOrdinaryFileOf(uid_t owner, const char* path) {
  struct stat status {};
  return lstat(path, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 &&
         (status.st_uid == geteuid() || status.st_uid == owner);
}

void RemoveUnlessLocked(const char* path) {
  const int handle = open(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (handle < 0) return;
  if (flock(handle, LOCK_EX | LOCK_NB) == 0) unlink(path);
  close(handle);
}

}  // namespace

QByteArray LeftOverName(const QByteArray& target, const QByteArray& letters) {
  return target + kBeforeLetters.toByteArray() + letters + kBehindLetters.toByteArray();
}

void RemoveLeftOverFiles(const QByteArray& target) {
  const qsizetype slash = target.lastIndexOf('/');
  const QByteArray folder = slash < 0 ? QByteArray(".") : target.first(slash + 1);
  const QByteArrayView file = QByteArrayView(target).sliced(slash + 1);
  if (file.isEmpty()) return;
  struct stat old {};
  const uid_t owner = stat(target.constData(), &old) == 0 ? old.st_uid : geteuid();
  std::error_code error;
  std::filesystem::directory_iterator entry(folder.constData(), error);
  for (const std::filesystem::directory_iterator end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!IsLeftOverName(QByteArrayView(name.data(), static_cast<qsizetype>(name.size())), file)) {
      continue;
    }
    const char* path = entry->path().c_str();
    if (IsOrdinaryFileOf(owner, path)) RemoveUnlessLocked(path);
  }
}

}  // namespace Brivon1

#endif
