#include "reports/log_append.h"

#include <windows.h>

#include <string>

#include <QFileInfo>

#include "base/windows_names.h"

namespace BrivonCtl {
namespace {

HANDLE Open(const QString& path) {
  const std::wstring wide = Brivon1::WidePath(QFileInfo(path).absoluteFilePath().toUtf8());
  // What others do with the file meanwhile, its renaming included, is left to them.
  const HANDLE file = ::CreateFileW(wide.c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE || ::GetFileType(file) == FILE_TYPE_DISK) return file;
  ::CloseHandle(file);
  ::SetLastError(ERROR_INVALID_PARAMETER);
  return INVALID_HANDLE_VALUE;
}

QString Reason(DWORD error) {
  return error == ERROR_INVALID_PARAMETER ? QString::fromLatin1(kNoOrdinaryFile)
                                          : qt_error_string(static_cast<int>(error));
}

bool MoveTo(HANDLE file, LONGLONG place) {
  LARGE_INTEGER to = {};
  to.QuadPart = place;
  return ::SetFilePointerEx(file, to, nullptr, FILE_BEGIN) != 0;
}

bool EndsWithinLine(HANDLE file, LONGLONG size) {
  char last = '\n';
  DWORD read = 0;
  return size > 0 && MoveTo(file, size - 1) && ::ReadFile(file, &last, 1, &read, nullptr) != 0 &&
         read == 1 && last != '\n';
}

/// Returns the system's number of the error; 0: all of it stands there.
DWORD AppendTo(HANDLE file, const QByteArray& bytes) {
  LARGE_INTEGER before = {};
  if (::GetFileSizeEx(file, &before) == 0) return ::GetLastError();
  const QByteArray all = EndsWithinLine(file, before.QuadPart) ? '\n' + bytes : bytes;
  if (!MoveTo(file, before.QuadPart)) return ::GetLastError();
  DWORD written = 0;
  const bool has_failed =
      ::WriteFile(file, all.constData(), static_cast<DWORD>(all.size()), &written, nullptr) == 0;
  const DWORD error = has_failed ? ::GetLastError() : ERROR_DISK_FULL;
  if (!has_failed && static_cast<qsizetype>(written) == all.size()) return 0;
  if (MoveTo(file, before.QuadPart)) ::SetEndOfFile(file);
  return error;
}

}  // namespace

QString TryAppending(const QString& path) {
  const HANDLE file = Open(path);
  if (file == INVALID_HANDLE_VALUE) return Reason(::GetLastError());
  ::CloseHandle(file);
  return {};
}

QString AppendWhole(const QString& path, const QByteArray& bytes) {
  const HANDLE file = Open(path);
  if (file == INVALID_HANDLE_VALUE) return Reason(::GetLastError());
  // Everybody who appends a line locks the same byte, which lies behind any end: so each finds the
  // others' lines whole, and whoever only reads is not kept out.
  OVERLAPPED lock = {};
  lock.Offset = 0xFFFFFFFE;
  lock.OffsetHigh = 0x7FFFFFFF;
  // Where the disk knows no locks the line is written all the same.
  ::LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &lock);
  const DWORD error = AppendTo(file, bytes);
  ::CloseHandle(file);  // the lock goes with it
  return error == 0 ? QString() : Reason(error);
}

}  // namespace BrivonCtl
