#include "base/file_source.h"

#include <QFile>

#include "base/files.h"

namespace Brivon1 {
namespace {

class DiskSource : public FileSource {
 public:
  QString Find(const QString& path) const override { return FindFile(path); }
  bool Exists(const QString& path) const override { return FileExists(path); }
  std::unique_ptr<QIODevice> Device(const QString& path) const override {
    return std::make_unique<QFile>(path);
  }
};

}  // namespace

const FileSource& Disk() {
  static const DiskSource disk;
  return disk;
}

}  // namespace Brivon1
