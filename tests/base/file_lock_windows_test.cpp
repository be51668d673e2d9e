// The lock of a file on Windows: the system holds it, and nothing of it stays.
#include <memory>

#include <QDateTime>
#include <QFile>

#include <gtest/gtest.h>

#include "base/file_lock.h"
#include "base/folder_of_files.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::FileLock;

bool GiveUp() { return false; }

class FileLockTest : public FolderOfFiles {
 protected:
  QString File() const { return Path("brivon.ini"); }
};

TEST_F(FileLockTest, IsAFileBesideItsFileForAsLongAsItIsHeld) {
  {
    FileLock lock(File());
    EXPECT_EQ(Names(), QStringList());
    EXPECT_TRUE(lock.Take(GiveUp));
    EXPECT_EQ(Names(), QStringList{u"brivon.ini.lock"_s});
    EXPECT_EQ(lock.Path(), Path("brivon.ini.lock").replace(u'/', u'\\'));
  }
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(FileLockTest, IsWaitedForUntilItIsLetGo) {
  auto other = std::make_unique<FileLock>(File());
  ASSERT_TRUE(other->Take(GiveUp));
  EXPECT_FALSE(FileLock(File()).Take(GiveUp));
  int tries = 0;
  EXPECT_TRUE(FileLock(File()).Take([&] {
    if (++tries == 3) other.reset();
    return true;
  }));
  EXPECT_EQ(tries, 3);
}

TEST_F(FileLockTest, AnEmptyFileThatWasLeftIsNoLock) {
  Write("brivon.ini.lock", "");
  EXPECT_TRUE(FileLock(File()).Take(GiveUp));
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(FileLockTest, OfAnotherSystemIsTakenOverWhenItIsOld) {
  Write("brivon.ini.lock", "1\nbrivon\nanother-machine\n");
  EXPECT_FALSE(FileLock(File()).Take(GiveUp));
  EXPECT_EQ(Names(), QStringList{u"brivon.ini.lock"_s});
  {
    QFile file(Path("brivon.ini.lock"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-60),
                                 QFileDevice::FileModificationTime));
  }
  EXPECT_TRUE(FileLock(File()).Take(GiveUp));
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(FileLockTest, ThatMayNotBeWrittenToStays) {
  Write("brivon.ini.lock", "");
  QFile file(Path("brivon.ini.lock"));
  ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ReadUser));
  EXPECT_FALSE(FileLock(File()).Take(GiveUp));
  EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser |
                                  QFile::WriteUser));
}

TEST_F(FileLockTest, IsTakenOnce) {
  FileLock lock(File());
  EXPECT_TRUE(lock.Take(GiveUp));
  EXPECT_TRUE(lock.Take(GiveUp));
}

TEST_F(FileLockTest, IsNotWaitedForWhereThereIsNoFolder) {
  EXPECT_TRUE(FileLock(Path("missing/brivon.ini")).Take(GiveUp));
}

}  // namespace
