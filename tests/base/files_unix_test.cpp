// What only Unix has of files: pipes, links, permissions, disks of one's own.
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "base/files.h"
#include "base/folder_of_files.h"
#include "support/full_disk.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class UnixFiles : public FolderOfFiles {};

TEST_F(UnixFiles, OnlyAnOrdinaryFileOrALinkToOneExists) {
  const QString file = Write("file", "");
  ASSERT_TRUE(QFile::link(file, Path("link")));
  EXPECT_TRUE(FileExists(file));
  EXPECT_TRUE(FileExists(Path("link")));
}

TEST_F(UnixFiles, AFolderIsNoFile) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"folder"_s));
  ASSERT_TRUE(QFile::link(Path("folder"), Path("link")));
  EXPECT_FALSE(FileExists(Path("folder")));
  EXPECT_FALSE(FileExists(Path("folder/")));
  EXPECT_FALSE(FileExists(Path("link")));
}

TEST_F(UnixFiles, APipeIsNoFile) {
  ASSERT_EQ(mkfifo(QFile::encodeName(Path("pipe")).constData(), 0600), 0);
  EXPECT_FALSE(FileExists(Path("pipe")));
}

TEST_F(UnixFiles, ADeviceIsNoFile) { EXPECT_FALSE(FileExists(u"/dev/null"_s)); }

TEST_F(UnixFiles, ALinkToNothingIsNoFile) {
  ASSERT_TRUE(QFile::link(Path("gone"), Path("link")));
  ASSERT_TRUE(QFile::link(Path("circle"), Path("circle")));
  EXPECT_FALSE(FileExists(Path("link")));
  EXPECT_FALSE(FileExists(Path("circle")));
}

TEST_F(UnixFiles, StrangeNamesAreSavedUnderExactlyThatName) {
  for (const char* name :
       {"page XXXXXX.msg", "%1 50% #?*.msg", "\"quoted\" 'name'.msg", "-rf", " leading",
        "trailing ", "a\nb.msg", "\xC3\xA4\xE2\x82\xAC.msg", "...", "noextension", ":colon:"}) {
    ASSERT_EQ(SaveWholeFile(Path(name), name), SaveResult::kSaved) << name;
    EXPECT_EQ(Read(Path(name)), name);
    EXPECT_EQ(Names(), QStringList{QString::fromUtf8(name)});
    ASSERT_TRUE(QFile::remove(Path(name)));
  }
}

TEST_F(UnixFiles, APathThatTheSystemWouldCutIsInvalid) {
  const QString path = Path("a.msg") + QChar(0) + u"b.msg"_s;
  EXPECT_EQ(SaveWholeFile(path, "new"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(UnixFiles, ASaveOntoAPipeOrADeviceIsAnInvalidPath) {
  ASSERT_EQ(mkfifo(QFile::encodeName(Path("pipe")).constData(), 0600), 0);
  EXPECT_EQ(SaveWholeFile(Path("pipe"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveWholeFile(u"/dev/null"_s, "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList{u"pipe"_s});
}

TEST_F(UnixFiles, ASaveIntoAFolderWithoutPermissionIsAnInvalidPathAndKeepsTheOldFile) {
  const QString file = Write("a.msg", "old");
  const QByteArray folder = QFile::encodeName(folder_.path());
  ASSERT_EQ(chmod(folder.constData(), 0555), 0);
  // The superuser may write everywhere, so the save is done as somebody else.
  const bool is_superuser = geteuid() == 0;
  if (is_superuser) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  const SaveResult replacing = SaveWholeFile(file, "new");
  const SaveResult creating = SaveWholeFile(Path("b.msg"), "new");
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  ASSERT_EQ(chmod(folder.constData(), 0755), 0);
  EXPECT_EQ(replacing, SaveResult::kInvalidPath);
  EXPECT_EQ(creating, SaveResult::kInvalidPath);
  EXPECT_EQ(Read(file), "old");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

constexpr qint64 kRoom = 4096;

TEST_F(UnixFiles, ASaveOntoAFullDiskKeepsTheOldFileWholeAndLeavesNothingBeside) {
  const QString file = Write("a.msg", "old");
  // One size that stays in a write buffer to the end, and one that goes to the disk at once.
  for (const qsizetype size : {5000, 5000000}) {
    SaveResult result = SaveResult::kSaved;
    {
      const FullDisk full_disk(kRoom);
      result = SaveWholeFile(file, QByteArray(size, 'n'));
    }
    EXPECT_EQ(result, SaveResult::kDriveNotAvailable) << size;
    EXPECT_EQ(Read(file), "old") << size;
    EXPECT_EQ(Names(), QStringList{u"a.msg"_s}) << size;
  }
}

TEST_F(UnixFiles, ANewFileThatFindsTheDiskFullIsNotThereAfterwards) {
  SaveResult result = SaveResult::kSaved;
  {
    const FullDisk full_disk(kRoom);
    result = SaveWholeFile(Path("new.msg"), QByteArray(5000, 'n'));
  }
  EXPECT_EQ(result, SaveResult::kDriveNotAvailable);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(UnixFiles, AfterAFullDiskTheNextSaveWorks) {
  {
    const FullDisk full_disk(kRoom);
    EXPECT_EQ(SaveWholeFile(Path("a.msg"), QByteArray(4096, 'n')), SaveResult::kSaved);
  }
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), QByteArray(5000, 'm')), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("a.msg")), QByteArray(5000, 'm'));
}

/// A small disk of its own over a folder, seen by this process alone; not everybody may make one.
class SmallDisk {
 public:
  SmallDisk(const QString& folder, const char* options) : folder_(QFile::encodeName(folder)) {
    is_mounted_ = unshare(CLONE_NEWNS) == 0 &&
                  mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                  mount("tmpfs", folder_.constData(), "tmpfs", 0, options) == 0;
  }
  ~SmallDisk() {
    if (is_mounted_) umount2(folder_.constData(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  bool IsMounted() const { return is_mounted_; }

  bool MakeReadOnly() const {
    return mount(nullptr, folder_.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
  }

 private:
  QByteArray folder_;
  bool is_mounted_;
};

TEST_F(UnixFiles, ADiskWithoutRoomForTheBytesIsNotAvailable) {
  const SmallDisk disk(folder_.path(), "size=64k");
  if (!disk.IsMounted()) GTEST_SKIP() << "this user may not mount a disk";
  const QString file = Write("a.msg", "old");
  EXPECT_EQ(SaveWholeFile(file, QByteArray(100000, 'n')), SaveResult::kDriveNotAvailable);
  EXPECT_EQ(SaveWholeFile(Path("b.msg"), QByteArray(100000, 'n')), SaveResult::kDriveNotAvailable);
  EXPECT_EQ(Read(file), "old");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
  EXPECT_EQ(SaveWholeFile(file, "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(file), "new");
}

TEST_F(UnixFiles, ADiskWithoutRoomForAnotherFileIsNotAvailable) {
  const SmallDisk disk(folder_.path(), "nr_inodes=2");
  if (!disk.IsMounted()) GTEST_SKIP() << "this user may not mount a disk";
  const QString file = Write("a.msg", "old");
  EXPECT_EQ(SaveWholeFile(file, "new"), SaveResult::kDriveNotAvailable);
  EXPECT_EQ(SaveWholeFile(Path("b.msg"), "new"), SaveResult::kDriveNotAvailable);
  EXPECT_EQ(Read(file), "old");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

TEST_F(UnixFiles, ANewFileOnAReadOnlyDiskFindsItNotAvailable) {
  const SmallDisk disk(folder_.path(), "size=64k");
  if (!disk.IsMounted()) GTEST_SKIP() << "this user may not mount a disk";
  ASSERT_TRUE(disk.MakeReadOnly());
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kDriveNotAvailable);
}

TEST_F(UnixFiles, ASaveThroughALinkReplacesItsTargetAndKeepsTheLink) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"elsewhere"_s));
  const QString target = Write("elsewhere/target.msg", "old");
  ASSERT_EQ(symlink("elsewhere/target.msg", QFile::encodeName(Path("link.msg")).constData()), 0);
  EXPECT_EQ(SaveWholeFile(Path("link.msg"), "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(target), "new");
  EXPECT_TRUE(QFileInfo(Path("link.msg")).isSymLink());
  EXPECT_EQ(QFileInfo(Path("link.msg")).symLinkTarget(), target);
  EXPECT_EQ(QDir(Path("elsewhere")).entryList(QDir::Files | QDir::Hidden),
            QStringList{u"target.msg"_s});
}

TEST_F(UnixFiles, ASaveThroughALinkToNothingMakesItsTarget) {
  ASSERT_TRUE(QFile::link(Path("target.msg"), Path("link.msg")));
  EXPECT_EQ(SaveWholeFile(Path("link.msg"), "new"), SaveResult::kSaved);
  EXPECT_TRUE(QFileInfo(Path("link.msg")).isSymLink());
  EXPECT_EQ(Read(Path("target.msg")), "new");
}

TEST_F(UnixFiles, WhatIsNoOrdinaryFileIsOfNoKind) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"folder"_s));
  ASSERT_EQ(mkfifo(QFile::encodeName(Path("pipe")).constData(), 0600), 0);
  for (const QString& path :
       {Path("missing"), Path("folder"), Path("pipe"), QString(), u"/dev/zero"_s, u"/dev/null"_s}) {
    EXPECT_FALSE(IsMessageFile(path)) << path.toStdString();
    EXPECT_FALSE(IsScheduleFile(path)) << path.toStdString();
    EXPECT_FALSE(IsScrollingFile(path)) << path.toStdString();
  }
}

}  // namespace
}  // namespace Brivon1
