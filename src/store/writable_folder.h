// Whether this user may make files in a folder, and save a file there.
#pragma once

#include <QFileInfo>
#include <QString>

#include "base/replacing_file.h"

namespace Brivon1 {

/// False also where nothing has that name.
bool IsWritableFolder(const QString& path);

/// Whether neither the file nor its folder is closed to a save; where `path` is a link, its target.
inline bool MayBeSaved(const QString& path) {
  const QFileInfo file(ReplacedFile(path));
  return IsWritableFolder(file.path()) && (!file.exists() || file.isWritable());
}

}  // namespace Brivon1
