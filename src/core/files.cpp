#include "core/files.h"

#include <QFileInfo>
#include <QSaveFile>

namespace Brivon1 {

std::optional<QByteArray> LineReader::Next() {
  if (ended_) return std::nullopt;
  QByteArray line = device_.readLine(kLongestLine + 1);
  if (line.isEmpty()) {
    ended_ = true;
    return std::nullopt;
  }
  if (line.endsWith('\n')) {
    line.chop(1);
    if (line.endsWith('\r')) line.chop(1);
  } else if (line.size() >= kLongestLine) {
    ended_ = true;
    return std::nullopt;
  }
  return line;
}

bool FileExists(const QString& path) { return QFileInfo(path).isFile(); }

SaveResult SaveWholeFile(const QString& path, const QByteArray& content) {
  const QFileInfo target(path);
  if (path.isEmpty() || (target.exists() && !target.isFile())) return SaveResult::kInvalidPath;
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) {
    return file.error() == QFileDevice::ResourceError ? SaveResult::kDriveNotAvailable
                                                      : SaveResult::kInvalidPath;
  }
  if (file.write(content) != content.size() || !file.flush()) {
    file.cancelWriting();
    return SaveResult::kDriveNotAvailable;
  }
  return file.commit() ? SaveResult::kSaved : SaveResult::kDriveNotAvailable;
}

QString SaveFailureText(SaveResult result) {
  switch (result) {
    case SaveResult::kSaved:
      return {};
    case SaveResult::kInvalidPath:
      return QStringLiteral("Invalid path!");
    case SaveResult::kDriveNotAvailable:
      return QStringLiteral("Drive not available!");
  }
  return {};
}

}  // namespace Brivon1
