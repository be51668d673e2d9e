// Why a schedule file is refused, and where.
#include "schedule/schedule_file_fixture.h"

using namespace Qt::StringLiterals;

using Brivon1::FileFault;

namespace {

class ScheduleFileFailure : public ScheduleFile {
 protected:
  /// Expects that the file is refused for `fault`, which stands in line `line`.
  void ExpectFailure(const QString& path, FileFault fault, int line, const char* found = "") {
    Brivon1::FileFailure why;
    EXPECT_FALSE(Brivon1::LoadScheduleFile(path, &why));
    EXPECT_EQ(why.fault, fault);
    EXPECT_EQ(why.line, line);
    EXPECT_EQ(why.found.toStdString(), found);
  }
};

TEST_F(ScheduleFileFailure, AFileThatIsNotThereIsNoFile) {
  ExpectFailure(Path(u"missing.sch"_s), FileFault::kNoFile, 0);
  ExpectFailure(Write("*** Brivon Message File ***\r\nRow = 1\r\n"), FileFault::kHeader, 1);
}

TEST_F(ScheduleFileFailure, AValueThatNoScheduleHasIsNamedWithItsLine) {
  ExpectFailure(
      Write(kHeader + "Week =8\r\nHour =**\r\nMin =**\r\n" + kSize + "No of Sequence =1\r\n"),
      FileFault::kWeekday, 2, "8");
  ExpectFailure(Write(kHeader + kSlot + "Row =0\r\nCol =96\r\nNo of Sequence =1\r\n"),
                FileFault::kRows, 5, "0");
  ExpectFailure(Write(kHeader + kSlot + "Row =4\r\nCol =x\r\nNo of Sequence =1\r\n"),
                FileFault::kColumns, 6, "0");
  ExpectFailure(Write(kHeader + kSlot + kSize + "No of Sequence =33\r\n"), FileFault::kSequences, 7,
                "33");
}

TEST_F(ScheduleFileFailure, TheLineThatIsMissingIsTold) {
  ExpectFailure(Write(kHeader + kSlot), FileFault::kEndsEarly, 5);
  ExpectFailure(
      Write(kHeader + kSlot + kSize + "No of Sequence =2\r\n" + Group("1.msg", "1", "Fall")),
      FileFault::kEndsEarly, 11);
  ExpectFailure(Write(kHeader + kSlot + kSize + "No of Sequence =1\r\n1.msg\r\n5\r\n"),
                FileFault::kEndsEarly, 10);
  ExpectFailure(Write(kHeader + kSlot + kSize + "No of Sequence =1\r\n1.msg\r\n"),
                FileFault::kEndsEarly, 9);
  ExpectFailure(Write(kHeader + kSlot + kSize + "No of Sequence =1\r\n" +
                      QByteArray((1 << 20) + 1, 'x') + "\r\n"),
                FileFault::kLongLine, 8);
}

}  // namespace
