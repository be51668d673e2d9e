#include "fuzz/files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Fuzz {
namespace {

const QTemporaryDir& Folder() {
  static const QTemporaryDir folder;
  Brivon1::SetProgramFolder(folder.path());
  return folder;
}

}  // namespace

QString PathOf(const QString& name) { return Folder().filePath(name); }

QString WriteFile(const QString& name, const QByteArray& content) {
  const QString path = PathOf(name);
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
    qFatal("cannot write %s", qPrintable(path));
  }
  return path;
}

QByteArray ReadFile(const QString& name) {
  QFile file(PathOf(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool IsAlone(const QString& name) {
  const QDir folder(Folder().path());
  return folder.entryList({name + u".*"_s}, QDir::Files | QDir::Hidden).isEmpty();
}

}  // namespace Fuzz
