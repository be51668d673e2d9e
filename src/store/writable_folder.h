// Whether this user may make files in a folder.
#pragma once

#include <QString>

namespace Brivon1 {

/// False also where nothing has that name.
bool IsWritableFolder(const QString& path);

}  // namespace Brivon1
