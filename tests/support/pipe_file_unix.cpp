#include "support/pipe_file.h"

#include <sys/stat.h>

#include <QFile>

bool MakePipe(const QString& path) {
  return mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

bool IsPipe(const QString& path) {
  struct stat found = {};
  return stat(QFile::encodeName(path).constData(), &found) == 0 && S_ISFIFO(found.st_mode);
}
