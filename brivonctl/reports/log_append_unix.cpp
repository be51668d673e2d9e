#include "reports/log_append.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include <QFile>

namespace BrivonCtl {
namespace {

bool EndsWithinLine(int descriptor, off_t size) {
  char last = '\n';
  return size > 0 && ::pread(descriptor, &last, 1, size - 1) == 1 && last != '\n';
}

int Open(const QString& path) {
  int descriptor = -1;
  do {
    descriptor = ::open(QFile::encodeName(path).constData(),
                        O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
  } while (descriptor < 0 && errno == EINTR);
  struct stat status = {};
  if (descriptor >= 0 && ::fstat(descriptor, &status) == 0 && !S_ISREG(status.st_mode)) {
    ::close(descriptor);
    errno = EINVAL;
    return -1;
  }
  return descriptor;
}

QString Reason(int error) {
  return error == EINVAL ? QString::fromLatin1(kNoOrdinaryFile) : qt_error_string(error);
}

}  // namespace

QString TryAppending(const QString& path) {
  const int descriptor = Open(path);
  if (descriptor < 0) return Reason(errno);
  ::close(descriptor);
  return {};
}

QString AppendWhole(const QString& path, const QByteArray& bytes) {
  const int descriptor = Open(path);
  if (descriptor < 0) return Reason(errno);
  // The lock keeps others out while bytes that do not fit are taken back.
  while (::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
  }
  struct stat before = {};
  ::fstat(descriptor, &before);
  const QByteArray all = EndsWithinLine(descriptor, before.st_size) ? '\n' + bytes : bytes;
  ssize_t written = 0;
  do {
    written = ::write(descriptor, all.constData(), static_cast<std::size_t>(all.size()));
  } while (written < 0 && errno == EINTR);
  const bool is_whole = written == all.size();
  const int error = written < 0 ? errno : ENOSPC;
  if (!is_whole && written > 0) [[maybe_unused]]
    const int result = ::ftruncate(descriptor, before.st_size);
  ::close(descriptor);
  return is_whole ? QString() : Reason(error);
}

}  // namespace BrivonCtl
