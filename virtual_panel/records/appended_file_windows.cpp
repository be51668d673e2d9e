#include "records/appended_file.h"

#include <windows.h>

#include <io.h>

#include <string>

#include <QFileInfo>

#include "base/windows_names.h"

namespace VirtualPanel {
namespace {

// Others may read it, write to it, and move it away.
HANDLE Open(const QString& path, DWORD access, DWORD disposition) {
  const std::wstring wide = Brivon1::WidePath(QFileInfo(path).absoluteFilePath().toUtf8());
  return ::CreateFileW(wide.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

bool OpenAtEnd(const QString& path, QFile* file, QString* reason) {
  // The right to append, and no more, puts every line at the end.
  const HANDLE handle = Open(path, FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS);
  if (handle == INVALID_HANDLE_VALUE) {
    *reason = qt_error_string(static_cast<int>(::GetLastError()));
    return false;
  }
  const int descriptor = ::_open_osfhandle(reinterpret_cast<intptr_t>(handle), 0);
  if (descriptor < 0) {
    ::CloseHandle(handle);
    *reason = qt_error_string(ERROR_TOO_MANY_OPEN_FILES);
    return false;
  }
  return file->open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                    QFileDevice::AutoCloseHandle);
}

bool IsFileAt(const QFile& file, const QString& path) {
  const auto opened = reinterpret_cast<HANDLE>(::_get_osfhandle(file.handle()));
  // What is no file of a disk has no name that it could lose.
  if (::GetFileType(opened) != FILE_TYPE_DISK) return true;
  const HANDLE named = Open(path, 0, OPEN_EXISTING);
  if (named == INVALID_HANDLE_VALUE) return false;
  BY_HANDLE_FILE_INFORMATION one = {};
  BY_HANDLE_FILE_INFORMATION other = {};
  const bool are_known = ::GetFileInformationByHandle(opened, &one) != 0 &&
                         ::GetFileInformationByHandle(named, &other) != 0;
  ::CloseHandle(named);
  return are_known && one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
         one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

}  // namespace VirtualPanel
