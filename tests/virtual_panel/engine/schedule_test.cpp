#include "engine/schedule.h"

#include <random>

#include <QDateTime>
#include <QTimeZone>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

Schedule Due(std::optional<int> weekday, std::optional<int> hour, std::optional<int> minute) {
  return {weekday, hour, minute, {{1, 1, 'A'}}};
}

// A minute of the week from Sunday 00:00.
qint64 Minute(int weekday, int hour, int minute) { return (weekday * 24 + hour) * 60 + minute; }

TEST(EffectName, NamesTheEightEffects) {
  QStringList names;
  for (char feature = 'A'; feature <= 'H'; ++feature) names.append(EffectName(feature));
  EXPECT_EQ(names, (QStringList{u"Appear"_s, u"Flip"_s, u"Open"_s, u"Wipe Right"_s, u"Wipe Left"_s,
                                u"Fall"_s, u"Slide"_s, u"Shift"_s}));
  for (const char other : {'@', 'I', 'a', '\0', '\xFF'}) EXPECT_TRUE(EffectName(other).isEmpty());
}

TEST(ScheduleTime, IsWrittenForAReader) {
  EXPECT_EQ(ScheduleTime(Due(1, 8, 30)), u"Mon 08:30"_s);
  EXPECT_EQ(ScheduleTime(Due(0, 23, {})), u"Sun 23:**"_s);
  EXPECT_EQ(ScheduleTime(Due({}, {}, 5)), u"daily **:05"_s);
  EXPECT_EQ(WeekdayCode(Due(6, 8, {})), u"6"_s);
  EXPECT_EQ(WeekdayCode(Due({}, 8, {})), u"*"_s);
  EXPECT_EQ(HourCode(Due({}, 8, {})), u"08"_s);
  EXPECT_EQ(MinuteCode(Due({}, 8, {})), u"**"_s);
}

TEST(OwnerOf, MatchesWeekdayHourAndMinute) {
  const Schedules one{{'C', Due(1, 8, 30)}};
  EXPECT_EQ(OwnerOf(one, Minute(1, 8, 30)), 'C');
  EXPECT_EQ(OwnerOf(one, Minute(1, 8, 29)), std::nullopt);
  EXPECT_EQ(OwnerOf(one, Minute(1, 8, 31)), std::nullopt);
  EXPECT_EQ(OwnerOf(one, Minute(1, 9, 30)), std::nullopt);
  EXPECT_EQ(OwnerOf(one, Minute(2, 8, 30)), std::nullopt);
  const Schedules always{{'D', Due({}, {}, {})}};
  EXPECT_EQ(OwnerOf(always, 0), 'D');
  EXPECT_EQ(OwnerOf(always, kMinutesOfWeek - 1), 'D');
  EXPECT_EQ(OwnerOf({}, 0), std::nullopt);
}

TEST(OwnerOf, PrefersTheOneThatNamesMoreThenWeekdayThenHourThenTheLowestLetter) {
  Schedules schedules{{'A', Due({}, {}, {})}};
  const auto owner = [&] { return OwnerOf(schedules, Minute(1, 8, 30)); };
  schedules.insert('B', Due({}, {}, 30));
  EXPECT_EQ(owner(), 'B');
  schedules.insert('C', Due({}, 8, {}));
  EXPECT_EQ(owner(), 'C');
  schedules.insert('D', Due(1, {}, {}));
  EXPECT_EQ(owner(), 'D');
  schedules.insert('E', Due({}, 8, 30));
  EXPECT_EQ(owner(), 'E');
  schedules.insert('F', Due(1, {}, 30));
  EXPECT_EQ(owner(), 'F');
  schedules.insert('G', Due(1, 8, {}));
  EXPECT_EQ(owner(), 'G');
  schedules.insert('I', Due(1, 8, 30));
  EXPECT_EQ(owner(), 'I');
  schedules.insert('J', Due(1, 8, 30));
  EXPECT_EQ(owner(), 'I');
  schedules.insert('H', Due(1, 8, 30));
  EXPECT_EQ(owner(), 'H');
}

TEST(MinuteOfWeek, CountsFromSundayMidnight) {
  const auto minute = [](const QDate& date, const QTime& time) {
    return MinuteOfWeek(QDateTime(date, time, QTimeZone::utc()).toMSecsSinceEpoch());
  };
  EXPECT_EQ(minute({2026, 11, 22}, {0, 0}), 0);
  EXPECT_EQ(minute({2026, 11, 22}, {0, 0, 59, 999}), 0);
  EXPECT_EQ(minute({2026, 11, 21}, {23, 59, 59, 999}), kMinutesOfWeek - 1);
  EXPECT_EQ(minute({2026, 11, 23}, {8, 30}), Minute(1, 8, 30));
  EXPECT_EQ(minute({1970, 1, 1}, {0, 0}), Minute(4, 0, 0));
  EXPECT_EQ(minute({1969, 12, 31}, {23, 59, 30}), Minute(3, 23, 59));
}

TEST(EntryAt, GoesRoundAndRound) {
  const Schedule schedule{{}, {}, {}, {{1, 5, 'A'}, {2, 0, 'B'}, {3, 2, 'C'}}};
  struct Case {
    qint64 elapsed;
    qsizetype index;
    qint64 left;
  };
  // The entry of no seconds is shown for one.
  for (const Case& c : {Case{0, 0, 5000}, Case{4999, 0, 1}, Case{5000, 1, 1000}, Case{5999, 1, 1},
                        Case{6000, 2, 2000}, Case{7999, 2, 1}, Case{8000, 0, 5000},
                        Case{8 * 100'000 + 5500, 1, 500}, Case{-1, 2, 1}, Case{-8000, 0, 5000}}) {
    const EntryAtTime entry = EntryAt(schedule, c.elapsed);
    EXPECT_EQ(entry.index, c.index) << c.elapsed;
    EXPECT_EQ(entry.left_ms, c.left) << c.elapsed;
  }
}

TEST(WeekPlan, AgreesWithTheMinutesOneByOne) {
  std::mt19937 random(7);
  const auto field = [&](int most) -> std::optional<int> {
    const int value = std::uniform_int_distribution<int>(-most, most)(random);
    return value < 0 ? std::nullopt : std::optional<int>(value);
  };
  constexpr qint64 kSunday = qint64{3} * 24 * 60 * kMinuteMs;  // 4 January 1970
  for (int round = 0; round < 20; ++round) {
    Schedules schedules;
    for (char letter = 'A'; letter <= 'J'; ++letter) {
      if (random() % 2 == 0) schedules.insert(letter, Due(field(6), field(23), field(59)));
    }
    const WeekPlan plan(schedules);
    std::optional<SlotBeginning> last;
    // Two weeks, so that the beginnings of the first are known in the second.
    for (qint64 minute = 0; minute < 2 * kMinutesOfWeek; ++minute) {
      const auto before = OwnerOf(schedules, (minute + kMinutesOfWeek - 1) % kMinutesOfWeek);
      const auto owner = OwnerOf(schedules, minute % kMinutesOfWeek);
      const qint64 clock_ms = kSunday + minute * kMinuteMs;
      if (owner && owner != before) {
        last = SlotBeginning{*owner, clock_ms};
        ASSERT_EQ(plan.NextBeginning(clock_ms - 1), last);
      }
      if (minute < kMinutesOfWeek) continue;
      ASSERT_EQ(plan.LastBeginning(clock_ms), last);
      ASSERT_EQ(plan.LastBeginning(clock_ms + kMinuteMs - 1), last);
    }
  }
}

}  // namespace
}  // namespace VirtualPanel
