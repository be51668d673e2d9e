#include "files/output.h"

#include <cerrno>
#include <cstdio>

#include <QString>

#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {

bool Print(const QByteArray& bytes) {
  const auto size = static_cast<std::size_t>(bytes.size());
  errno = 0;
  if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0) {
    return true;
  }
  Complain(u"the result cannot be written: %1"_s.arg(qt_error_string(errno)));
  return false;
}

}  // namespace BrivonCtl
