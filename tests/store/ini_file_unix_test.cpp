// What only Unix has of files, in place of an INI file: pipes and permissions.
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "base/folder_of_files.h"
#include "store/ini_file.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class UnixIniFile : public FolderOfFiles {};

TEST_F(UnixIniFile, WhatIsMissingOrNoOrdinaryFileIsAnEmptyOne) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"folder"_s));
  ASSERT_EQ(mkfifo(QFile::encodeName(Path("pipe")).constData(), 0600), 0);
  for (const QString& path :
       {Path("missing"), Path("folder"), Path("pipe"), QString(), u"/dev/zero"_s}) {
    EXPECT_EQ(IniFile::Load(path).Content(), "") << path.toStdString();
  }
}

TEST_F(UnixIniFile, AFileWithoutPermissionIsAnEmptyOneToReadAndNoneToChange) {
  const QString path = Write("file.ini", "[A]\r\nx=1\r\n");
  ASSERT_EQ(chmod(QFile::encodeName(folder_.path()).constData(), 0755), 0);
  ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0), 0);
  // The superuser may read everything, so the file is read as somebody else.
  const bool is_superuser = geteuid() == 0;
  if (is_superuser) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  const QByteArray content = IniFile::Load(path).Content();
  const bool is_read = IniFile::Read(path).has_value();
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_EQ(content, "");
  EXPECT_FALSE(is_read);
}

TEST_F(UnixIniFile, AFileThatTheSystemFailsToReadIsAnEmptyOneToReadAndNoneToChange) {
  const QString path = u"/proc/self/mem"_s;  // an ordinary file whose beginning is never there
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) GTEST_SKIP() << file.errorString().toStdString();
  EXPECT_EQ(IniFile::Load(path).Content(), "");
  EXPECT_FALSE(IniFile::Read(path));
}

}  // namespace
}  // namespace Brivon1
