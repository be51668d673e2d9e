#include "store/program_folder.h"

#include <thread>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "support/as_nobody.h"
#include "support/full_disk.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class ProgramFolderTest : public testing::Test {
 protected:
  QString Path(const QString& name) const { return folder_.filePath(name); }

  void Write(const QString& name, const QByteArray& content) const {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(Path(name)).path()));
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
  }

  QByteArray Read(const QString& name) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
  }

  /// An installation of one file of each kind.
  void Install() const {
    Write(u"installed/brivon.ini"_s, "[Files]\r\n");
    Write(u"installed/messages/welcome.msg"_s, "welcome");
    Write(u"installed/schedules/every_day.sch"_s, "every day");
    Write(u"installed/languages/deutsch/langSetting.INI"_s, "[frmMain]\r\n");
    Write(u"installed/manual/manual.html"_s, "<html>");
  }

  bool LayOut() const { return LayOutSamples(Path(u"installed"_s), Path(u"data/brivon"_s)); }

  QTemporaryDir folder_;
};

TEST_F(ProgramFolderTest, AFolderThatCanBeWrittenToIsTheProgramsOwn) {
  EXPECT_EQ(ChooseProgramFolder(folder_.path(), u"/users"_s), folder_.path());
}

TEST_F(ProgramFolderTest, AFolderThatCannotBeWrittenToGivesWayToTheUsers) {
  EXPECT_EQ(ChooseProgramFolder(Path(u"nowhere"_s), u"/users"_s), u"/users"_s);
}

TEST_F(ProgramFolderTest, AConfigurationBesideTheProgramIsUsedWhereNobodyMayWrite) {
  const QString programs = Path(u"bin"_s);
  const QFile::Permissions no_writing = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                        QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
  ASSERT_TRUE(QFile::setPermissions(folder_.path(), no_writing | QFile::WriteOwner));
  Write(u"bin/program"_s, "");
  ASSERT_TRUE(QFile::setPermissions(programs, no_writing));
  {
    const AsNobody nobody;
    EXPECT_EQ(ChooseProgramFolder(programs, u"/users"_s), u"/users"_s);
  }
  ASSERT_TRUE(QFile::setPermissions(programs, no_writing | QFile::WriteOwner));
  Write(u"bin/brivon.ini"_s, "");
  ASSERT_TRUE(QFile::setPermissions(programs, no_writing));
  {
    const AsNobody nobody;
    EXPECT_EQ(ChooseProgramFolder(programs, u"/users"_s), programs);
  }
  ASSERT_TRUE(QFile::setPermissions(programs, no_writing | QFile::WriteOwner));
}

TEST_F(ProgramFolderTest, TheFirstStartLaysTheSamplesOut) {
  Install();
  EXPECT_TRUE(LayOut());
  EXPECT_EQ(Read(u"data/brivon/brivon.ini"_s), "[Files]\r\n");
  EXPECT_EQ(Read(u"data/brivon/messages/welcome.msg"_s), "welcome");
  EXPECT_EQ(Read(u"data/brivon/schedules/every_day.sch"_s), "every day");
  EXPECT_EQ(Read(u"data/brivon/languages/deutsch/langSetting.INI"_s), "[frmMain]\r\n");
  EXPECT_FALSE(QFileInfo::exists(Path(u"data/brivon/manual"_s)));
}

TEST_F(ProgramFolderTest, WhatIsInstalledReadOnlyIsTheOperatorsToChange) {
  Install();
  ASSERT_TRUE(QFile::setPermissions(Path(u"installed/brivon.ini"_s), QFile::ReadOwner));
  EXPECT_TRUE(LayOut());
  EXPECT_TRUE(QFile::permissions(Path(u"data/brivon/brivon.ini"_s)) & QFile::WriteOwner);
}

TEST_F(ProgramFolderTest, ALaterStartReplacesNothingAndBringsNothingBack) {
  Install();
  EXPECT_TRUE(LayOut());
  Write(u"data/brivon/brivon.ini"_s, "mine");
  Write(u"data/brivon/messages/welcome.msg"_s, "mine");
  ASSERT_TRUE(QFile::remove(Path(u"data/brivon/schedules/every_day.sch"_s)));
  EXPECT_TRUE(LayOut());
  EXPECT_EQ(Read(u"data/brivon/brivon.ini"_s), "mine");
  EXPECT_EQ(Read(u"data/brivon/messages/welcome.msg"_s), "mine");
  EXPECT_FALSE(QFileInfo::exists(Path(u"data/brivon/schedules/every_day.sch"_s)));
}

TEST_F(ProgramFolderTest, AnInterruptedFirstStartIsCompletedAndReplacesNothing) {
  Install();
  Write(u"data/brivon/messages/welcome.msg"_s, "mine");
  EXPECT_TRUE(LayOut());
  EXPECT_EQ(Read(u"data/brivon/messages/welcome.msg"_s), "mine");
  EXPECT_EQ(Read(u"data/brivon/brivon.ini"_s), "[Files]\r\n");
}

TEST_F(ProgramFolderTest, WhatAKilledFirstStartLeftBesideAFileIsRemoved) {
  Install();
  const QString left_over = u"data/brivon/messages/welcome.msg.~brivon-QxAdPk~"_s;
  Write(left_over, "welc");
  QFile file(Path(left_over));
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  const QDateTime then = QDateTime::currentDateTimeUtc().addSecs(-3600);
  ASSERT_TRUE(file.setFileTime(then, QFileDevice::FileModificationTime));
  file.close();
  EXPECT_TRUE(LayOutSamples(Path(u"installed"_s), Path(u"data/brivon"_s)));
  EXPECT_EQ(Read(u"data/brivon/messages/welcome.msg"_s), "welcome");
  EXPECT_FALSE(QFileInfo::exists(Path(left_over)));
}

TEST_F(ProgramFolderTest, AFileInPlaceOfAFolderEndsTheLayingOut) {
  Install();
  Write(u"data/brivon/messages"_s, "a file");
  EXPECT_FALSE(LayOut());
  EXPECT_FALSE(QFileInfo::exists(Path(u"data/brivon/brivon.ini"_s)));
  EXPECT_EQ(Read(u"data/brivon/messages"_s), "a file");
}

TEST_F(ProgramFolderTest, WhatCouldNotBeWrittenIsNamedWithTheReason) {
  Install();
  LayOutFailure failure;
  Write(u"data/brivon/messages"_s, "a file");
  EXPECT_FALSE(LayOutSamples(Path(u"installed"_s), Path(u"data/brivon"_s), &failure));
  EXPECT_EQ(failure.path, Path(u"data/brivon/messages"_s));
  EXPECT_EQ(failure.result, SaveResult::kInvalidPath);
  EXPECT_EQ(failure.reason, u"Not a directory"_s);

  const QFile::Permissions no_writing =
      QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
  Write(u"closed/file"_s, "");
  ASSERT_TRUE(QFile::setPermissions(folder_.path(), no_writing | QFile::WriteOwner));
  ASSERT_TRUE(QFile::setPermissions(Path(u"closed"_s), no_writing));
  {
    const AsNobody nobody;
    EXPECT_FALSE(LayOutSamples(Path(u"installed"_s), Path(u"closed/data/brivon"_s), &failure));
  }
  ASSERT_TRUE(QFile::setPermissions(Path(u"closed"_s), no_writing | QFile::WriteOwner));
  EXPECT_EQ(failure.path, Path(u"closed/data/brivon"_s));
  EXPECT_EQ(failure.result, SaveResult::kInvalidPath);
  EXPECT_EQ(failure.reason, u"Permission denied"_s);
}

TEST_F(ProgramFolderTest, AFullDiskIsNamedWithTheFileThatHadNoRoom) {
  Install();
  Write(u"installed/messages/welcome.msg"_s, QByteArray(1000, 'w'));
  LayOutFailure failure;
  {
    const FullDisk full_disk(200);
    EXPECT_FALSE(LayOutSamples(Path(u"installed"_s), Path(u"data/brivon"_s), &failure));
  }
  EXPECT_EQ(failure.path, Path(u"data/brivon/messages/welcome.msg"_s));
  EXPECT_EQ(failure.result, SaveResult::kDriveNotAvailable);
  EXPECT_EQ(failure.reason, u"File too large"_s);
}

TEST_F(ProgramFolderTest, TwoProgramsThatStartAtOnceLayOutOnce) {
  Install();
  ASSERT_TRUE(QDir().mkpath(Path(u"data/brivon"_s)));
  QLockFile other(Path(u"data/brivon/brivon.ini.lock"_s));
  ASSERT_TRUE(other.tryLock(0));
  bool is_laid_out = false;
  std::thread late([&] { is_laid_out = LayOut(); });
  Write(u"data/brivon/brivon.ini"_s, "mine");
  other.unlock();
  late.join();
  EXPECT_TRUE(is_laid_out);
  EXPECT_EQ(Read(u"data/brivon/brivon.ini"_s), "mine");
  EXPECT_EQ(QDir(Path(u"data/brivon"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            QStringList{u"brivon.ini"_s});
}

TEST_F(ProgramFolderTest, ALockThatIsNotLetGoIsToldAndNothingIsLaidOut) {
  Install();
  ASSERT_TRUE(QDir().mkpath(Path(u"data/brivon"_s)));
  QLockFile other(Path(u"data/brivon/brivon.ini.lock"_s));
  ASSERT_TRUE(other.tryLock(0));
  LayOutFailure failure;
  EXPECT_FALSE(LayOutSamples(Path(u"installed"_s), Path(u"data/brivon"_s), &failure));
  EXPECT_EQ(failure.result, SaveResult::kLocked);
  EXPECT_EQ(failure.path, Path(u"data/brivon/brivon.ini"_s));
  EXPECT_EQ(failure.reason, u"Another program is saving it."_s);
  EXPECT_FALSE(QFileInfo::exists(Path(u"data/brivon/messages"_s)));
}

TEST_F(ProgramFolderTest, ASampleThatCannotBeReadIsLeftOut) {
  const QFile::Permissions all(0x7777);
  Install();
  ASSERT_TRUE(QFile::setPermissions(folder_.path(), all));
  ASSERT_TRUE(QDir().mkpath(Path(u"data/brivon"_s)));
  ASSERT_TRUE(QFile::setPermissions(Path(u"data/brivon"_s), all));
  ASSERT_TRUE(QFile::setPermissions(Path(u"installed/messages/welcome.msg"_s), {}));
  LayOutFailure failure;
  {
    const AsNobody nobody;
    EXPECT_TRUE(LayOutSamples(Path(u"installed"_s), Path(u"data/brivon"_s), &failure));
  }
  EXPECT_EQ(failure.result, SaveResult::kSaved);
  EXPECT_FALSE(QFileInfo::exists(Path(u"data/brivon/messages/welcome.msg"_s)));
  EXPECT_EQ(Read(u"data/brivon/schedules/every_day.sch"_s), "every day");
  EXPECT_EQ(Read(u"data/brivon/brivon.ini"_s), "[Files]\r\n");
}

TEST_F(ProgramFolderTest, WithoutAnInstallationTheFolderIsMadeEmptyAndNothingHasFailed) {
  LayOutFailure failure;
  EXPECT_FALSE(LayOutSamples(Path(u"installed"_s), Path(u"data/brivon"_s), &failure));
  EXPECT_EQ(failure.result, SaveResult::kSaved);
  EXPECT_TRUE(QDir(Path(u"data/brivon"_s)).isEmpty());
}

}  // namespace
}  // namespace Brivon1
