// The lock of a file: who holds it, what a killed program leaves, and where there can be none.
#include "base/file_lock.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <memory>

#include <QDateTime>
#include <QFile>
#include <QLockFile>
#include <QSysInfo>

#include "base/folder_of_files.h"
#include "support/full_disk.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::FileLock;

bool GiveUp() { return false; }

class FileLockTest : public FolderOfFiles {
 protected:
  void MakeAnHourOld(const char* name) const { MakeOld(name, 3600); }

  void ExpectLinksToHaveTheirTargetsLock() const {
    ASSERT_TRUE(QFile::link(Path("shared.ini"), Path("one.ini")));
    ASSERT_TRUE(QFile::link(u"one.ini"_s, Path("other.ini")));
    FileLock lock(Path("one.ini"));
    ASSERT_TRUE(lock.Take(GiveUp));
    EXPECT_EQ(lock.Path(), Path("shared.ini.lock"));
    EXPECT_FALSE(FileLock(Path("other.ini")).Take(GiveUp));
    EXPECT_FALSE(FileLock(Path("shared.ini")).Take(GiveUp));
  }

  void MakeOld(const char* name, int seconds) const {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime then = QDateTime::currentDateTimeUtc().addSecs(-seconds);
    ASSERT_TRUE(file.setFileTime(then, QFileDevice::FileModificationTime));
  }

  QString File() const { return Path("brivon.ini"); }
};

TEST_F(FileLockTest, IsAFileBesideItsFileForAsLongAsItIsHeld) {
  {
    FileLock lock(File());
    EXPECT_EQ(Names(), QStringList());
    EXPECT_TRUE(lock.Take(GiveUp));
    EXPECT_EQ(Names(), QStringList{u"brivon.ini.lock"_s});
    EXPECT_EQ(lock.Path(), Path("brivon.ini.lock"));
  }
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(FileLockTest, IsWaitedForUntilTheOtherLetsGo) {
  auto other = std::make_unique<FileLock>(File());
  ASSERT_TRUE(other->Take(GiveUp));
  int tries = 0;
  const auto let_go_at_the_third = [&] {
    if (++tries == 3) other.reset();
    return true;
  };
  EXPECT_TRUE(FileLock(File()).Take(let_go_at_the_third));
  EXPECT_EQ(tries, 3);
}

TEST_F(FileLockTest, IsNotTakenFromALivingProgramHoweverLongItHoldsIt) {
  FileLock other(File());
  ASSERT_TRUE(other.Take(GiveUp));
  MakeAnHourOld("brivon.ini.lock");
  EXPECT_FALSE(FileLock(File()).Take(GiveUp));
  EXPECT_EQ(Names(), QStringList{u"brivon.ini.lock"_s});
}

TEST_F(FileLockTest, SleepingBetweenTheTriesGivesUp) {
  FileLock other(File());
  ASSERT_TRUE(other.Take(GiveUp));
  EXPECT_FALSE(FileLock(File()).Take(Brivon1::SleepBetweenTries(std::chrono::milliseconds(50))));
}

TEST_F(FileLockTest, OfAKilledProgramIsTakenOverAtOnce) {
  const pid_t program = fork();
  if (program == 0) {
    FileLock lock(File());
    if (lock.Take(GiveUp)) raise(SIGKILL);
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(program, &status, 0), program);
  ASSERT_TRUE(WIFSIGNALED(status));
  ASSERT_EQ(Names(), QStringList{u"brivon.ini.lock"_s});
  EXPECT_TRUE(FileLock(File()).Take(GiveUp));
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(FileLockTest, OfAProgramThatWasKilledBeforeItWroteItsNumberIsTakenOverWhileItIsWaitedFor) {
  Write("brivon.ini.lock", "");
  const auto let_time_pass = [this] {
    MakeAnHourOld("brivon.ini.lock");
    return true;
  };
  EXPECT_TRUE(FileLock(File()).Take(let_time_pass));
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(FileLockTest, OfALivingNamesakeOfAKilledProgramIsTakenOverWhileItIsWaitedFor) {
  {
    FileLock lock(File());
    ASSERT_TRUE(lock.Take(GiveUp));
    ASSERT_TRUE(QFile::copy(lock.Path(), Path("copy")));
  }
  // A lock with the number of this very process, which the system knows nothing of.
  ASSERT_TRUE(QFile::rename(Path("copy"), Path("brivon.ini.lock")));
  EXPECT_FALSE(FileLock(File()).Take(GiveUp));
  MakeAnHourOld("brivon.ini.lock");
  EXPECT_TRUE(FileLock(File()).Take(GiveUp));
}

TEST_F(FileLockTest, OfAnotherMachineIsTakenOverLaterThanOneOfThisMachine) {
  const auto take_at_the_second_try = [this] {
    int tries = 0;
    return FileLock(File()).Take([&] { return ++tries == 1; });
  };
  const QByteArray here =
      QByteArray::number(getpid()) + "\n\n" + QSysInfo::machineHostName().toUtf8() + "\n";
  Write("brivon.ini.lock", here);
  MakeOld("brivon.ini.lock", 10);
  EXPECT_TRUE(take_at_the_second_try());
  Write("brivon.ini.lock", QByteArray::number(getpid()) + "\n\nanother-machine\n");
  MakeOld("brivon.ini.lock", 10);
  EXPECT_FALSE(take_at_the_second_try());
  MakeOld("brivon.ini.lock", 60);
  EXPECT_TRUE(take_at_the_second_try());
}

TEST_F(FileLockTest, RemovesWhatWasLeftOfATakeover) {
  Write("brivon.ini.lock.rmlock", "");
  {
    FileLock lock(File());
    ASSERT_TRUE(lock.Take(GiveUp));
    EXPECT_EQ(Names(), QStringList{u"brivon.ini.lock"_s});
  }
  QLockFile taking_over(Path("brivon.ini.lock.rmlock"));
  ASSERT_TRUE(taking_over.tryLock(0));
  EXPECT_TRUE(FileLock(File()).Take(GiveUp));
  EXPECT_EQ(Names(), QStringList{u"brivon.ini.lock.rmlock"_s});
}

TEST_F(FileLockTest, OfALinkToNoFileYetIsThatOfItsTarget) { ExpectLinksToHaveTheirTargetsLock(); }

TEST_F(FileLockTest, OfALinkIsThatOfItsTarget) {
  Write("shared.ini", "");
  ExpectLinksToHaveTheirTargetsLock();
}

TEST_F(FileLockTest, IsNotWaitedForWhereThereIsNoFolder) {
  EXPECT_TRUE(FileLock(Path("missing/brivon.ini")).Take(GiveUp));
}

TEST_F(FileLockTest, IsNotWaitedForWhereTheDiskIsFull) {
  {
    const FullDisk full_disk(1);
    EXPECT_TRUE(FileLock(File()).Take(GiveUp));
  }
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(FileLockTest, IsNotWaitedForWhereTheFolderMayNotBeChanged) {
  const QByteArray folder = QFile::encodeName(folder_.path());
  ASSERT_EQ(chmod(folder.constData(), 0555), 0);
  // The superuser may write everywhere, so somebody else takes it.
  const bool is_superuser = geteuid() == 0;
  if (is_superuser) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  FileLock lock(File());
  const bool is_taken = lock.Take(GiveUp);
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  ASSERT_EQ(chmod(folder.constData(), 0755), 0);
  EXPECT_TRUE(is_taken);
  EXPECT_EQ(Names(), QStringList());
}

}  // namespace
