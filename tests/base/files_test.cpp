#include "base/files.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include "base/folder_of_files.h"
#include "support/full_disk.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// The lines of `content`, up to the first that the reader refuses.
QByteArrayList LinesOf(QByteArray content) {
  QBuffer buffer(&content);
  EXPECT_TRUE(buffer.open(QIODevice::ReadOnly));
  LineReader reader(buffer);
  QByteArrayList lines;
  while (const auto line = reader.Next()) lines.append(*line);
  EXPECT_FALSE(reader.Next()) << "a reader that has ended stays so";
  return lines;
}

TEST(LineReader, ALineEndsWithCrLfOrLf) {
  EXPECT_EQ(LinesOf("one\r\ntwo\nthree\r\n"), (QByteArrayList{"one", "two", "three"}));
}

TEST(LineReader, TheLastLineMayLackItsEnd) {
  EXPECT_EQ(LinesOf("one\r\ntwo"), (QByteArrayList{"one", "two"}));
  EXPECT_EQ(LinesOf("one"), (QByteArrayList{"one"}));
}

TEST(LineReader, EmptyLinesAreLines) {
  EXPECT_EQ(LinesOf("\r\n\n\r\na\r\n\r\n"), (QByteArrayList{"", "", "", "a", ""}));
}

TEST(LineReader, AnEmptyFileHasNoLine) { EXPECT_EQ(LinesOf(""), QByteArrayList()); }

TEST(LineReader, ALoneCarriageReturnIsACharacterOfItsLine) {
  EXPECT_EQ(LinesOf("a\rb\r\nc\r\r\n\rd\n"), (QByteArrayList{"a\rb", "c\r", "\rd"}));
}

TEST(LineReader, EveryOtherByteIsACharacterOfItsLine) {
  QByteArray bytes;
  for (int value = 0; value < 256; ++value) {
    if (value != '\n' && value != '\r') bytes.append(static_cast<char>(value));
  }
  EXPECT_EQ(LinesOf(bytes + "\r\n" + bytes), (QByteArrayList{bytes, bytes}));
}

TEST(LineReader, ALineOfExactlyTheLongestLengthIsRead) {
  const QByteArray longest(1048576, 'x');
  EXPECT_EQ(LinesOf(longest + "\r\nb\r\n"), (QByteArrayList{longest, "b"}));
  EXPECT_EQ(LinesOf(longest + "\nb\n"), (QByteArrayList{longest, "b"}));
  EXPECT_EQ(LinesOf(longest), (QByteArrayList{longest}));
}

TEST(LineReader, AFileIsRefusedFromItsFirstLongerLineOn) {
  const QByteArray too_long(1048577, 'x');
  EXPECT_EQ(LinesOf("a\r\n" + too_long + "\r\nb\r\n"), (QByteArrayList{"a"}));
  EXPECT_EQ(LinesOf("a\n" + too_long + "\nb\n"), (QByteArrayList{"a"}));
  EXPECT_EQ(LinesOf("a\n" + too_long), (QByteArrayList{"a"}));
  EXPECT_EQ(LinesOf("a\n" + too_long.first(1048576) + "\rxx"), (QByteArrayList{"a"}));
}

class Files : public FolderOfFiles {};

TEST_F(Files, AHundredMegabytesWithoutALineEndAreRefusedAfterTheLongestLine) {
  QFile file(Path("endless"));
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.resize(qint64{100} << 20));
  LineReader reader(file);
  EXPECT_FALSE(reader.Next());
  EXPECT_LE(file.pos(), kLongestLine + 2);
  EXPECT_FALSE(reader.Next());
}

TEST_F(Files, AFileThatCannotBeReadHasNoLine) {
  QFile file(Path("."));
  LineReader reader(file);
  EXPECT_FALSE(reader.Next());
}

TEST_F(Files, OnlyAnOrdinaryFileOrALinkToOneExists) {
  const QString file = Write("file", "");
  ASSERT_TRUE(QFile::link(file, Path("link")));
  EXPECT_TRUE(FileExists(file));
  EXPECT_TRUE(FileExists(Path("link")));
}

TEST_F(Files, AMissingFileDoesNotExist) {
  EXPECT_FALSE(FileExists(Path("missing")));
  EXPECT_FALSE(FileExists(QString()));
}

TEST_F(Files, AFolderIsNoFile) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"folder"_s));
  ASSERT_TRUE(QFile::link(Path("folder"), Path("link")));
  EXPECT_FALSE(FileExists(Path("folder")));
  EXPECT_FALSE(FileExists(Path("folder/")));
  EXPECT_FALSE(FileExists(Path("link")));
}

TEST_F(Files, APipeIsNoFile) {
  ASSERT_EQ(mkfifo(QFile::encodeName(Path("pipe")).constData(), 0600), 0);
  EXPECT_FALSE(FileExists(Path("pipe")));
}

TEST_F(Files, ADeviceIsNoFile) { EXPECT_FALSE(FileExists(u"/dev/null"_s)); }

TEST_F(Files, ALinkToNothingIsNoFile) {
  ASSERT_TRUE(QFile::link(Path("gone"), Path("link")));
  ASSERT_TRUE(QFile::link(Path("circle"), Path("circle")));
  EXPECT_FALSE(FileExists(Path("link")));
  EXPECT_FALSE(FileExists(Path("circle")));
}

TEST_F(Files, APathBelowAFileDoesNotExist) {
  Write("file", "x");
  EXPECT_FALSE(FileExists(Path("file/below")));
}

TEST_F(Files, ASavedFileHoldsExactlyTheContent) {
  const QByteArray content("a\r\n\0b\xFF", 6);
  EXPECT_EQ(SaveWholeFile(Path("new.msg"), content), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("new.msg")), content);
  EXPECT_EQ(Names(), QStringList{u"new.msg"_s});
}

TEST_F(Files, ASaveReplacesALongerFile) {
  Write("a.msg", QByteArray(100000, 'x'));
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "short"), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("a.msg")), "short");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

TEST_F(Files, EmptyContentIsSavedAsAnEmptyFile) {
  Write("a.msg", "x");
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), ""), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("a.msg")), "");
  EXPECT_EQ(SaveWholeFile(Path("b.msg"), QByteArray()), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("b.msg")), "");
}

TEST_F(Files, StrangeNamesAreSavedUnderExactlyThatName) {
  for (const char* name :
       {"page XXXXXX.msg", "%1 50% #?*.msg", "\"quoted\" 'name'.msg", "-rf", " leading",
        "trailing ", "a\nb.msg", "\xC3\xA4\xE2\x82\xAC.msg", "...", "noextension", ":colon:"}) {
    ASSERT_EQ(SaveWholeFile(Path(name), name), SaveResult::kSaved) << name;
    EXPECT_EQ(Read(Path(name)), name);
    EXPECT_EQ(Names(), QStringList{QString::fromUtf8(name)});
    ASSERT_TRUE(QFile::remove(Path(name)));
  }
}

TEST_F(Files, ANameAsLongAsTheSystemAllowsIsReplaced) {
  const QByteArray name(255, 'n');
  const QString file = Write(name.constData(), "old");
  EXPECT_EQ(SaveWholeFile(file, "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(file), "new");
  EXPECT_EQ(Names(), QStringList{QString::fromLatin1(name)});
}

TEST_F(Files, ANameLongerThanTheSystemAllowsIsAnInvalidPath) {
  const QByteArray name(256, 'n');
  EXPECT_EQ(SaveWholeFile(Path(name.constData()), "new"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Files, ASaveIntoAMissingFolderIsAnInvalidPath) {
  EXPECT_EQ(SaveWholeFile(Path("missing/a.msg"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Files, ASaveWithoutANameIsAnInvalidPath) {
  EXPECT_EQ(SaveWholeFile(QString(), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveWholeFile(Path("missing/"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Files, ASaveOntoAFolderIsAnInvalidPathAndLeavesIt) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"folder"_s));
  EXPECT_EQ(SaveWholeFile(Path("folder"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveWholeFile(Path("folder/"), "x"), SaveResult::kInvalidPath);
  EXPECT_TRUE(QFileInfo(Path("folder")).isDir());
  EXPECT_EQ(Names(), QStringList{u"folder"_s});
}

TEST_F(Files, ASaveOntoAPipeOrADeviceIsAnInvalidPath) {
  ASSERT_EQ(mkfifo(QFile::encodeName(Path("pipe")).constData(), 0600), 0);
  EXPECT_EQ(SaveWholeFile(Path("pipe"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveWholeFile(u"/dev/null"_s, "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList{u"pipe"_s});
}

TEST_F(Files, ASaveBelowAFileIsAnInvalidPath) {
  Write("file", "old");
  EXPECT_EQ(SaveWholeFile(Path("file/a.msg"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Read(Path("file")), "old");
}

TEST_F(Files, ASaveIntoAFolderWithoutPermissionIsAnInvalidPathAndKeepsTheOldFile) {
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

constexpr rlim_t kRoom = 4096;

TEST_F(Files, ASaveOntoAFullDiskKeepsTheOldFileWholeAndLeavesNothingBeside) {
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

TEST_F(Files, ANewFileThatFindsTheDiskFullIsNotThereAfterwards) {
  SaveResult result = SaveResult::kSaved;
  {
    const FullDisk full_disk(kRoom);
    result = SaveWholeFile(Path("new.msg"), QByteArray(5000, 'n'));
  }
  EXPECT_EQ(result, SaveResult::kDriveNotAvailable);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Files, AfterAFullDiskTheNextSaveWorks) {
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

TEST_F(Files, ADiskWithoutRoomForTheBytesIsNotAvailable) {
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

TEST_F(Files, ADiskWithoutRoomForAnotherFileIsNotAvailable) {
  const SmallDisk disk(folder_.path(), "nr_inodes=2");
  if (!disk.IsMounted()) GTEST_SKIP() << "this user may not mount a disk";
  const QString file = Write("a.msg", "old");
  EXPECT_EQ(SaveWholeFile(file, "new"), SaveResult::kDriveNotAvailable);
  EXPECT_EQ(SaveWholeFile(Path("b.msg"), "new"), SaveResult::kDriveNotAvailable);
  EXPECT_EQ(Read(file), "old");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

TEST_F(Files, ANewFileOnAReadOnlyDiskFindsItNotAvailable) {
  const SmallDisk disk(folder_.path(), "size=64k");
  if (!disk.IsMounted()) GTEST_SKIP() << "this user may not mount a disk";
  ASSERT_TRUE(disk.MakeReadOnly());
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kDriveNotAvailable);
}

TEST_F(Files, ASaveThroughALinkReplacesItsTargetAndKeepsTheLink) {
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

TEST_F(Files, ASaveThroughALinkToNothingMakesItsTarget) {
  ASSERT_TRUE(QFile::link(Path("target.msg"), Path("link.msg")));
  EXPECT_EQ(SaveWholeFile(Path("link.msg"), "new"), SaveResult::kSaved);
  EXPECT_TRUE(QFileInfo(Path("link.msg")).isSymLink());
  EXPECT_EQ(Read(Path("target.msg")), "new");
}

TEST_F(Files, AFailedSaveHasAMessageAndASuccessfulOneNone) {
  EXPECT_EQ(SaveFailureText(SaveResult::kSaved), QString());
  EXPECT_EQ(SaveFailureText(SaveResult::kInvalidPath), u"Invalid path!"_s);
  EXPECT_EQ(SaveFailureText(SaveResult::kDriveNotAvailable), u"Drive not available!"_s);
}

TEST_F(Files, AFileIsFoundInWhicheverFormItsLettersAreWritten) {
  const QString composed = Write("Caf\u00E9.msg", "1");
  const QString decomposed = Path("Cafe\u0301.msg");
  EXPECT_EQ(FindFile(composed), composed);
  EXPECT_EQ(FindFile(decomposed), composed);
  EXPECT_EQ(Write("Cafe\u0301.msg", "2"), decomposed);
  EXPECT_EQ(FindFile(decomposed), decomposed) << "the name itself comes first";
  ASSERT_TRUE(QFile::remove(composed));
  EXPECT_EQ(FindFile(composed), decomposed);
  const QString half = Path("Vi\u00EA\u0323t.msg");
  EXPECT_EQ(FindFile(half), half) << "there is none";
  const QString whole = Write("Vi\u1EC7t.msg", "3");
  EXPECT_EQ(FindFile(half), whole);
}

TEST_F(Files, ANameLongerThanAnyIsNotLookedFor) {
  const QString name = Path("a") + QString(1000000, QChar(0x0301));
  EXPECT_EQ(FindFile(name), name);
}

}  // namespace
}  // namespace Brivon1
