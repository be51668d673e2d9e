// Where a schedule breaks off, and why a message file cannot enter one.
#include <gtest/gtest.h>

#include "schedule/schedule_file.h"
#include "schedule/schedule_transmission.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

using Brivon1::Dimension;

namespace {

constexpr const char* kHeader = "*** Brivon Schedule File ***\r\n";
constexpr const char* kTime = "Week =0\r\nHour =**\r\nMin =**\r\n";

class ScheduleRemedies : public testing::Test {
 protected:
  /// Why the editor cannot open the schedule; "%1" is its path.
  std::string Opening(const QByteArray& lines) {
    const QString path = folder_.Write(u"week.sch"_s, QByteArray(kHeader) + lines);
    Brivon1::FileFailure failure;
    if (Brivon1::LoadScheduleFile(path, &failure)) {
      EXPECT_EQ(failure.fault, Brivon1::FileFault::kNone);
      return {};
    }
    return Brivon1::ScheduleFileRemedy(path, failure).replace(path, u"%1"_s).toStdString();
  }

  /// Why a file with that path cannot enter a schedule of two rows and 96 columns.
  std::string Entering(const QString& path) {
    QString remedy;
    EXPECT_FALSE(Brivon1::MessageFileRefusal(path, Dimension{2, 96}, &remedy).isEmpty());
    return remedy.replace(path, u"%1"_s).toStdString();
  }

  QString WritePage(const QString& name, int rows = 2) {
    return folder_.Write(name, "*** Brivon Message File ***\r\nRow = " + QByteArray::number(rows) +
                                   "\r\nCol = 96\r\n");
  }

  TemporaryProgramFolder folder_;
};

TEST_F(ScheduleRemedies, TheLineThatIsWrongIsNamed) {
  const std::pair<const char*, const char*> heads[] = {
      {"Week =8\r\n", "Week ="},
      {"Week =0\r\n", "Hour ="},
      {"Week =0\r\nHour =1\r\n", "Min ="},
      {"Week =0\r\nHour =1\r\nMin =1\r\nRow =0\r\nCol =0\r\n", "Row ="},
      {"Week =0\r\nHour =1\r\nMin =1\r\nRow =1\r\nCol =x\r\n", "Col ="},
      {"Week =0\r\nHour =1\r\nMin =1\r\nRow =1\r\nCol =8\r\nNo of Sequence =33\r\n",
       "No of Sequence ="},
  };
  for (const auto& [head, line] : heads) {
    EXPECT_EQ(Opening(head), std::string("The line \"") + line +
                                 "\" of %1 is missing or holds no possible number.");
  }
}

TEST_F(ScheduleRemedies, TheMessageThatIsMissingIsNamed) {
  const QByteArray head = QByteArray(kTime) + "Row =2\r\nCol =96\r\nNo of Sequence =2\r\n";
  EXPECT_EQ(Opening(head), "%1 ends early: message 1 of 2 is missing.");
  EXPECT_EQ(Opening(head + "a.msg\r\n5\r\n"), "%1 ends early: message 1 of 2 is missing.");
  EXPECT_EQ(Opening(head + "a.msg\r\n5\r\nOpen\r\n"), "%1 ends early: message 2 of 2 is missing.");
  EXPECT_EQ(Opening(head + "a.msg\r\n5\r\nOpen\r\nb.msg\r\n5\r\nOpen\r\n"), "");
}

TEST_F(ScheduleRemedies, TheFirstAndTheLastPossibleNumberOfALineAreNotCalledWrong) {
  for (const char* week : {"Week =0", "Week =7"}) {
    const QByteArray head =
        week + QByteArray("\r\nHour =**\r\nMin =**\r\nRow =1\r\nCol =1\r\nNo of Sequence =");
    EXPECT_EQ(Opening(head + "1\r\n"), "%1 ends early: message 1 of 1 is missing.");
    EXPECT_EQ(Opening(head + "32\r\n"), "%1 ends early: message 1 of 32 is missing.");
  }
}

TEST_F(ScheduleRemedies, ALineThatIsTooLongIsCalledSo) {
  const QByteArray head = QByteArray(kTime) + "Row =2\r\nCol =96\r\nNo of Sequence =1\r\n";
  const QByteArray longest(1'048'576, 'x');
  EXPECT_EQ(Opening(head + longest + "x\r\n5\r\nOpen\r\n"),
            "A line of %1 is longer than 1048576 bytes.");
  EXPECT_EQ(Opening(head + longest.chopped(1) + "\r\n5\r\nOpen\r\n"), "");
}

TEST_F(ScheduleRemedies, AFileThatIsNoScheduleIsCalledByItsOwnKind) {
  const QString path = WritePage(u"page.msg"_s);
  Brivon1::FileFailure failure;
  EXPECT_FALSE(Brivon1::LoadScheduleFile(path, &failure));
  EXPECT_EQ(Brivon1::ScheduleFileRemedy(path, failure),
            path + u" is a page.\nChoose a schedule (.sch)."_s);
}

TEST_F(ScheduleRemedies, AScheduleOfWhichNothingCanBeSentSaysWhyWithoutAText) {
  QByteArray lines = QByteArray(kHeader) + kTime + "Row =2\r\nCol =96\r\nNo of Sequence =27\r\n";
  for (int file = 1; file <= 27; ++file) {
    lines += QByteArray::number(file) + ".msg\r\n5\r\nOpen\r\n";
  }
  const QString path = folder_.Write(u"many.sch"_s, lines);
  const auto refusal = Brivon1::CheckScheduleFile(path, u"a"_s);
  ASSERT_TRUE(refusal);
  EXPECT_EQ(refusal->text, QString());
  EXPECT_EQ(refusal->remedy, path + u" names more than 26 different message files."_s);
}

TEST_F(ScheduleRemedies, ALetterThatIsMissingOrWrongIsSaid) {
  const auto remedy = [](const QString& letter) {
    return Brivon1::CheckScheduleFile(QString(), letter)->remedy;
  };
  EXPECT_EQ(remedy(QString()), u"No letter has been entered."_s);
  EXPECT_EQ(remedy(u"%1"_s), u"\"%1\" is no letter of a schedule."_s);
}

TEST_F(ScheduleRemedies, BothSizesAreNamed) {
  EXPECT_EQ(Entering(WritePage(u"page.msg"_s, 12)), "The page is 12x96, the schedule is 2x96.");
}

TEST_F(ScheduleRemedies, APathThatAScheduleCannotHoldIsSaidWhy) {
  const std::string rename = "\nMove or rename the file.";
  const QString root = folder_.Path(u"x"_s).chopped(1);
  EXPECT_EQ(Entering(WritePage(root.leftJustified(102, u'x').mid(root.size()))),
            "The path has 102 characters, 100 are possible." + rename);
  EXPECT_EQ(Entering(WritePage(u"道.msg"_s)),
            "%1 has characters that the code page does not have." + rename);
  EXPECT_EQ(Entering(WritePage(u"page.msg "_s)), "A schedule cannot hold the name %1." + rename);
}

}  // namespace
