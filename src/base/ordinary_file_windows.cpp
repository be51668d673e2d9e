#include <QFileInfo>

#include "base/files.h"
#include "base/windows_names.h"

namespace Brivon1 {

bool FileExists(const QString& path) {
  const QFileInfo file(path);
  return file.isFile() && !IsDeviceName(file.fileName());
}

}  // namespace Brivon1
