// clang-format off
#include <qt_windows.h>
// clang-format on
#include "base/file_lock.h"

#include <cstdlib>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "base/replacing_file.h"
#include "base/windows_names.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// A lock with a text is one of a Brivon on another system, whose disk may not tell that it is
/// held. When it is as old as that, it was left.
constexpr qint64 kUndoubtedMs = 30'000;

bool IsOfAnotherSystem(const QString& path) {
  const QFileInfo file(path);
  return file.size() > 0 &&
         std::abs(file.lastModified().msecsTo(QDateTime::currentDateTime())) < kUndoubtedMs;
}

/// The system shares the file with nobody as long as it is open and removes it when it is closed,
/// by whatever ends the program; on a server's disk that holds for the other machines too. The
/// toolkit's lock would keep the file open, and so locked, where its text finds no room on the
/// disk.
HANDLE OpenAlone(const std::wstring& path, DWORD disposition) {
  return CreateFileW(path.c_str(), DELETE, 0, nullptr, disposition,
                     FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

/// Whether there is a file, be it one that is about to go.
bool IsThere(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES ||
         GetLastError() == ERROR_ACCESS_DENIED;
}

}  // namespace

struct FileLock::LockFile {
  /// Returns whether another program holds it; if not, it is open from now on, or there can be
  /// none.
  bool IsHeldByAnother() {
    if (handle != INVALID_HANDLE_VALUE) return false;
    const std::wstring wide_path = WidePath(path.toUtf8());
    handle = OpenAlone(wide_path, CREATE_NEW);
    if (handle != INVALID_HANDLE_VALUE) return false;
    const DWORD error = GetLastError();
    if (error == ERROR_ACCESS_DENIED) return IsThere(wide_path);
    if (error != ERROR_FILE_EXISTS && error != ERROR_SHARING_VIOLATION) return false;
    if (IsOfAnotherSystem(path)) return true;
    handle = OpenAlone(wide_path, OPEN_EXISTING);
    return handle == INVALID_HANDLE_VALUE;
  }

  QString path;
  HANDLE handle = INVALID_HANDLE_VALUE;
};

FileLock::FileLock(const QString& path) : file_(new LockFile) {
  file_->path = ReplacedFile(QFileInfo(path).absoluteFilePath()) + u".lock"_s;
}

FileLock::~FileLock() {
  if (file_->handle != INVALID_HANDLE_VALUE) CloseHandle(file_->handle);
}

QString FileLock::Path() const { return QDir::toNativeSeparators(file_->path); }

bool FileLock::Take(const LockWait& wait) {
  while (file_->IsHeldByAnother()) {
    if (!wait()) return false;
  }
  return true;
}

}  // namespace Brivon1
