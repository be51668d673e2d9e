#include "store/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "base/file_lock.h"
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

bool MakeFolderOf(const QString& file, LayOutFailure& failure) {
  failure.path = QFileInfo(file).path();
  failure.result = MakeFolder(failure.path, &failure.reason);
  return failure.result == SaveResult::kSaved;
}

/// Copies a file whole or not at all; one that stands there already stays as it is. The copy is a
/// file like those that the operator makes: what is installed may be read-only. One that cannot be
/// read is left out, because nothing that the operator may do in that folder mends it.
bool CopyOnce(const QString& from, const QString& to, LayOutFailure& failure) {
  if (QFileInfo::exists(to) || !MakeFolderOf(to, failure)) return QFileInfo::exists(to);
  QFile source(from);
  const bool is_open = source.open(QIODevice::ReadOnly);
  const QByteArray content = is_open ? source.readAll() : QByteArray();
  if (source.error() != QFileDevice::NoError) return true;
  failure = {SaveResult::kSaved, to, {}};
  failure.result = SaveWholeFile(to, content, &failure.reason);
  return failure.result == SaveResult::kSaved;
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

bool LayOutSamples(const QString& installed, const QString& folder, LayOutFailure* failure) {
  LayOutFailure ignored;
  LayOutFailure& found = failure != nullptr ? *failure : ignored;
  const QDir from(installed);
  const QDir to(folder);
  const QString configuration = to.filePath(kConfigurationFile);
  if (QFileInfo::exists(configuration)) return true;
  if (!MakeFolderOf(configuration, found)) return false;
  FileLock lock(configuration);
  const bool is_taken = lock.Take(SleepBetweenTries());
  if (QFileInfo::exists(configuration)) return true;  // whoever has had it lays the same out
  if (!is_taken && MayBeSaved(configuration)) {
    found = {SaveResult::kLocked, configuration, u"Another program is saving it."_s};
    return false;
  }
  for (const QString& samples : {u"messages"_s, u"schedules"_s, u"languages"_s}) {
    QDirIterator files(from.filePath(samples), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const QString file = files.next();
      if (!CopyOnce(file, to.filePath(from.relativeFilePath(file)), found)) return false;
    }
  }
  const QString sample = from.filePath(kConfigurationFile);
  return QFileInfo::exists(sample) && CopyOnce(sample, configuration, found) &&
         QFileInfo::exists(configuration);
}

LayOutFailure LayOutProgramFolder() {
  LayOutFailure failure;
  if (ProgramFolder() == OperatorsFolder()) {
    LayOutSamples(InstalledFolder(), OperatorsFolder(), &failure);
  }
  return failure;
}

}  // namespace Brivon1
