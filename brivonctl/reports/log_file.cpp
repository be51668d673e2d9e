#include "reports/log_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include <QFile>

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

/// Whether the file ends within a line that somebody else could not finish.
bool EndsWithinLine(int descriptor, off_t size) {
  char last = '\n';
  return size > 0 && ::pread(descriptor, &last, 1, size - 1) == 1 && last != '\n';
}

}  // namespace

int LogFile::Open() {
  int descriptor = -1;
  do {
    descriptor = ::open(QFile::encodeName(path_).constData(),
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

bool LogFile::Fail(int error) {
  error_ = u"%1: %2"_s.arg(path_, error == EINVAL ? u"no ordinary file"_s : qt_error_string(error));
  return false;
}

bool LogFile::Check() {
  if (path_.isEmpty()) return true;
  const int descriptor = Open();
  if (descriptor < 0) return Fail(errno);
  ::close(descriptor);
  return true;
}

bool LogFile::Append(const QByteArray& line) {
  if (path_.isEmpty()) return true;
  const int descriptor = Open();
  if (descriptor < 0) return Fail(errno);
  // The lock keeps others out while a line that does not fit is taken back.
  while (::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
  }
  struct stat before = {};
  ::fstat(descriptor, &before);
  QByteArray bytes = line + '\n';
  if (EndsWithinLine(descriptor, before.st_size)) bytes.prepend('\n');
  ssize_t written = 0;
  do {
    written = ::write(descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()));
  } while (written < 0 && errno == EINTR);
  const bool is_whole = written == bytes.size();
  const int error = written < 0 ? errno : ENOSPC;
  if (!is_whole && written > 0) [[maybe_unused]]
    const int result = ::ftruncate(descriptor, before.st_size);
  ::close(descriptor);
  return is_whole || Fail(error);
}

}  // namespace BrivonCtl
