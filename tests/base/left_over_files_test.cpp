// What killed saves leave beside a file is removed by the next save of that file, and nothing else.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QScopeGuard>

#include "base/files.h"
#include "base/folder_of_files.h"

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

  QByteArray NativePath(const char* name) const { return QFile::encodeName(Path(name)); }
};

TEST_F(LeftOverFiles, AreRemovedByTheNextSaveOfThatFile) {
  Write("a.msg", "old");
  Write("a.msg.~QxAd~", "ne");
  Write("a.msg.~zzzZ~", "");
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, AreRemovedAlsoWhereTheFileItselfWasNeverThere) {
  Write("a.msg.~QxAd~", "ne");
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, OfAFileThatALinkLeadsToAreRemovedBesideIt) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"elsewhere"_s));
  Write("elsewhere/b.msg", "old");
  Write("elsewhere/b.msg.~QxAd~", "ne");
  Write("a.msg.~QxAd~", "of the time when a.msg was no link");
  ASSERT_EQ(symlink("elsewhere/b.msg", NativePath("a.msg").constData()), 0);
  EXPECT_EQ(NamesAfterASave(), (QStringList{u"a.msg"_s, u"a.msg.~QxAd~"_s, u"elsewhere"_s}));
  EXPECT_EQ(QDir(Path("elsewhere")).entryList(QDir::Files), QStringList{u"b.msg"_s});
}

TEST_F(LeftOverFiles, OfAnotherNameStay) {
  QStringList names{u"a.msg"_s};
  for (const char* name :
       {"b.msg.~QxAd~", "ba.msg.~QxAd~", "A.MSG.~QxAd~", "a.msg.backup", "a.msg.QxAdeF", "a.msg~",
        "a.msg.~1~", "a.msg.~1234~", "a.msg.~QxA1~", "a.msg.~QxA~", "a.msg.~QxAdE~", "a.msg.~QxAd",
        "a.msg.~QxAd~~", "a.msg.~QxAd~.msg", "a.msg.QxAdE~", "a.msg-~QxAd~", ".~QxAd~",
        "a.msg.~Qx\xC3\xA4~"}) {
    Write(name, "an operator's own");
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
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"a.msg.~QxAa~"_s));
  ASSERT_EQ(mkfifo(NativePath("a.msg.~QxAb~").constData(), 0600), 0);
  const QString target = Write("target", "not to be touched");
  ASSERT_EQ(symlink("target", NativePath("a.msg.~QxAc~").constData()), 0);
  ASSERT_EQ(link(NativePath("target").constData(), NativePath("a.msg.~QxAd~").constData()), 0);
  EXPECT_EQ(NamesAfterASave(), (QStringList{u"a.msg"_s, u"a.msg.~QxAa~"_s, u"a.msg.~QxAb~"_s,
                                            u"a.msg.~QxAc~"_s, u"a.msg.~QxAd~"_s, u"target"_s}));
  EXPECT_EQ(Read(target), "not to be touched");
}

TEST_F(LeftOverFiles, WhatALivingSaveIsWritingStays) {
  Write("a.msg.~QxAd~", "ne");
  const int handle = open(NativePath("a.msg.~QxAd~").constData(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(handle, 0);
  {
    const auto die = qScopeGuard([handle] { close(handle); });
    ASSERT_EQ(flock(handle, LOCK_EX), 0);
    EXPECT_EQ(NamesAfterASave(), (QStringList{u"a.msg"_s, u"a.msg.~QxAd~"_s}));
  }
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, OfSomebodyElseStayUnlessTheFileIsTheirs) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser may give files away";
  constexpr uid_t kOwner = 4711;
  Write("a.msg", "old");
  Write("a.msg.~QxAd~", "ne");
  ASSERT_EQ(chown(NativePath("a.msg.~QxAd~").constData(), kOwner, 0), 0);
  EXPECT_EQ(NamesAfterASave(), (QStringList{u"a.msg"_s, u"a.msg.~QxAd~"_s}));
  ASSERT_EQ(chown(NativePath("a.msg").constData(), kOwner, 0), 0);
  EXPECT_EQ(NamesAfterASave(), QStringList{u"a.msg"_s});
}

TEST_F(LeftOverFiles, StayWhereTheSaveIsRefusedForItsPath) {
  Write("a.msg.~QxAd~", "ne");
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"a.msg"_s));
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), (QStringList{u"a.msg"_s, u"a.msg.~QxAd~"_s}));
}

}  // namespace
}  // namespace Brivon1
