#include "support/program_folder.h"

#include <QDir>
#include <QFile>

#include "language/module_language.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

TemporaryProgramFolder::TemporaryProgramFolder() { Brivon1::SetProgramFolder(folder_.path()); }

TemporaryProgramFolder::~TemporaryProgramFolder() {
  ModuleLanguage::SetLanguageActive(false);
  Configure("");
  Brivon1::SetProgramFolder(QString());
}

QString TemporaryProgramFolder::Path(const QString& name) const {
  return QDir::toNativeSeparators(folder_.filePath(name));
}

QString TemporaryProgramFolder::Write(const QString& name, const QByteArray& content) const {
  QFile file(Path(name));
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
    qFatal("cannot write a file of the test");
  }
  return Path(name);
}

QByteArray TemporaryProgramFolder::Read(const QString& name) const {
  QFile file(Path(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TemporaryProgramFolder::Configure(const QByteArray& ini) const {
  Write(u"brivon.ini"_s, ini);
  Brivon1::LoadConfiguration();
}

void TemporaryProgramFolder::UseLanguage(const QByteArray& ini) const {
  Write(u"langSetting.INI"_s, ini);
  ModuleLanguage::SetLanguageActive(true);
}
