// The schedule file with any schedule and any bytes.
#include <random>

#include <gtest/gtest.h>

#include "schedule/schedule_file.h"
#include "schedule/schedule_file_fixture.h"

namespace {

using Brivon1::FixedField;
using Brivon1::LoadScheduleFile;
using Brivon1::SaveScheduleFile;
using Brivon1::Schedule;
using Brivon1::ScheduleSaveResult;
using Brivon1::Sequence;

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
