#include "base/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include <QFileInfo>

#include "base/replacing_file.h"

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
      return QString::fromLocal8Bit(std::generic_category().message(error).c_str());
  }
}

/// Why a save was refused, and at what: the disk refuses bytes, whatever its reason.
struct Failure {
  int error = 0;
  bool is_of_disk = false;
};

std::optional<Failure> ReplaceBy(ReplacingFile& file, const QByteArray& content) {
  const auto failure = [](int error) { return Failure{error, IsDiskFailure(error)}; };
  if (const int error = file.Open(); error != 0) return failure(error);
  if (const int error = file.Write(content); error != 0) return Failure{error, true};
  // A disk that is full, failing or gone may say so only now.
  if (const int error = file.Flush(); error != 0) return Failure{error, true};
  if (const int error = file.TakePlace(); error != 0) return failure(error);
  return std::nullopt;
}

/// Replaces the file at `path` by `content`; nothing where that has succeeded.
std::optional<Failure> Replace(const QString& path, const QByteArray& content) {
  {
    ReplacingFile file(path);
    const std::optional<Failure> failure = ReplaceBy(file, content);
    if (!failure || !file.MaySucceedWithName()) return failure;
  }
  ReplacingFile file(path, true);
  return ReplaceBy(file, content);
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
  const auto refuse = [reason](const Failure& failure) {
    if (reason != nullptr) *reason = ReasonOf(failure.error);
    return failure.is_of_disk ? SaveResult::kDriveNotAvailable : SaveResult::kInvalidPath;
  };
  const QFileInfo target(path);
  if (path.isEmpty()) return refuse({ENOENT});
  if (target.exists() && !target.isFile()) return refuse({target.isDir() ? EISDIR : EINVAL});
  const std::optional<Failure> failure = Replace(path, content);
  return failure ? refuse(*failure) : SaveResult::kSaved;
}

SaveResult MakeFolder(const QString& path, QString* reason) {
  std::error_code error;
  std::filesystem::create_directories(QFileInfo(path).filesystemAbsoluteFilePath(), error);
  if (!error) return SaveResult::kSaved;
  const int number = error.default_error_condition().value();
  if (reason != nullptr) *reason = ReasonOf(number);
  return IsDiskFailure(number) ? SaveResult::kDriveNotAvailable : SaveResult::kInvalidPath;
}

QString SaveFailureText(SaveResult result) {
  switch (result) {
    case SaveResult::kSaved:
      return {};
    case SaveResult::kInvalidPath:
      return u"Invalid path!"_s;
    case SaveResult::kDriveNotAvailable:
    case SaveResult::kLocked:
      return u"Drive not available!"_s;
  }
  return {};
}

}  // namespace Brivon1
