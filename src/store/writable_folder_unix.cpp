#include "store/writable_folder.h"

#include <QFileInfo>

namespace Brivon1 {

bool IsWritableFolder(const QString& path) { return QFileInfo(path).isWritable(); }

}  // namespace Brivon1
