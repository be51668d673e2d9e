// clang-format off
#include <qt_windows.h>
#include <aclapi.h>
// clang-format on
#include "base/replacing_file.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string>

#include <QByteArrayView>
#include <QDir>
#include <QFileInfo>
#include <QString>

#include "base/left_over_files.h"
#include "base/windows_names.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr DWORD kDiskQuotaExceeded = 1295;  // MinGW has no name for it
constexpr int kMostNames = 1000;            // tried before the folder is taken for full of them

/// The number that other systems have for what Windows reports as `error`; `unnamed` for the rest.
int NumberOf(DWORD error, int unnamed) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_BAD_PATHNAME:
      return ENOENT;
    case ERROR_INVALID_NAME:
      return EINVAL;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return EACCES;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return ENOSPC;
    case ERROR_FILE_TOO_LARGE:
      return EFBIG;
    case ERROR_NOT_READY:
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETNAME_DELETED:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_IO_DEVICE:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_FILE_INVALID:
      return EIO;
    default:
      return unnamed;
  }
}

/// The error of the C library's last call.
int LastNumber() { return NumberOf(_doserrno, errno); }

HANDLE SystemHandle(int handle) { return reinterpret_cast<HANDLE>(_get_osfhandle(handle)); }

/// Where the link `path` leads; `path` itself where it leads nowhere.
QByteArray EndOfLink(const QByteArray& path) {
  HANDLE file =
      CreateFileW(WidePath(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return path;
  std::wstring end(32768, L'\0');
  const DWORD size = GetFinalPathNameByHandleW(file, end.data(), static_cast<DWORD>(end.size()),
                                               FILE_NAME_NORMALIZED);
  CloseHandle(file);
  if (size == 0 || size >= end.size()) return path;
  QString name = QString::fromWCharArray(end.data(), static_cast<qsizetype>(size));
  if (name.startsWith(uR"(\\?\UNC\)"_s)) {
    name.replace(0, 8, uR"(\\)"_s);
  } else if (name.startsWith(uR"(\\?\)"_s)) {
    name.remove(0, 4);
  }
  return QDir::fromNativeSeparators(name).toUtf8();
}

/// The file that a save to `path` replaces.
QByteArray TargetOf(const QString& path) {
  const QByteArray target = QFileInfo(path).absoluteFilePath().toUtf8();
  const DWORD attributes = GetFileAttributesW(WidePath(target).c_str());
  const bool is_link =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return is_link ? EndOfLink(target) : target;
}

/// Moves the file `name` to `target`; returns the system's number of the error. Nothing can take
/// the place of a file that somebody reads, which takes a moment as a rule.
DWORD Replace(const std::wstring& target, const std::wstring& name) {
  constexpr int kMostAttempts = 26;
  constexpr DWORD kPauseMs = 20;
  for (int attempt = 1;; ++attempt) {
    if (MoveFileExW(name.c_str(), target.c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
      return ERROR_SUCCESS;
    }
    const DWORD error = GetLastError();
    const bool may_pass = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!may_pass || attempt == kMostAttempts) return error;
    Sleep(kPauseMs);
  }
}

/// Whether a path ends in what is no file's name: a device's, or one of a stream within a file.
bool NamesNoFile(const QByteArray& path) {
  const QString name = QString::fromUtf8(path.sliced(path.lastIndexOf('/') + 1));
  return IsDeviceName(name) || name.contains(u':');
}

}  // namespace

QString ReplacedFile(const QString& path) { return QString::fromUtf8(TargetOf(path)); }

ReplacingFile::ReplacingFile(const QString& path, bool has_name)
    : target_(TargetOf(path)), has_name_(has_name) {}

ReplacingFile::~ReplacingFile() {
  // Nobody can open it before it is closed, and nobody can remove it until then.
  if (handle_ >= 0) _close(handle_);
  if (!name_.isEmpty()) DeleteFileW(WidePath(name_).c_str());
}

int ReplacingFile::Open() {
  if (target_.contains('\0') || NamesNoFile(target_)) return EINVAL;
  const DWORD attributes = GetFileAttributesW(WidePath(target_).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    return EACCES;
  }
  RemoveLeftOverFiles(target_);
  return OpenWithName(_S_IREAD | _S_IWRITE);
}

int ReplacingFile::OpenWithName(unsigned mode) {
  for (int attempt = 0; attempt < kMostNames; ++attempt) {
    const QByteArray name = SomeLeftOverName(target_);
    // Shared with nobody as long as it is open: what can be opened was left by a killed program.
    _wsopen_s(&handle_, WidePath(name).c_str(),
              _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _SH_DENYRW,
              static_cast<int>(mode));
    if (handle_ < 0 && errno == EEXIST) continue;
    if (handle_ < 0) return LastNumber();
    name_ = name;
    return 0;
  }
  return EEXIST;
}

int ReplacingFile::Write(const QByteArray& content) const {
  QByteArrayView rest = content;
  while (!rest.isEmpty()) {
    const auto size = static_cast<unsigned>(std::min<qsizetype>(rest.size(), INT_MAX));
    const int written = _write(handle_, rest.data(), size);
    if (written < 0) return LastNumber();
    if (written == 0) return ENOSPC;
    rest = rest.sliced(written);
  }
  return 0;
}

/// The old file's permissions. A refusal changes nothing: the folder's hold then.
void ReplacingFile::KeepOwner() const {
  std::wstring target = WidePath(target_);
  PACL permissions = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (GetNamedSecurityInfoW(target.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                            nullptr, &permissions, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  const bool is_protected = GetSecurityDescriptorControl(descriptor, &control, &revision) != 0 &&
                            (control & SE_DACL_PROTECTED) != 0;
  // Or else the folder's would come in where the old file keeps them out.
  const SECURITY_INFORMATION inheritance =
      is_protected ? PROTECTED_DACL_SECURITY_INFORMATION : UNPROTECTED_DACL_SECURITY_INFORMATION;
  std::wstring name = WidePath(name_);
  SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance,
                        nullptr, nullptr, permissions, nullptr);
  LocalFree(descriptor);
}

int ReplacingFile::Flush() {
  if (FlushFileBuffers(SystemHandle(handle_)) != 0) return 0;
  const DWORD error = GetLastError();
  // A disk that has no flush.
  if (error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED) return 0;
  return NumberOf(error, EIO);
}

int ReplacingFile::TakePlace() {
  const int closed = _close(handle_);
  handle_ = -1;
  if (closed != 0) return LastNumber();
  KeepOwner();
  const std::wstring target = WidePath(target_);
  const DWORD attributes = GetFileAttributesW(target.c_str());
  const DWORD error = Replace(target, WidePath(name_));
  if (error != ERROR_SUCCESS) return NumberOf(error, EACCES);
  name_.clear();
  if (attributes != INVALID_FILE_ATTRIBUTES) SetFileAttributesW(target.c_str(), attributes);
  return 0;
}

}  // namespace Brivon1
