#include "base/program_icon.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

QIcon ProgramIcon(const QString& name) {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128}) {
    icon.addFile(u":/icons/%1/%2.png"_s.arg(size).arg(name));
  }
  return icon;
}

}  // namespace Brivon1
