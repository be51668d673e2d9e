// What killed saves leave beside a file is removed by the next save of that file, and nothing else.
#include "base/left_over_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include <QDateTime>
#include <QScopeGuard>
#include <QSet>

#include "base/files.h"
#include "base/folder_of_files.h"
#include "support/as_nobody.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class LeftOverFiles : public FolderOfFiles {
 protected:
  /// Saves "a.msg" and gives what stands in the folder then.
  QStringList NamesAfterASave() const {
    EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kSaved);
    EXPECT_EQ(Read(Path("a.msg")), "new");
    return Names();
  }

  /// A file whose save was killed a while ago.
  void WriteOld(const char* name, const QByteArray& content, int minutes = 6) const {
    QFile file(Write(name, content));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime then = QDateTime::currentDateTimeUtc().addSecs(-60 * minutes);
    ASSERT_TRUE(file.setFileTime(then, QFileDevice::FileModificationTime));
  }

  QByteArray NativePath(const char* name) const { return QFile::encodeName(Path(name)); }
};

TEST_F(LeftOverFiles, AreRemovedByTheNextSaveOfThatFile) {
  Write("a.msg", "old");
  WriteOld("a.msg.~brivon-QxAdPk~", "ne");
  WriteOld("a.msg.~brivon-zzzZzZ~", "");
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, AreRemovedAlsoWhereTheFileItselfWasNeverThere) {
  WriteOld("a.msg.~brivon-QxAdPk~", "ne");
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, OfAFileThatALinkLeadsToAreRemovedBesideIt) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"elsewhere"_s));
  Write("elsewhere/b.msg", "old");
  WriteOld("elsewhere/b.msg.~brivon-QxAdPk~", "ne");
  WriteOld("a.msg.~brivon-QxAdPk~", "of the time when a.msg was no link");
  ASSERT_EQ(symlink("elsewhere/b.msg", NativePath("a.msg").constData()), 0);
  EXPECT_EQ(NamesAfterASave(),
            (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPk~"_s, u"elsewhere"_s}));
  EXPECT_EQ(QDir(Path("elsewhere")).entryList(QDir::Files), QStringList{u"b.msg"_s});
}

TEST_F(LeftOverFiles, OfAnotherNameStay) {
  QStringList names{u"a.msg"_s};
  for (const char* name : {"b.msg.~brivon-QxAdPk~",
                           "ba.msg.~brivon-QxAdPk~",
                           "A.MSG.~brivon-QxAdPk~",
                           "a.msg.backup",
                           "a.msg.QxAdeF",
                           "a.msg~",
                           "a.msg.~1~",
                           "a.msg.~1234~",
                           "a.msg.~brivon-QxAdP1~",
                           "a.msg.~brivon-QxAdP~",
                           "a.msg.~brivon-QxAdPkE~",
                           "a.msg.~brivon-QxAdPk",
                           "a.msg.~brivon-QxAdPkE",
                           "a.msg.~brivon-QxAdP{~",
                           "a.msg.~brivon-QxAdPk~~",
                           "a.msg.~brivon-QxAdPk~.msg",
                           "a.msg.brivon-QxAdPk~",
                           "a.msg-~brivon-QxAdPk~",
                           ".~brivon-QxAdPk~",
                           "a.msg.~brivon-QxAd\xC3\xA4~",
                           "a.msg.~HEAD~",
                           "a.msg.~main~",
                           "a.msg.~Copy~",
                           "a.msg.~QxAd~",
                           "a.msg.~brivon-~",
                           "a.msg.~brivon~",
                           "a.msg.~QxAdPk~",
                           "a.msg.~Brivon-QxAdPk~"}) {
    WriteOld(name, "an operator's own");
    names.append(QString::fromUtf8(name));
  }
  QStringList after = NamesAfterASave();
  names.sort();
  after.sort();
  EXPECT_EQ(after, names);
  for (const QString& name : names) {
    const QByteArray content = Read(Path(name.toUtf8().constData()));
    EXPECT_EQ(content, name == u"a.msg"_s ? "new" : "an operator's own") << name.toStdString();
  }
}

TEST_F(LeftOverFiles, ThatAreNoOrdinaryFilesStay) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"a.msg.~brivon-QxAdPa~"_s));
  ASSERT_EQ(mkfifo(NativePath("a.msg.~brivon-QxAdPb~").constData(), 0600), 0);
  WriteOld("target", "not to be touched");
  const QString target = Path("target");
  ASSERT_EQ(symlink("target", NativePath("a.msg.~brivon-QxAdPc~").constData()), 0);
  ASSERT_EQ(link(NativePath("target").constData(), NativePath("a.msg.~brivon-QxAdPk~").constData()),
            0);
  EXPECT_EQ(NamesAfterASave(),
            (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPa~"_s, u"a.msg.~brivon-QxAdPb~"_s,
                         u"a.msg.~brivon-QxAdPc~"_s, u"a.msg.~brivon-QxAdPk~"_s, u"target"_s}));
  EXPECT_EQ(Read(target), "not to be touched");
}

TEST_F(LeftOverFiles, WhatALivingSaveIsWritingStays) {
  WriteOld("a.msg.~brivon-QxAdPk~", "ne");
  const int handle = open(NativePath("a.msg.~brivon-QxAdPk~").constData(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(handle, 0);
  {
    const auto die = qScopeGuard([handle] { close(handle); });
    ASSERT_EQ(flock(handle, LOCK_EX), 0);
    EXPECT_EQ(NamesAfterASave(), (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPk~"_s}));
  }
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, ThatAnotherMachineMayBeWritingStay) {
  Write("a.msg.~brivon-QxAdPk~", "ne");
  WriteOld("a.msg.~brivon-QxAdPl~", "ne", 4);
  WriteOld("a.msg.~brivon-QxAdPm~", "ne", -4);
  EXPECT_EQ(NamesAfterASave(),
            (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPk~"_s, u"a.msg.~brivon-QxAdPl~"_s,
                         u"a.msg.~brivon-QxAdPm~"_s}));
  WriteOld("a.msg.~brivon-QxAdPk~", "ne");
  WriteOld("a.msg.~brivon-QxAdPl~", "ne");
  WriteOld("a.msg.~brivon-QxAdPm~", "of a clock that is wrong", -60);
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, AreCalledBySixLetters) {
  const QByteArray before = "/tmp/a.msg.~brivon-";
  QSet<char> letters;
  for (int i = 0; i < 2000; ++i) {
    const QByteArray name = SomeLeftOverName("/tmp/a.msg");
    ASSERT_EQ(name.size(), before.size() + 7);
    ASSERT_TRUE(name.startsWith(before) && name.endsWith('~')) << name.constData();
    for (const char letter : name.sliced(before.size(), 6)) letters.insert(letter);
  }
  QByteArray sorted;
  for (int letter = 0; letter < 256; ++letter) {
    if (letters.contains(static_cast<char>(letter))) sorted.append(static_cast<char>(letter));
  }
  EXPECT_EQ(sorted, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
}

TEST_F(LeftOverFiles, WhereNobodySaysHowLongANameMayBeHave255Bytes) {
  const QByteArray folder = NativePath("none there") + '/';
  EXPECT_EQ(LeftOverName(folder + QByteArray(255, 'a'), "QxAdPk"),
            folder + QByteArray(239, 'a') + ".~brivon-QxAdPk~");
}

TEST_F(LeftOverFiles, OfALongNameHaveItsBeginning) {
  const auto expect_cut = [](const QByteArray& file, const QByteArray& cut) {
    EXPECT_EQ(LeftOverName("/tmp/" + file, "QxAdPk"), "/tmp/" + cut + ".~brivon-QxAdPk~");
    EXPECT_EQ(LeftOverName(file, "QxAdPk"), cut + ".~brivon-QxAdPk~");
  };
  expect_cut("a.msg", "a.msg");
  expect_cut(QByteArray(239, 'a'), QByteArray(239, 'a'));
  expect_cut(QByteArray(240, 'a'), QByteArray(239, 'a'));
  expect_cut(QByteArray(255, 'a'), QByteArray(239, 'a'));
  // Whole characters.
  expect_cut(QByteArray(238, 'a') +
                 "\xC3\xA4"
                 "aaaaaaaaaa",
             QByteArray(238, 'a'));
  expect_cut(QByteArray(237, 'a') +
                 "\xC3\xA4"
                 "aaaaaaaaaa",
             QByteArray(237, 'a') + "\xC3\xA4");
  // A name in another code page may look like one half of a character only.
  expect_cut(QByteArray(240, '\xA4'), "");
}

TEST_F(LeftOverFiles, DoNotKeepALongNameFromBeingSavedAgain) {
  for (const int size : {239, 240, 247, 248, 255}) {
    SCOPED_TRACE(size);
    const QByteArray file = QByteArray(size - 4, 'a') + ".msg";
    WriteOld((file.first(std::min(size, 239)) + ".~brivon-QxAdPk~").constData(), "ne");
    EXPECT_EQ(SaveWholeFile(Path(file.constData()), "old"), SaveResult::kSaved);
    EXPECT_EQ(SaveWholeFile(Path(file.constData()), "new"), SaveResult::kSaved);
    EXPECT_EQ(Read(Path(file.constData())), "new");
    EXPECT_EQ(Names(), QStringList{QString::fromLatin1(file)});
    QFile::remove(Path(file.constData()));
  }
}

TEST_F(LeftOverFiles, OfSomebodyElseStayUnlessTheFileIsTheirs) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser may give files away";
  constexpr uid_t kOwner = 4711;
  Write("a.msg", "old");
  WriteOld("a.msg.~brivon-QxAdPk~", "ne");
  ASSERT_EQ(chown(NativePath("a.msg.~brivon-QxAdPk~").constData(), kOwner, 0), 0);
  EXPECT_EQ(NamesAfterASave(), (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPk~"_s}));
  ASSERT_EQ(chown(NativePath("a.msg").constData(), kOwner, 0), 0);
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, ThatMayNotBeWrittenStayAndTheFileIsSaved) {
  ASSERT_EQ(chmod(QFile::encodeName(folder_.path()).constData(), 0777), 0);
  const AsNobody as_nobody;
  WriteOld("a.msg.~brivon-QxAdPk~", "ne");
  ASSERT_EQ(chmod(NativePath("a.msg.~brivon-QxAdPk~").constData(), 0444), 0);
  EXPECT_EQ(NamesAfterASave(), (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPk~"_s}));
}

TEST_F(LeftOverFiles, StayWhereTheSaveIsRefusedForItsPath) {
  WriteOld("a.msg.~brivon-QxAdPk~", "ne");
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"a.msg"_s));
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPk~"_s}));
}

}  // namespace
}  // namespace Brivon1
