#include <QFileInfo>

#include "base/files.h"

namespace Brivon1 {

bool FileExists(const QString& path) { return QFileInfo(path).isFile(); }

}  // namespace Brivon1
