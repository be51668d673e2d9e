// Saving a schedule file: what is written, what is checked before, and what a failure leaves.
#include <ostream>
#include <tuple>

#include <gtest/gtest.h>

#include "schedule/schedule_file.h"
#include "schedule/schedule_file_fixture.h"
#include "support/full_disk.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::FixedField;
using Brivon1::SaveFailureText;
using Brivon1::SaveScheduleFile;
using Brivon1::Schedule;
using Brivon1::ScheduleSaveResult;
using Brivon1::Sequence;

TEST_F(ScheduleFile, IsWrittenWithHeaderTimeSizeAndThreeLinesPerSequence) {
  Schedule schedule;
  schedule.weekday = 7;
  schedule.hour = " 8 ";
  schedule.minute = "30";
  schedule.dimension = {16, 96};
  schedule.Append({FixedField("C:\\a.msg", 100), 5, FixedField("Appear", 20)});
  schedule.Append({FixedField("b.msg", 100), 99, FixedField("Wipe Left", 20)});
  EXPECT_EQ(SaveScheduleFile(Path(), schedule), ScheduleSaveResult::kSaved);
  EXPECT_EQ(Read(),
            "*** Brivon Schedule File ***\r\n"
            "Week =7\r\n"
            "Hour =8\r\n"
            "Min =30\r\n"
            "Row =16\r\n"
            "Col =96\r\n"
            "No of Sequence =2\r\n"
            "C:\\a.msg                                                                          "
            "                  \r\n"
            "5\r\n"
            "Appear              \r\n"
            "b.msg                                                                             "
            "                  \r\n"
            "99\r\n"
            "Wipe Left           \r\n");
}

TEST_F(ScheduleFile, AScheduleForEveryTimeIsWrittenWithTwoStars) {
  Schedule schedule;
  schedule.dimension = {4, 80};
  schedule.Append({FixedField("a.msg", 100), 1, FixedField("Fall", 20)});
  EXPECT_EQ(SaveScheduleFile(Path(), schedule), ScheduleSaveResult::kSaved);
  EXPECT_EQ(
      Read(),
      "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =**\r\nMin =**\r\nRow =4\r\nCol =80\r\n"
      "No of Sequence =1\r\n" +
          Group("a.msg", "1", "Fall"));
}

struct TimeCase {
  QByteArray hour;
  QByteArray minute;
  QString refusal;
};

void PrintTo(const TimeCase& time, std::ostream* out) {
  *out << time.hour.constData() << ':' << time.minute.constData();
}

class ScheduleTime : public ScheduleFile, public testing::WithParamInterface<TimeCase> {};

TEST_P(ScheduleTime, IsCheckedBeforeAnythingIsWritten) {
  Write("as it was");
  Schedule schedule;
  schedule.hour = GetParam().hour;
  schedule.minute = GetParam().minute;
  schedule.dimension = {16, 96};
  schedule.Append({FixedField("a.msg", 100), 5, FixedField("Flip", 20)});
  EXPECT_EQ(SaveFailureText(SaveScheduleFile(Path(), schedule)), GetParam().refusal);
  if (GetParam().refusal.isEmpty()) {
    EXPECT_EQ(Read(), kHeader + "Week =0\r\nHour =" + GetParam().hour.trimmed() +
                          "\r\nMin =" + GetParam().minute.trimmed() + "\r\n" + kSize +
                          "No of Sequence =1\r\n" + Group("a.msg", "5", "Flip"));
  } else {
    EXPECT_EQ(Read(), "as it was");
  }
}

const QString kHourWrong = u"Hour Format Wrong!"_s;
const QString kMinuteWrong = u"Minute Format Wrong!"_s;

INSTANTIATE_TEST_SUITE_P(
    All, ScheduleTime,
    testing::Values(TimeCase{"**", "**", {}}, TimeCase{" ** ", "  **", {}}, TimeCase{"0", "0", {}},
                    TimeCase{"23", "59", {}}, TimeCase{"08", "05", {}}, TimeCase{"", "", {}},
                    TimeCase{"ab", "cd", {}}, TimeCase{"*", "***", {}}, TimeCase{"7pm", "5min", {}},
                    TimeCase{"24", "0", kHourWrong}, TimeCase{"-1", "0", kHourWrong},
                    TimeCase{"99999999999", "0", kHourWrong}, TimeCase{"0", "60", kMinuteWrong},
                    TimeCase{"0", "-1", kMinuteWrong}, TimeCase{"0", "65536", kMinuteWrong},
                    TimeCase{"24", "60", kHourWrong}));

Schedule SmallSchedule() {
  Schedule schedule;
  schedule.dimension = {16, 96};
  schedule.Append({FixedField("a.msg", 100), 5, FixedField("Flip", 20)});
  return schedule;
}

TEST_F(ScheduleFile, ASaveIntoAFolderThatIsNotThereIsAnInvalidPath) {
  EXPECT_EQ(SaveFailureText(SaveScheduleFile(Path(u"nowhere/week.sch"_s), SmallSchedule())),
            u"Invalid path!"_s);
}

TEST_F(ScheduleFile, ASaveOntoAFullDiskLeavesTheOldFile) {
  Write("as it was");
  {
    const FullDisk full_disk(20);
    EXPECT_EQ(SaveFailureText(SaveScheduleFile(Path(), SmallSchedule())),
              u"Drive not available!"_s);
  }
  EXPECT_EQ(Read(), "as it was");
}

TEST(ScheduleSaveTest, APathOrADiskThatFailsHasOtherWordsWhereTheScheduleIsSavedInOrderToSendIt) {
  const std::tuple<ScheduleSaveResult, QString, QString> words[] = {
      {ScheduleSaveResult::kSaved, {}, {}},
      {ScheduleSaveResult::kHourWrong, kHourWrong, kHourWrong},
      {ScheduleSaveResult::kMinuteWrong, kMinuteWrong, kMinuteWrong},
      {ScheduleSaveResult::kInvalidPath, u"Invalid path!"_s, u"Path Not Valid"_s},
      {ScheduleSaveResult::kDriveNotAvailable, u"Drive not available!"_s,
       u"Drive Not Available!"_s}};
  for (const auto& [result, when_saving, when_sending] : words) {
    EXPECT_EQ(SaveFailureText(result), when_saving);
    EXPECT_EQ(Brivon1::SaveFailureTextWhenSending(result), when_sending);
  }
}

}  // namespace
