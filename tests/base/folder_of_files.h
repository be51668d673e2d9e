// A folder of files that a test reads and saves.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

class FolderOfFiles : public testing::Test {
 protected:
  QString Path(const char* name) const {
    return folder_.path() + QLatin1Char('/') + QString::fromUtf8(name);
  }

  QString Write(const char* name, const QByteArray& content) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return Path(name);
  }

  static QByteArray Read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }

  /// Everything in the folder, hidden files included, sorted by name.
  QStringList Names() const {
    return QDir(folder_.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name);
  }

  QTemporaryDir folder_;
};
