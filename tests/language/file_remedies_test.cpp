// Why a file cannot be opened or saved, as an operator is told.
#include "language/file_remedies.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "support/full_disk.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

using Brivon1::FileSort;
using Brivon1::MissingFileRemedy;
using Brivon1::SaveResult;
using Brivon1::WrongKindRemedy;

namespace {

constexpr const char* kPage = "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01>a\r\n";
constexpr const char* kSchedule = "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =**\r\n";
constexpr const char* kScrolling = "*** Brivon Shift Message File ***\r\nHello\r\n";

class FileRemedies : public testing::Test {
 protected:
  /// What is said of a file with `content` where one of `wanted` was to be; "%1" is its path.
  std::string Wrong(const QByteArray& content, FileSort wanted) {
    const QString path = folder_.Write(u"some.file"_s, content);
    return Short(WrongKindRemedy(path, wanted), path);
  }

  static std::string Short(QString text, const QString& path) {
    return text.replace(path, u"%1"_s).toStdString();
  }

  /// A failed save of `content` to `path`; "%1" is the path.
  static std::string Save(const QString& path, const QByteArray& content = "text") {
    QString reason;
    const SaveResult result = Brivon1::SaveWholeFile(path, content, &reason);
    return Short(Brivon1::SaveRemedy(path, result, reason), path);
  }

  TemporaryProgramFolder folder_;
};

TEST_F(FileRemedies, AFileThatIsNotThereIsNamedWithTheSystemsReason) {
  const QString path = folder_.Path(u"gone.msg"_s);
  EXPECT_EQ(Short(MissingFileRemedy(path), path),
            "%1: No such file or directory\nIt has been moved or renamed, or was not saved yet. "
            "Save it, or choose another one.");
}

TEST_F(FileRemedies, WhatIsNoFileIsSaidToBeNone) {
  EXPECT_EQ(MissingFileRemedy(QString()), u"No file has been chosen yet."_s);
  QDir(folder_.Path(u"."_s)).mkdir(u"pages"_s);
  const QString folder = folder_.Path(u"pages"_s);
  EXPECT_EQ(Short(MissingFileRemedy(folder), folder), "%1 is a folder. Choose a file in it.");
  EXPECT_EQ(Short(WrongKindRemedy(folder, FileSort::kPage), folder),
            "%1 is a folder. Choose a file in it.");
  EXPECT_EQ(MissingFileRemedy(u"/dev/null"_s), u"/dev/null is no ordinary file."_s);
}

TEST_F(FileRemedies, AFileOfAnotherKindIsCalledByItsOwn) {
  EXPECT_EQ(Wrong(kSchedule, FileSort::kPage), "%1 is a schedule.\nChoose a page (.msg).");
  EXPECT_EQ(Wrong(kPage, FileSort::kSchedule), "%1 is a page.\nChoose a schedule (.sch).");
  EXPECT_EQ(Wrong(kScrolling, FileSort::kPage),
            "%1 is a scrolling message.\nChoose a page (.msg).");
  EXPECT_EQ(Wrong(kPage, FileSort::kScrolling),
            "%1 is a page.\nChoose a scrolling message (.srl).");
}

TEST_F(FileRemedies, AnyOtherFileIsShownByItsBeginning) {
  EXPECT_EQ(
      Wrong("GIF89a\x01\x02 and so on, for many more letters than are shown\r\n", FileSort::kPage),
      "%1 begins with \"GIF89a?? and so on, for many more letter\".\nChoose a page (.msg).");
  EXPECT_EQ(Wrong("%2 %1", FileSort::kPage), "%1 begins with \"%2 %1\".\nChoose a page (.msg).");
}

TEST_F(FileRemedies, AFileThatBreaksOffIsSaidToDoSo) {
  EXPECT_EQ(Wrong("", FileSort::kPage), "%1 is empty.\nChoose a page (.msg).");
  EXPECT_EQ(Wrong("*** Brivon Message File ***\r\n", FileSort::kPage),
            "%1 ends after its first line.\nChoose a page (.msg).");
  EXPECT_EQ(Wrong(QByteArray((1 << 20) + 1, 'x'), FileSort::kSchedule),
            "A line of %1 is longer than 1048576 bytes.\nChoose a schedule (.sch).");
}

TEST_F(FileRemedies, AFileThatMayNotBeReadSaysWhyAndWhatToChoose) {
  const QString path = folder_.Write(u"some.file"_s, kPage);
  ASSERT_EQ(chmod(QFile::encodeName(folder_.Path(QString())).constData(), 0755), 0);
  ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0), 0);
  // The superuser may read everything, so the file is opened as somebody else.
  const bool is_superuser = geteuid() == 0;
  if (is_superuser) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  const QString remedy = WrongKindRemedy(path, FileSort::kScrolling);
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_EQ(Short(remedy, path), "%1: Permission denied\nChoose a scrolling message (.srl).");
}

TEST_F(FileRemedies, AFileThatBeginsRightNeedsNone) {
  EXPECT_EQ(Wrong(kPage, FileSort::kPage), "");
  EXPECT_EQ(Wrong(kSchedule, FileSort::kSchedule), "");
  EXPECT_EQ(Wrong(kScrolling, FileSort::kScrolling), "");
}

TEST_F(FileRemedies, ANameThatLooksLikeAPlaceForAValueIsTakenAsItIs) {
  const QString path = folder_.Write(u"%2.msg"_s, kSchedule);
  EXPECT_EQ(WrongKindRemedy(path, FileSort::kPage),
            path + u" is a schedule.\nChoose a page (.msg)."_s);
  const QString other = folder_.Write(u"%2.txt"_s, "text");
  EXPECT_EQ(WrongKindRemedy(other, FileSort::kPage),
            other + u" begins with \"text\".\nChoose a page (.msg)."_s);
}

TEST_F(FileRemedies, ASaveThatFailsGivesTheSystemsReason) {
  const std::string elsewhere = "\nSave it in another folder or under another name.";
  EXPECT_EQ(Save(folder_.Path(u"nowhere/a.msg"_s)), "%1: No such file or directory" + elsewhere);
  QDir(folder_.Path(u"."_s)).mkdir(u"pages"_s);
  EXPECT_EQ(Save(folder_.Path(u"pages"_s)), "%1: Is a directory" + elsewhere);
  folder_.Write(u"a.msg"_s, "text");
  EXPECT_EQ(Save(folder_.Path(u"a.msg/b.msg"_s)), "%1: Not a directory" + elsewhere);
  EXPECT_EQ(Save(folder_.Path(QString(300, u'x'))), "%1: File name too long" + elsewhere);
}

TEST_F(FileRemedies, AFullDiskAsksForRoom) {
  const FullDisk full_disk(20);
  EXPECT_EQ(Save(folder_.Path(u"a.msg"_s), QByteArray(100, 'x')),
            "%1: File too large\nMake room there, or save it on another disk.");
}

TEST_F(FileRemedies, ASaveThatSucceedsNeedsNone) { EXPECT_EQ(Save(folder_.Path(u"a.msg"_s)), ""); }

TEST_F(FileRemedies, TheReasonIsInTheOperatorsLanguage) {
  folder_.UseLanguage(
      "[Texts]\r\ntxtIsADirectory=Ist ein Verzeichnis\r\ntxtElsewhere=Anderswo!\r\n");
  QDir(folder_.Path(u"."_s)).mkdir(u"pages"_s);
  EXPECT_EQ(Save(folder_.Path(u"pages"_s)), "%1: Ist ein Verzeichnis\nAnderswo!");
}

TEST_F(FileRemedies, APathThatIsTooLongIsCounted) {
  EXPECT_EQ(Brivon1::LongPathRemedy(102, 100), u"The path has 102 characters, 100 are possible."_s);
}

}  // namespace
