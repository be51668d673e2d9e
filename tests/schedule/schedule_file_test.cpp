#include "schedule/schedule_file.h"

#include <random>
#include <tuple>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "base/files.h"
#include "support/full_disk.h"
#include "support/use_code_page.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::Dimension;
using Brivon1::FixedField;
using Brivon1::IsScheduleFile;
using Brivon1::LoadScheduleFile;
using Brivon1::MessageFileRefusal;
using Brivon1::PathField;
using Brivon1::SaveFailureText;
using Brivon1::SaveScheduleFile;
using Brivon1::Schedule;
using Brivon1::ScheduleSaveResult;
using Brivon1::Sequence;

const QByteArray kHeader = "*** Brivon Schedule File ***\r\n";
const QByteArray kSlot = "Week =0\r\nHour =**\r\nMin =**\r\n";
const QByteArray kSize = "Row =16\r\nCol =96\r\n";

/// `text` and as many blanks as make it `size` characters long, and a line end.
QByteArray Field(QByteArray text, qsizetype size) {
  while (text.size() < size) text += ' ';
  return text + "\r\n";
}

QByteArray Group(const QByteArray& path, const QByteArray& delay, const QByteArray& feature) {
  return Field(path, 100) + delay + "\r\n" + Field(feature, 20);
}

/// A file of `count` sequences; sequence i names the file "i.msg" and lasts i seconds.
QByteArray FileOf(int count) {
  QByteArray content =
      kHeader + kSlot + kSize + "No of Sequence =" + QByteArray::number(count) + "\r\n";
  for (int i = 1; i <= count; ++i) {
    content += Group(QByteArray::number(i) + ".msg", QByteArray::number(i), "Fall");
  }
  return content;
}

class ScheduleFile : public testing::Test {
 protected:
  QString Path(const QString& name = u"week.sch"_s) { return folder_.filePath(name); }

  QString Write(const QByteArray& content, const QString& name = u"week.sch"_s) {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return Path(name);
  }

  QByteArray Read() {
    QFile file(Path());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  std::optional<Schedule> Load(const QByteArray& content) {
    return LoadScheduleFile(Write(content));
  }

  /// Loads a file of one sequence whose lines above it are `slot` and `size`.
  std::optional<Schedule> LoadHead(const QByteArray& slot, const QByteArray& size) {
    return Load(kHeader + slot + size + "No of Sequence =1\r\n" + Group("a.msg", "5", "Flip"));
  }

  QTemporaryDir folder_;
};

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

// ---- hour and minute ----------------------------------------------------------------------------

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

// ---- saving -------------------------------------------------------------------------------------

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

// ---- paths --------------------------------------------------------------------------------------

TEST(PathFieldTest, APathOf100CharactersIsTakenAndALongerOneRefused) {
  EXPECT_EQ(PathField(QString(100, QLatin1Char('x'))), QByteArray(100, 'x'));
  EXPECT_FALSE(PathField(QString(101, QLatin1Char('x'))));
}

TEST(PathFieldTest, ALetterIsComposedOrTakenApartAsTheCodePageHasIt) {
  const UseCodePage western(1252);
  EXPECT_EQ(PathField(u"/a/Cafe\u0301.msg"_s), FixedField("/a/Caf\xE9.msg", 100));
  EXPECT_FALSE(PathField(u"/a/Việt.msg"_s));
  const UseCodePage vietnamese(1258);
  EXPECT_EQ(PathField(u"/a/Việt.msg"_s), FixedField("/a/Vi\xEA\xF2t.msg", 100));
  EXPECT_FALSE(PathField(QString(99, u'x') + u"ệ"_s)) << "two bytes";
}

TEST(PathFieldTest, ACharacterIsOneByteOfTheCodePage) {
  const UseCodePage western(1252);
  EXPECT_EQ(PathField(u"/a/Straße.msg"_s),
            "/a/Stra\xDF"
            "e.msg" +
                QByteArray(87, ' '));
  EXPECT_FALSE(PathField(u"/a/道路.msg"_s));
}

TEST(PathFieldTest, APathThatWouldNotComeBackTheSameIsRefused) {
  EXPECT_FALSE(PathField(u"/a/b.msg "_s));
  EXPECT_FALSE(PathField(u" a.msg"_s));
  EXPECT_FALSE(PathField(u"/a/b\n5.msg"_s));
  EXPECT_FALSE(PathField(u"/a/b\r5.msg"_s));
}

TEST(PathFieldTest, AFieldGivesThePathBack) {
  const UseCodePage western(1252);
  EXPECT_EQ(Brivon1::FieldPath("/a/Stra\xDF"
                               "e.msg" +
                               QByteArray(87, ' ')),
            u"/a/Straße.msg"_s);
  EXPECT_EQ(Brivon1::FieldPath(QByteArray(100, ' ')), QString());
}

TEST_F(ScheduleFile, AMessageFileOfTheSameSizeMayEnterTheSchedule) {
  const QString path =
      Write("*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n", u"page.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), QString());
}

TEST_F(ScheduleFile, AFileWhoseNameIsDecomposedMayEnterTheScheduleAndIsFoundAgain) {
  const UseCodePage western(1252);
  const QByteArray page = "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n";
  const QString path = Write(page, u"Cafe\u0301.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), QString());
  const auto field = PathField(path);
  ASSERT_TRUE(field);
  EXPECT_EQ(Brivon1::FindFile(Brivon1::FieldPath(*field)), path);
  // Beside another one whose name the field has, it would be mistaken for that.
  Write(page, u"Caf\u00E9.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), u"Invalid path!"_s);
  EXPECT_EQ(MessageFileRefusal(Path(u"Caf\u00E9.msg"_s), {2, 96}), QString());
}

TEST_F(ScheduleFile, AnotherFileMayNotEnterTheSchedule) {
  EXPECT_EQ(MessageFileRefusal(Write(FileOf(1)), {16, 96}), u"Not Message File Format!"_s);
  EXPECT_EQ(MessageFileRefusal(Path(u"nowhere"_s), {16, 96}), u"Not Message File Format!"_s);
}

TEST_F(ScheduleFile, AMessageFileOfAnotherDimensionIsRefusedEvenIfItIsOtherwiseValid) {
  const QString path =
      Write("*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n", u"page.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 128}), u"Dimension not matched!"_s);
  EXPECT_EQ(MessageFileRefusal(path, {4, 96}), u"Dimension not matched!"_s);
}

TEST_F(ScheduleFile, APathLongerThanIts100CharacterFieldIsRefusedWhenItIsChosen) {
  const QString path = Write("*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n",
                             QString(100, QLatin1Char('x')));
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), u"Invalid path!"_s);
  EXPECT_EQ(MessageFileRefusal(path, {4, 96}), u"Dimension not matched!"_s);
}

// ---- anything at all ----------------------------------------------------------------------------

Schedule RandomSchedule(std::mt19937& random) {
  const auto below = [&](int bound) { return static_cast<int>(random() % unsigned(bound)); };
  const auto random_text = [&](int longest) {
    QByteArray text;
    for (int i = below(longest + 1); i > 0; --i) {
      const auto byte = static_cast<char>(below(256));
      text += byte == '\r' || byte == '\n' ? '.' : byte;
    }
    return text;
  };
  Schedule schedule;
  schedule.weekday = below(8);
  schedule.hour = below(2) == 0 ? "**" : QByteArray::number(below(24));
  schedule.minute = below(2) == 0 ? "**" : QByteArray::number(below(60));
  schedule.dimension = {static_cast<qint16>(1 + below(12)), static_cast<qint16>(1 + below(3000))};
  QList<QByteArray> paths;
  for (int i = 0; i < 26; ++i) paths.append(FixedField(random_text(120), 100));
  for (int i = 1 + below(32); i > 0; --i) {
    const QByteArray path = paths[below(26)];
    schedule.OfferFile(path);
    schedule.Append({path, static_cast<qint16>(below(100)), FixedField(random_text(25), 20)});
  }
  return schedule;
}

TEST_F(ScheduleFile, RandomSchedulesAreReadBackAsTheyWereWritten) {
  std::mt19937 random(11);
  for (int round = 0; round < 300; ++round) {
    const Schedule written = RandomSchedule(random);
    ASSERT_EQ(SaveScheduleFile(Path(), written), ScheduleSaveResult::kSaved);
    const auto read = LoadScheduleFile(Path());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->weekday, written.weekday);
    EXPECT_EQ(read->hour, written.hour);
    EXPECT_EQ(read->minute, written.minute);
    EXPECT_EQ(read->dimension, written.dimension);
    EXPECT_EQ(read->Sequences(), written.Sequences());
    EXPECT_EQ(read->Files().Count(), written.Files().Count());
  }
}

TEST_F(ScheduleFile, AFileWithAByteChangedIsReadOrRefusedAndStaysWithinItsBounds) {
  std::mt19937 random(12);
  const QByteArray whole = FileOf(12);
  int read = 0;
  int refused = 0;
  for (int round = 0; round < 2000; ++round) {
    QByteArray content = whole;
    for (auto i = 1 + random() % 3; i > 0; --i) {
      const auto at = static_cast<qsizetype>(random() % 160);
      content[at] = static_cast<char>(random() % 256);
    }
    const auto schedule = Load(content);
    if (!schedule) {
      ++refused;
      continue;
    }
    ++read;
    EXPECT_GE(schedule->Count(), 1);
    EXPECT_LE(schedule->Count(), 32);
    EXPECT_LE(schedule->Files().Count(), 26);
    EXPECT_NE(schedule->dimension.rows, 0);
    EXPECT_NE(schedule->dimension.columns, 0);
    for (const Sequence& sequence : schedule->Sequences()) {
      EXPECT_EQ(sequence.path.size(), 100);
      EXPECT_EQ(sequence.feature.size(), 20);
    }
  }
  EXPECT_GT(read, 100);
  EXPECT_GT(refused, 100);
}

TEST_F(ScheduleFile, RandomBytesAreRefused) {
  std::mt19937 random(13);
  for (int round = 0; round < 300; ++round) {
    QByteArray content = round % 2 == 0 ? kHeader : QByteArray();
    for (auto i = random() % 4000; i > 0; --i) content += static_cast<char>(random() % 256);
    EXPECT_FALSE(Load(content)) << round;
  }
}

TEST_F(ScheduleFile, AnEndlessLineIsRefused) {
  EXPECT_FALSE(Load(kHeader + "Week =" + QByteArray(50'000'000, '1')));
  EXPECT_FALSE(Load(QByteArray(50'000'000, '\0')));
}

}  // namespace
