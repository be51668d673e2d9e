// Where readers take files from: the disk, or what was read of them before, so that a file is sent
// as it was checked, whatever becomes of it meanwhile.
#pragma once

#include <memory>

#include <QIODevice>
#include <QString>

namespace Brivon1 {

class FileSource {
 public:
  virtual ~FileSource() = default;

  /// As FindFile().
  virtual QString Find(const QString& path) const = 0;

  /// As FileExists().
  virtual bool Exists(const QString& path) const = 0;

  /// The file at `path`, not open yet; its size is known all the same.
  virtual std::unique_ptr<QIODevice> Device(const QString& path) const = 0;
};

/// The files as they are now.
const FileSource& Disk();

}  // namespace Brivon1
