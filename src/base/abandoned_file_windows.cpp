#include "base/abandoned_file.h"

#include <string>

#include <qt_windows.h>

#include "base/windows_names.h"

namespace Brivon1 {
namespace {

constexpr qint64 kLongestSave = qint64{300} * 10'000'000;  // in 100 ns

qint64 Ticks(const FILETIME& time) {
  return (qint64{time.dwHighDateTime} << 32) | qint64{time.dwLowDateTime};
}

bool IsOldOrdinaryFile(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION status{};
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  if (GetFileInformationByHandle(file, &status) == 0) return false;
  const qint64 age = Ticks(now) - Ticks(status.ftLastWriteTime);
  return (status.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) ==
             0 &&
         status.nNumberOfLinks == 1 && (age > kLongestSave || age < -kLongestSave);
}

}  // namespace

// UTF-8 takes at least as many bytes as the system counts units.
qsizetype LongestNameIn(const QByteArray& /*folder*/) { return 255; }

void RemoveIfAbandoned(const QByteArray& path, const QByteArray& /*target*/) {
  // Shared with nobody: a living program's save does not let itself be opened.
  HANDLE file = CreateFileW(WidePath(path).c_str(), DELETE | FILE_READ_ATTRIBUTES, 0, nullptr,
                            OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  if (IsOldOrdinaryFile(file)) {
    FILE_DISPOSITION_INFO gone{};
    gone.DeleteFile = 1;
    SetFileInformationByHandle(file, FileDispositionInfo, &gone, sizeof gone);
  }
  CloseHandle(file);
}

}  // namespace Brivon1
