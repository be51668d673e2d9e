// Reading a schedule file.
#include "schedule/schedule_file.h"

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "schedule/schedule_file_fixture.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::Dimension;
using Brivon1::FixedField;
using Brivon1::IsScheduleFile;
using Brivon1::LoadScheduleFile;
using Brivon1::Schedule;
using Brivon1::Sequence;

TEST_F(ScheduleFile, IsRead) {
  const auto schedule =
      Load(kHeader + "Week =7\r\nHour =8\r\nMin =**\r\n" + kSize + "No of Sequence =2\r\n" +
           Group("a.msg", "5", "Appear") + Group("b.msg", "12", "Wipe Left"));
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->weekday, 7);
  EXPECT_EQ(schedule->hour, "8");
  EXPECT_EQ(schedule->minute, "**");
  EXPECT_EQ(schedule->dimension, (Dimension{16, 96}));
  ASSERT_EQ(schedule->Count(), 2);
  EXPECT_EQ(schedule->Sequences()[0],
            (Sequence{FixedField("a.msg", 100), 5, FixedField("Appear", 20)}));
  EXPECT_EQ(schedule->Sequences()[1],
            (Sequence{FixedField("b.msg", 100), 12, FixedField("Wipe Left", 20)}));
  EXPECT_EQ(schedule->Files().Count(), 2);
}

TEST_F(ScheduleFile, AFileWhoseFirstLineCarriesBlanksAroundTheHeaderStillLoads) {
  EXPECT_TRUE(Load("  *** Brivon Schedule File ***\t \r\n" + FileOf(1).mid(kHeader.size())));
}

TEST_F(ScheduleFile, AHeaderInOtherLetterCaseIsRefused) {
  EXPECT_FALSE(Load("*** BRIVON SCHEDULE FILE ***\r\n" + FileOf(1).mid(kHeader.size())));
}

TEST_F(ScheduleFile, AMissingFileAndAFolderAreRefused) {
  EXPECT_FALSE(LoadScheduleFile(Path(u"nowhere.sch"_s)));
  EXPECT_FALSE(LoadScheduleFile(folder_.path()));
}

TEST_F(ScheduleFile, Week7IsSaturdayAndWeek0IsEveryDay) {
  EXPECT_EQ(LoadHead("Week =7\r\nHour =1\r\nMin =2\r\n", kSize)->weekday, 7);
  EXPECT_EQ(LoadHead("Week =0\r\nHour =1\r\nMin =2\r\n", kSize)->weekday, 0);
}

TEST_F(ScheduleFile, AWeekdayOutside0To7IsRefused) {
  EXPECT_FALSE(LoadHead("Week =8\r\nHour =1\r\nMin =2\r\n", kSize));
  EXPECT_FALSE(LoadHead("Week =-1\r\nHour =1\r\nMin =2\r\n", kSize));
  EXPECT_FALSE(LoadHead("Week =65536\r\nHour =1\r\nMin =2\r\n", kSize)) << "must not wrap to 0";
}

TEST_F(ScheduleFile, NoOfSequence0And33AreRefusedAnd32IsAccepted) {
  EXPECT_FALSE(Load(FileOf(0)));
  EXPECT_FALSE(Load(FileOf(33)));
  QByteArray content = kHeader + kSlot + kSize + "No of Sequence =32\r\n";
  for (int i = 0; i < 32; ++i) content += Group("same.msg", "1", "Fall");
  const auto schedule = Load(content);
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Count(), 32);
  EXPECT_EQ(schedule->Files().Count(), 1);
}

TEST_F(ScheduleFile, Row0OrCol0IsRefused) {
  EXPECT_FALSE(LoadHead(kSlot, "Row =0\r\nCol =96\r\n"));
  EXPECT_FALSE(LoadHead(kSlot, "Row =16\r\nCol =0\r\n"));
  EXPECT_FALSE(LoadHead(kSlot, "Row =sixteen\r\nCol =96\r\n"));
}

TEST_F(ScheduleFile, APathLongerThan100CharactersIsCutOnReading) {
  const QByteArray long_path = QByteArray(95, 'x') + "123456789";
  const auto schedule = Load(kHeader + kSlot + kSize + "No of Sequence =1\r\n" + long_path +
                             "\r\n5\r\nAn effect with more than 20 characters\r\n");
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Sequences()[0].path, QByteArray(95, 'x') + "12345");
  EXPECT_EQ(schedule->Sequences()[0].feature, "An effect with more ");
}

TEST_F(ScheduleFile, AShorterPathComesBackPaddedWithBlanks) {
  const auto schedule =
      Load(kHeader + kSlot + kSize + "No of Sequence =1\r\na.msg\r\n5\r\nFall\r\n");
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Sequences()[0].path, "a.msg" + QByteArray(95, ' '));
  EXPECT_EQ(schedule->Sequences()[0].feature, "Fall" + QByteArray(16, ' '));
}

TEST_F(ScheduleFile, AScheduleNamingTheSameMessageFileThreeTimesUsesOneEntryOfTheDistinctList) {
  const auto schedule =
      Load(kHeader + kSlot + kSize + "No of Sequence =3\r\n" + Group("a.msg", "1", "Fall") +
           Group("a.msg", "2", "Open") + Group("a.msg", "3", "Flip"));
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Count(), 3);
  EXPECT_EQ(schedule->Files().Count(), 1);
}

TEST_F(ScheduleFile, AFileOf26DifferentMessageFilesIsReadWhole) {
  const auto schedule = Load(FileOf(26));
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Sequences()[25].delay, 26);
  EXPECT_EQ(schedule->Files().Count(), 26);
}

TEST_F(ScheduleFile, AFileThatNamesA27thMessageFileLoadsWithItsLaterEntriesUnread) {
  const auto schedule = Load(FileOf(30));
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Count(), 30);
  EXPECT_EQ(schedule->Files().Count(), 26);
  EXPECT_EQ(schedule->Sequences()[25].delay, 26);
  // The 27th path was read before it was refused, what follows it was not.
  EXPECT_EQ(schedule->Sequences()[26],
            (Sequence{FixedField("27.msg", 100), 0, QByteArray(20, ' ')}));
  for (int i = 27; i < 30; ++i) {
    EXPECT_EQ(schedule->Sequences()[i], (Sequence{QByteArray(100, ' '), 0, QByteArray(20, ' ')}));
  }
}

TEST_F(ScheduleFile, WhatFollowsA27thMessageFileMayBeMissing) {
  const QByteArray content = FileOf(30);
  const auto schedule = Load(content.first(content.indexOf("27.msg") + 102));
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Count(), 30);
}

TEST_F(ScheduleFile, AFileThatEndsEarlyIsAFailedRead) {
  const QByteArray content = FileOf(3);
  // Cut at the end of each line but the last.
  for (qsizetype at = content.indexOf('\n'); at >= 0 && at < content.size() - 1;
       at = content.indexOf('\n', at + 1)) {
    EXPECT_FALSE(Load(content.first(at + 1))) << at;
  }
  EXPECT_TRUE(Load(content));
}

TEST_F(ScheduleFile, TheLastLineNeedsNoLineEnd) {
  const QByteArray content = FileOf(1);
  EXPECT_TRUE(Load(content.first(content.size() - 2)));
}

TEST_F(ScheduleFile, IsReadWithLineEndsOfLfAlone) {
  QByteArray content = FileOf(2);
  content.replace("\r\n", "\n");
  const auto schedule = Load(content);
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->hour, "**");
  EXPECT_EQ(schedule->Sequences()[1].feature, FixedField("Fall", 20));
}

TEST_F(ScheduleFile, TheKeyTextIsNotCompared) {
  const auto schedule = LoadHead("anything=3\r\n=8\r\nMin =1=2\r\n", "Zeilen =16\r\nx=96 dots\r\n");
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->weekday, 3);
  EXPECT_EQ(schedule->hour, "8");
  EXPECT_EQ(schedule->minute, "1=2");
  EXPECT_EQ(schedule->dimension, (Dimension{16, 96}));
}

TEST_F(ScheduleFile, ALineWithoutAnEqualsSignIsAllValue) {
  const auto schedule = LoadHead("3\r\n8\r\n15\r\n", "16\r\n96\r\n");
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->weekday, 3);
  EXPECT_EQ(schedule->hour, "8");
  EXPECT_EQ(schedule->dimension.rows, 16);
}

TEST_F(ScheduleFile, AHugeDelayIsClampedAndOneThatIsNoNumberIs0) {
  const auto schedule = Load(kHeader + kSlot + kSize + "No of Sequence =2\r\n" +
                             Group("a", "99999999999", "Fall") + Group("b", "soon", "Fall"));
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->Sequences()[0].delay, 32767);
  EXPECT_EQ(schedule->Sequences()[1].delay, 0);
}

TEST_F(ScheduleFile, AFileOf29BytesIsRefusedByTheHeaderReaderEvenIfItsOneLineIsTheHeader) {
  EXPECT_FALSE(IsScheduleFile(Write("*** Brivon Schedule File ***\n")));
}

TEST_F(ScheduleFile, TheHeaderReaderReturnsTheSizeWithoutReadingTheSequences) {
  EXPECT_EQ(IsScheduleFile(Write(kHeader + kSlot + kSize)), (Dimension{16, 96}));
}

}  // namespace
