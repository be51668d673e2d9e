#include "schedule/schedule.h"

#include <gtest/gtest.h>

namespace {

using Brivon1::DistinctFiles;
using Brivon1::FixedField;
using Brivon1::Schedule;
using Brivon1::Sequence;

Sequence Step(const QByteArray& path, qint16 delay = 1) {
  return {FixedField(path, 100), delay, FixedField("Appear", 20)};
}

/// The paths of a schedule in order, without their blanks.
QByteArray Paths(const Schedule& schedule) {
  QByteArray paths;
  for (const Sequence& sequence : schedule.Sequences()) paths += sequence.path.trimmed() + ' ';
  return paths;
}

Schedule ScheduleOf(const QList<QByteArray>& paths) {
  Schedule schedule;
  for (const QByteArray& path : paths) {
    schedule.OfferFile(FixedField(path, 100));
    schedule.Append(Step(path));
  }
  return schedule;
}

TEST(FixedField, IsFilledUpWithBlanks) { EXPECT_EQ(FixedField("ab", 5), "ab   "); }

TEST(FixedField, IsCut) { EXPECT_EQ(FixedField("abcdef", 5), "abcde"); }

TEST(FixedField, OfNothingIsBlank) { EXPECT_EQ(FixedField({}, 3), "   "); }

TEST(DistinctFiles, AFileThatIsListedIsTakenInAgainWithoutAnotherEntry) {
  DistinctFiles files;
  EXPECT_TRUE(files.Offer(FixedField("a.msg", 100)));
  EXPECT_TRUE(files.Offer(FixedField("a.msg", 100)));
  EXPECT_EQ(files.Count(), 1);
}

TEST(DistinctFiles, FilesAreComparedWithRegardToCase) {
  DistinctFiles files;
  EXPECT_TRUE(files.Offer(FixedField("a.msg", 100)));
  EXPECT_TRUE(files.Offer(FixedField("A.msg", 100)));
  EXPECT_EQ(files.Count(), 2);
}

TEST(DistinctFiles, A27thDifferentFileIsRefusedAndAListedOneIsNot) {
  DistinctFiles files;
  for (int i = 0; i < 26; ++i) {
    EXPECT_TRUE(files.Offer(FixedField(QByteArray::number(i), 100)));
  }
  EXPECT_FALSE(files.Offer(FixedField("26", 100)));
  EXPECT_TRUE(files.Offer(FixedField("25", 100)));
  EXPECT_EQ(files.Count(), 26);
}

TEST(Schedule, BeginsEveryDayAtEveryHourAndMinuteWithoutASequence) {
  const Schedule schedule;
  EXPECT_EQ(schedule.weekday, 0);
  EXPECT_EQ(schedule.hour, "**");
  EXPECT_EQ(schedule.minute, "**");
  EXPECT_EQ(schedule.Count(), 0);
  EXPECT_EQ(schedule.Files().Count(), 0);
}

TEST(Schedule, IsFullWith12SequencesOrMore) {
  Schedule schedule;
  for (int i = 0; i < 11; ++i) schedule.Append(Step("a"));
  EXPECT_FALSE(schedule.IsFull());
  schedule.Append(Step("a"));
  EXPECT_TRUE(schedule.IsFull());
  schedule.Append(Step("a"));
  EXPECT_TRUE(schedule.IsFull());
}

TEST(Schedule, NeverHoldsMoreThan32Sequences) {
  Schedule schedule;
  for (int i = 0; i < 40; ++i) schedule.Append(Step("a"));
  EXPECT_EQ(schedule.Count(), 32);
}

TEST(Schedule, InsertMovesTheLaterSlotsDown) {
  Schedule schedule = ScheduleOf({"a", "b", "c"});
  schedule.Insert(2, Step("x"));
  EXPECT_EQ(Paths(schedule), "a x b c ");
  schedule.Insert(1, Step("y"));
  EXPECT_EQ(Paths(schedule), "y a x b c ");
}

TEST(Schedule, InsertWithoutASelectedSequenceRowAppends) {
  Schedule schedule = ScheduleOf({"a", "b"});
  schedule.Insert(0, Step("x"));
  schedule.Insert(4, Step("y"));
  schedule.Insert(-1, Step("z"));
  EXPECT_EQ(Paths(schedule), "a b x y z ");
}

TEST(Schedule, RemoveMovesTheLaterSlotsUpAndForgetsTheFile) {
  Schedule schedule = ScheduleOf({"a", "b", "a"});
  schedule.Remove(2);
  EXPECT_EQ(Paths(schedule), "a a ");
  EXPECT_EQ(schedule.Files().Count(), 1);
}

TEST(Schedule, RowsOutsideTheSequencesAreNotRemoved) {
  Schedule schedule = ScheduleOf({"a", "b"});
  for (const int position : {-1, 0, 3}) schedule.Remove(position);
  EXPECT_EQ(Paths(schedule), "a b ");
}

TEST(Schedule, AFileOfferedWithoutASequenceIsForgottenWhenAnotherSequenceIsRemoved) {
  Schedule schedule = ScheduleOf({"a", "b"});
  EXPECT_TRUE(schedule.OfferFile(FixedField("offered only", 100)));
  EXPECT_EQ(schedule.Files().Count(), 3);
  schedule.Remove(1);
  EXPECT_EQ(schedule.Files().Count(), 1);
}

TEST(Schedule, AnotherFileForASlotRebuildsTheDistinctList) {
  Schedule schedule = ScheduleOf({"a", "b"});
  schedule.Replace(1, Step("b", 7));
  EXPECT_EQ(Paths(schedule), "b b ");
  EXPECT_EQ(schedule.Sequences()[0].delay, 7);
  EXPECT_EQ(schedule.Files().Count(), 1);
  schedule.Replace(3, Step("x"));
  schedule.Replace(0, Step("x"));
  EXPECT_EQ(Paths(schedule), "b b ");
}

TEST(Schedule, AnotherDelayOrFeatureForASlotLeavesTheDistinctListAsItIs) {
  Schedule schedule = ScheduleOf({"a"});
  EXPECT_TRUE(schedule.OfferFile(FixedField("offered only", 100)));
  schedule.Replace(1, Step("a", 7));
  EXPECT_EQ(schedule.Sequences()[0].delay, 7);
  EXPECT_EQ(schedule.Files().Count(), 2);
}

TEST(Schedule, ClearTakesOutSequencesAndFilesAndLeavesTheTime) {
  Schedule schedule = ScheduleOf({"a", "b"});
  schedule.weekday = 3;
  schedule.hour = "8";
  schedule.dimension = {16, 96};
  schedule.Clear();
  EXPECT_EQ(schedule.Count(), 0);
  EXPECT_EQ(schedule.Files().Count(), 0);
  EXPECT_EQ(schedule.weekday, 3);
  EXPECT_EQ(schedule.hour, "8");
  EXPECT_EQ(schedule.dimension, (Brivon1::Dimension{16, 96}));
}

}  // namespace
