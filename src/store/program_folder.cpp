#include "store/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "base/files.h"
#include "store/writable_folder.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr auto kConfigurationFile = "brivon.ini"_L1;

QString& FolderOverride() {
  static QString folder;
  return folder;
}

QString OperatorsFolder() {
  return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
      .filePath(u"brivon"_s);
}

const QString& ChosenFolder() {
  static const QString folder =
      ChooseProgramFolder(QCoreApplication::applicationDirPath(), OperatorsFolder());
  return folder;
}

/// Copies a file whole or not at all; one that stands there already stays as it is. The copy is a
/// file like those that the operator makes: what is installed may be read-only.
bool CopyOnce(const QString& from, const QString& to) {
  if (QFileInfo::exists(to)) return true;
  if (!QDir().mkpath(QFileInfo(to).path())) return false;
  QFile source(from);
  if (!source.open(QIODevice::ReadOnly)) return false;
  const QByteArray content = source.readAll();
  return source.error() == QFileDevice::NoError && SaveWholeFile(to, content) == SaveResult::kSaved;
}

}  // namespace

QString ProgramFolder() { return FolderOverride().isEmpty() ? ChosenFolder() : FolderOverride(); }

void SetProgramFolder(const QString& folder) { FolderOverride() = folder; }

QString InProgramFolder(const QString& file_name) {
  return QDir::toNativeSeparators(QDir(ProgramFolder()).filePath(file_name));
}

QString InstalledFolder() {
  return QDir::cleanPath(
      QDir(QCoreApplication::applicationDirPath()).filePath(QLatin1String(BRIVON_INSTALLED_DATA)));
}

QString ChooseProgramFolder(const QString& executables, const QString& users) {
  const bool is_executables = IsWritableFolder(executables) ||
                              QFileInfo::exists(QDir(executables).filePath(kConfigurationFile));
  return is_executables ? executables : users;
}

bool LayOutSamples(const QString& installed, const QString& folder) {
  const QDir from(installed);
  const QDir to(folder);
  if (QFileInfo::exists(to.filePath(kConfigurationFile))) return true;
  if (!to.mkpath(u"."_s)) return false;
  for (const QString& samples : {u"messages"_s, u"schedules"_s, u"languages"_s}) {
    QDirIterator files(from.filePath(samples), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const QString file = files.next();
      if (!CopyOnce(file, to.filePath(from.relativeFilePath(file)))) return false;
    }
  }
  const QString configuration = from.filePath(kConfigurationFile);
  return QFileInfo::exists(configuration) &&
         CopyOnce(configuration, to.filePath(kConfigurationFile));
}

void LayOutProgramFolder() {
  if (ProgramFolder() == OperatorsFolder()) LayOutSamples(InstalledFolder(), OperatorsFolder());
}

}  // namespace Brivon1
