#include "base/files.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <QFileInfo>
#include <QSaveFile>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// Whether a system call failed because of the disk and not because of the path.
bool IsDiskFailure(int error) {
  return error == ENOSPC || error == EIO || error == EROFS || error == ENXIO || error == ENODEV
#ifdef EDQUOT
         || error == EDQUOT
#endif
      ;
}

/// What the system says of `error`, in English; an error that it has not named is a refusal.
QString ReasonOf(int error) {
  switch (error) {
    case 0:
    case EPERM:
    case EACCES:
      return u"Permission denied"_s;
    case ENOENT:
      return u"No such file or directory"_s;
    case EISDIR:
      return u"Is a directory"_s;
    case ENOTDIR:
      return u"Not a directory"_s;
    case ENAMETOOLONG:
      return u"File name too long"_s;
    case EFBIG:
      return u"File too large"_s;
    case ENOSPC:
      return u"No space left on device"_s;
    case EROFS:
      return u"Read-only file system"_s;
    case EIO:
      return u"Input/output error"_s;
    default:
      return qt_error_string(error);
  }
}

/// Whether what was flushed has reached the disk: a disk that is full or failing may say so only
/// now, and the toolkit would not ask.
bool IsOnDisk([[maybe_unused]] const QSaveFile& file) {
#ifdef Q_OS_UNIX
  return fsync(file.handle()) == 0 || !IsDiskFailure(errno);
#else
  return true;
#endif
}

/// Gives `file` the owner, the group and the mode of the file at `path` that it replaces, if there
/// is one: the superuser's save would take it away from its owner. Others can give a file to a
/// group of theirs at the most, and the system's refusal changes nothing.
void KeepOwner([[maybe_unused]] const QString& path, [[maybe_unused]] const QSaveFile& file) {
#ifdef Q_OS_UNIX
  struct stat old {};
  if (stat(QFile::encodeName(path).constData(), &old) != 0) return;
  const auto give_to = [&](uid_t owner) { return fchown(file.handle(), owner, old.st_gid) == 0; };
  const bool is_kept = give_to(old.st_uid);
  const bool is_group_kept = is_kept || give_to(static_cast<uid_t>(-1));  // that is, nobody else
  // What runs as its owner may be made by that owner alone, and what one group may do is nothing to
  // another.
  mode_t mode = old.st_mode & (is_kept ? 07777U : 0777U);
  if (!is_group_kept) mode = (mode & 0707U) | ((mode & 07U) << 3U);
  // Last, because a change of hands and a write may cost bits.
  fchmod(file.handle(), mode);
#endif
}

}  // namespace

std::optional<QByteArray> LineReader::Next() {
  if (ended_) return std::nullopt;
  ++line_number_;
  constexpr qint64 kLongestEnd = 2;
  QByteArray line;
  // In portions, because the toolkit would set aside room for the longest line each time.
  std::array<char, 4096> portion;
  while (!line.endsWith('\n') && line.size() < kLongestLine + kLongestEnd) {
    // One more than is read, because the toolkit counts a terminating zero.
    const qint64 room = std::min<qint64>(kLongestLine + kLongestEnd - line.size() + 1,
                                         static_cast<qint64>(portion.size()));
    const qint64 size = device_.readLine(portion.data(), room);
    if (size <= 0) break;
    line.append(portion.data(), size);
  }
  if (line.isEmpty()) {
    ended_ = true;
    return std::nullopt;
  }
  if (line.endsWith('\n')) {
    line.chop(1);
    if (line.endsWith('\r')) line.chop(1);
  }
  if (line.size() > kLongestLine) {
    ended_ = is_line_too_long_ = true;
    return std::nullopt;
  }
  return line;
}

bool FileExists(const QString& path) { return QFileInfo(path).isFile(); }

QString FindFile(const QString& path) {
  // Longer ones name nothing, and composing takes its time.
  if (path.size() > kLongestPath || FileExists(path)) return path;
  for (const auto form : {QString::NormalizationForm_C, QString::NormalizationForm_D}) {
    QString other = path.normalized(form);
    if (other != path && FileExists(other)) return other;
  }
  return path;
}

SaveResult SaveWholeFile(const QString& path, const QByteArray& content, QString* reason) {
  const auto refuse = [reason](SaveResult result, int error) {
    if (reason != nullptr) *reason = ReasonOf(error);
    return result;
  };
  const auto failure = [&refuse](int error) {
    return refuse(IsDiskFailure(error) ? SaveResult::kDriveNotAvailable : SaveResult::kInvalidPath,
                  error);
  };
  const QFileInfo target(path);
  if (path.isEmpty()) return refuse(SaveResult::kInvalidPath, ENOENT);
  if (target.exists() && !target.isFile()) {
    return refuse(SaveResult::kInvalidPath, target.isDir() ? EISDIR : EINVAL);
  }
  QSaveFile file(path);
  errno = 0;
  if (!file.open(QIODevice::WriteOnly)) return failure(errno);
  errno = 0;
  const bool is_written = file.write(content) == content.size() && file.flush();
  const int write_error = errno;
  if (is_written) KeepOwner(path, file);
  if (!is_written || !IsOnDisk(file)) {
    const int error = is_written ? errno : write_error;
    file.cancelWriting();
    return refuse(SaveResult::kDriveNotAvailable, error);
  }
  errno = 0;
  return file.commit() ? SaveResult::kSaved : failure(errno);
}

QString SaveFailureText(SaveResult result) {
  switch (result) {
    case SaveResult::kSaved:
      return {};
    case SaveResult::kInvalidPath:
      return u"Invalid path!"_s;
    case SaveResult::kDriveNotAvailable:
      return u"Drive not available!"_s;
  }
  return {};
}

}  // namespace Brivon1
