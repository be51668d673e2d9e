#include "records/appended_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace VirtualPanel {

bool OpenAtEnd(const QString& path, QFile* file, QString* reason) {
  // O_APPEND in place of a seek to the end, which a device or a pipe does not have.
  const int descriptor =
      ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (descriptor < 0) {
    *reason = QString::fromLocal8Bit(std::strerror(errno));
    return false;
  }
  return file->open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                    QFileDevice::AutoCloseHandle);
}

bool IsFileAt(const QFile& file, const QString& path) {
  struct stat opened = {};
  struct stat named = {};
  return ::fstat(file.handle(), &opened) == 0 &&
         ::stat(QFile::encodeName(path).constData(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace VirtualPanel
