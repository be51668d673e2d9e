// A program folder of a test's own, in place of the real one for the time of the test.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

class TemporaryProgramFolder {
 public:
  TemporaryProgramFolder();

  /// Returns to the real program folder, an empty configuration and English texts.
  ~TemporaryProgramFolder();

  TemporaryProgramFolder(const TemporaryProgramFolder&) = delete;
  TemporaryProgramFolder& operator=(const TemporaryProgramFolder&) = delete;

  /// The full path of a file in the folder.
  QString Path(const QString& name) const;

  /// Writes a file into the folder and returns its full path.
  QString Write(const QString& name, const QByteArray& content) const;

  /// The bytes of a file in the folder; empty where there is none.
  QByteArray Read(const QString& name) const;

  /// Writes "brivon.ini" and loads it.
  void Configure(const QByteArray& ini) const;

  /// Writes "langSetting.INI" and sets the language flag.
  void UseLanguage(const QByteArray& ini) const;

 private:
  QTemporaryDir folder_;
};
