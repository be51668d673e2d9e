#include "reports/log_file.h"

#include "reports/log_append.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {

bool LogFile::Check() { return path_.isEmpty() || Take(TryAppending(path_)); }

bool LogFile::Append(const QByteArray& line) {
  return path_.isEmpty() || Take(AppendWhole(path_, line + '\n'));
}

bool LogFile::Take(const QString& reason) {
  if (reason.isEmpty()) return true;
  error_ = u"%1: %2"_s.arg(path_, reason);
  return false;
}

}  // namespace BrivonCtl
