#include "store/writable_folder.h"

#include <QFileInfo>
#include <qt_windows.h>

#include "base/windows_names.h"

namespace Brivon1 {

// The toolkit takes every folder for writable; who may open it to add a file is told by the system.
bool IsWritableFolder(const QString& path) {
  const QByteArray absolute = QFileInfo(path).absoluteFilePath().toUtf8();
  HANDLE folder = CreateFileW(WidePath(absolute).c_str(), FILE_ADD_FILE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (folder == INVALID_HANDLE_VALUE) return false;
  CloseHandle(folder);
  return true;
}

}  // namespace Brivon1
