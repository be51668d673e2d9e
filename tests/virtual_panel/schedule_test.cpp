// Schedules and scrolling texts in the engine, with a clock that is driven by hand.

#include "schedule.h"

#include <random>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTimeZone>

#include <gtest/gtest.h>

#include "engine_json.h"
#include "panel_engine.h"

namespace VirtualPanel {

void PrintTo(const Playing& playing, std::ostream* stream) {
  *stream << playing.letter << ", entry " << playing.entry << " of " << playing.entries << ", page "
          << playing.page << ", " << playing.feature;
}

namespace {

constexpr qint64 kSecond = 1000;

QByteArray At(const QDateTime& time) {
  return time.toString(QStringLiteral("ddd HH:mm:ss.zzz")).toLatin1();
}

Schedule Due(std::optional<int> weekday, std::optional<int> hour, std::optional<int> minute) {
  return {weekday, hour, minute, {{1, 1, 'A'}}};
}

// A minute of the week from Sunday 00:00.
qint64 Minute(int weekday, int hour, int minute) { return (weekday * 24 + hour) * 60 + minute; }

TEST(EffectName, NamesTheEightEffects) {
  QStringList names;
  for (char feature = 'A'; feature <= 'H'; ++feature) names.append(EffectName(feature));
  EXPECT_EQ(names, (QStringList{QStringLiteral("Appear"), QStringLiteral("Flip"),
                                QStringLiteral("Open"), QStringLiteral("Wipe Right"),
                                QStringLiteral("Wipe Left"), QStringLiteral("Fall"),
                                QStringLiteral("Slide"), QStringLiteral("Shift")}));
  for (const char other : {'@', 'I', 'a', '\0', '\xFF'}) EXPECT_TRUE(EffectName(other).isEmpty());
}

TEST(ScheduleTime, IsWrittenForAReader) {
  EXPECT_EQ(ScheduleTime(Due(1, 8, 30)), QStringLiteral("Mon 08:30"));
  EXPECT_EQ(ScheduleTime(Due(0, 23, {})), QStringLiteral("Sun 23:**"));
  EXPECT_EQ(ScheduleTime(Due({}, {}, 5)), QStringLiteral("daily **:05"));
  EXPECT_EQ(WeekdayCode(Due(6, 8, {})), QStringLiteral("6"));
  EXPECT_EQ(WeekdayCode(Due({}, 8, {})), QStringLiteral("*"));
  EXPECT_EQ(HourCode(Due({}, 8, {})), QStringLiteral("08"));
  EXPECT_EQ(MinuteCode(Due({}, 8, {})), QStringLiteral("**"));
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

class ScheduleTest : public testing::Test {
 protected:
  // Sends frames to the first panel, and expects that it acknowledges every one.
  void Send(std::initializer_list<const char*> bodies) {
    for (const char* body : bodies) {
      const QList<Answer> answers = engine_.Receive(QByteArray("<ID1A>") + body + "\r\n");
      ASSERT_EQ(answers.size(), 1) << body;
      EXPECT_EQ(answers.first().bytes, "<ID1A>\r\n") << body;
    }
  }

  QString LastDescription() { return engine_.Frames().last().description; }

  std::optional<Playing> Now(int id = 26) { return engine_.PlayingAt(id, now_); }

  // The letter that plays, or "-".
  QByteArray Letter(int id = 26) {
    const auto playing = Now(id);
    return playing ? QByteArray(1, playing->letter) : QByteArray("-");
  }

  // When the panel next changes by itself, by its own clock.
  QByteArray Next() {
    const auto next = engine_.NextChange(26, now_);
    return next ? At(engine_.Clock(26, *next)) : QByteArray("never");
  }

  void GoTo(const QDate& date, const QTime& time) {
    now_ = QDateTime(date, time, QTimeZone::utc());
  }
  void GoTo(const QTime& time) { GoTo(now_.date(), time); }
  void Wait(qint64 ms) { now_ = now_.addMSecs(ms); }

  QDateTime now_{QDate(2026, 11, 21), QTime(8, 0), QTimeZone::utc()};  // a Saturday
  PanelEngine engine_{{{26, 4, 96, true}, {3, 2, 48, false}}, [this] { return now_; }};
};

TEST_F(ScheduleTest, KeepsTenSchedulesByLetter) {
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    const QByteArray frame = QByteArray("<T") + letter + ">6123000105A";
    Send({frame.constData()});
  }
  const Schedules& schedules = engine_.FindPanel(26)->schedules;
  EXPECT_EQ(schedules.keys(), (QList<char>{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 'J'}));
  Send({"<TB>**1**00203D,00304E"});
  EXPECT_EQ(schedules.size(), 10);
  EXPECT_EQ(LastDescription(), QStringLiteral("not understood"));
  Send({"<TB>*17**00203D,00304E"});
  EXPECT_EQ(LastDescription(), QStringLiteral("schedule B, daily 17:**, 2 entries"));
  EXPECT_EQ(schedules.size(), 10);
  EXPECT_EQ(schedules.value('B'), (Schedule{{}, 17, {}, {{2, 3, 'D'}, {3, 4, 'E'}}}));
  EXPECT_EQ(schedules.value('A'), (Schedule{6, 12, 30, {{1, 5, 'A'}}}));
  EXPECT_TRUE(engine_.FindPanel(3)->schedules.isEmpty());
}

TEST_F(ScheduleTest, BeginsAtItsTimeAndPlaysPageByPage) {
  Send({"<L01><P001>one ", "<L01><P002>two ", "<TA>*083000105A,00210D,00303H"});
  EXPECT_EQ(Now(), std::nullopt);
  EXPECT_EQ(engine_.ShownPage(26), 2);
  EXPECT_EQ(Next(), "Sat 08:30:00.000");
  GoTo({8, 29, 59, 999});
  EXPECT_EQ(Now(), std::nullopt);

  GoTo({8, 30});
  EXPECT_EQ(Now(), (Playing{'A', 1, 3, 1, 'A'}));
  EXPECT_EQ(engine_.ShownPage(26), 1);
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "one ");
  EXPECT_EQ(Next(), "Sat 08:30:05.000");
  Wait(4999);
  EXPECT_EQ(Now(), (Playing{'A', 1, 3, 1, 'A'}));
  EXPECT_EQ(Next(), "Sat 08:30:05.000");
  Wait(1);
  EXPECT_EQ(Now(), (Playing{'A', 2, 3, 2, 'D'}));
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "two ");
  EXPECT_EQ(Next(), "Sat 08:30:15.000");
  // A page that is not stored is dark for its time.
  GoTo({8, 30, 15});
  EXPECT_EQ(Now(), (Playing{'A', 3, 3, 3, 'H'}));
  EXPECT_EQ(engine_.ShownPage(26), 3);
  EXPECT_TRUE(engine_.ShownRows(26).isEmpty());
  EXPECT_EQ(Next(), "Sat 08:30:18.000");
  // And from the beginning, also beyond its minute.
  GoTo({8, 30, 18});
  EXPECT_EQ(Now(), (Playing{'A', 1, 3, 1, 'A'}));
  GoTo({11, 0, 6});  // 499 rounds of 18 s and 24 s more
  EXPECT_EQ(Now(), (Playing{'A', 2, 3, 2, 'D'}));
}

TEST_F(ScheduleTest, BeginsAnewWhenItsTimeComesAgain) {
  Send({"<TA>*083000107A,00206B"});
  GoTo({2026, 11, 22}, {8, 29, 57});  // 6645 rounds of 13 s and 12 s more
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'B'}));
  EXPECT_EQ(Next(), "Sun 08:29:58.000");
  GoTo({2026, 11, 22}, {8, 29, 59});
  EXPECT_EQ(Next(), "Sun 08:30:00.000");
  GoTo({2026, 11, 22}, {8, 30, 6});  // would be the second page, 8 s into the old round
  EXPECT_EQ(Now(), (Playing{'A', 1, 2, 1, 'A'}));
  GoTo({2026, 11, 22}, {8, 30, 7});
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'B'}));
}

TEST_F(ScheduleTest, WithEveryMinuteDoesNotBeginAnewEveryMinute) {
  Send({"<TA>*08**00150A,00250B"});
  EXPECT_EQ(LastDescription(), QStringLiteral("schedule A, daily 08:**, 2 entries: begins"));
  EXPECT_EQ(Now(), (Playing{'A', 1, 2, 1, 'A'}));
  GoTo({8, 1, 5});
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'B'}));
  GoTo({8, 59, 59});  // 35 rounds of 100 s and 99 s more
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'B'}));
  // Its hour is over; nothing else has come.
  GoTo({9, 0, 30});
  EXPECT_EQ(Now(), (Playing{'A', 1, 2, 1, 'A'}));
}

TEST_F(ScheduleTest, BeginsAtOnceWhenItArrivesInItsMinute) {
  GoTo({8, 30, 20});
  Send({"<RP007>", "<TA>*083000105A,00210D"});
  EXPECT_EQ(Now(), (Playing{'A', 1, 2, 1, 'A'}));
  EXPECT_EQ(engine_.RunningPage(26), std::nullopt);
  EXPECT_EQ(Next(), "Sat 08:30:25.000");
}

TEST_F(ScheduleTest, DoesNotBeginWhenItArrivesAfterItsMinute) {
  GoTo({8, 31});
  Send({"<L01><P007>x ", "<TA>*083000105A,00210D"});
  EXPECT_EQ(Now(), std::nullopt);
  EXPECT_EQ(engine_.ShownPage(26), 7);
  EXPECT_EQ(Next(), "Sun 08:30:00.000");
  GoTo({2026, 11, 22}, {8, 30});
  EXPECT_EQ(Letter(), "A");
}

TEST_F(ScheduleTest, PlaysUntilAnotherBegins) {
  Send({"<TA>*08**00105A", "<TB>*09**00205B"});
  EXPECT_EQ(Letter(), "A");
  EXPECT_EQ(Next(), "Sat 09:00:00.000");  // its one page follows itself
  GoTo({9, 0});
  EXPECT_EQ(Letter(), "B");
  GoTo({23, 59, 59});
  EXPECT_EQ(Letter(), "B");
  EXPECT_EQ(Next(), "Sun 08:00:00.000");
}

TEST_F(ScheduleTest, GivesAMinuteToTheMostSpecificSchedule) {
  Send({"<TA>*****00105A,00205A", "<TB>*083000305B", "<TC>6083000405C"});
  EXPECT_EQ(Letter(), "A");
  GoTo({8, 30});
  EXPECT_EQ(Letter(), "C");  // on Saturday
  GoTo({8, 31, 7});
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'A'}));  // the rest is A's, from its first page
  GoTo({2026, 11, 22}, {8, 30, 30});
  EXPECT_EQ(Letter(), "B");  // on any other day
  GoTo({2026, 11, 22}, {8, 31});
  EXPECT_EQ(Letter(), "A");
}

TEST_F(ScheduleTest, CrossesMidnightAndTheWeek) {
  Send({"<TA>6235900105A", "<TB>0000000205B", "<TC>1****00305C,00405C"});
  GoTo({23, 58, 59});
  EXPECT_EQ(Letter(), "-");
  GoTo({23, 59});
  EXPECT_EQ(Letter(), "A");
  EXPECT_EQ(Next(), "Sun 00:00:00.000");
  GoTo({2026, 11, 22}, {0, 0});
  EXPECT_EQ(Letter(), "B");
  EXPECT_EQ(Next(), "Mon 00:00:00.000");
  GoTo({2026, 11, 22}, {23, 59, 59});
  EXPECT_EQ(Letter(), "B");
  GoTo({2026, 11, 23}, {0, 0, 5});
  EXPECT_EQ(Now(), (Playing{'C', 2, 2, 4, 'C'}));
  GoTo({2026, 11, 24}, {12, 0});
  EXPECT_EQ(Letter(), "C");
  // Weeks without a frame.
  GoTo({2027, 1, 16}, {23, 59, 30});
  EXPECT_EQ(Letter(), "A");
  GoTo({2027, 1, 17}, {12, 0});
  EXPECT_EQ(Letter(), "B");
}

TEST_F(ScheduleTest, ARunPageHoldsUntilTheNextSlotBegins) {
  Send({"<L01><P009>nine ", "<TA>*08**00105A", "<TB>*100000205B"});
  EXPECT_EQ(Letter(), "A");
  Wait(10 * kSecond);
  Send({"<RP009>"});
  EXPECT_EQ(Letter(), "-");
  EXPECT_EQ(engine_.RunningPage(26), 9);
  EXPECT_EQ(engine_.ShownPage(26), 9);
  GoTo({8, 30});
  EXPECT_EQ(Letter(), "-");  // the slot of A has begun already
  GoTo({10, 0});
  EXPECT_EQ(Letter(), "B");
  EXPECT_EQ(engine_.RunningPage(26), std::nullopt);
  EXPECT_EQ(engine_.ShownPage(26), 2);
  GoTo({10, 5});
  Send({"<RP009>"});
  EXPECT_EQ(engine_.ShownPage(26), 9);
  GoTo({2026, 11, 22}, {8, 0});
  EXPECT_EQ(Letter(), "A");
}

TEST_F(ScheduleTest, GoesOnWhileRowsArrive) {
  Send({"<TA>*****00105A,00205B"});
  Wait(6 * kSecond);
  Send({"<L01><P002>two ", "<L01><P050>new ", "<?>", "<D050>", "nonsense"});
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'B'}));
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "two ");
  Send({"<D002>"});
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'B'}));
  EXPECT_TRUE(engine_.ShownRows(26).isEmpty());
}

TEST_F(ScheduleTest, ReplacedWhilePlayingBeginsWithWhatIsNew) {
  Send({"<TA>*080000105A,00205B"});
  GoTo({9, 0, 3});
  Send({"<TA>*080000704C,00804D"});  // not due any more, but the one that plays
  EXPECT_EQ(Now(), (Playing{'A', 1, 2, 7, 'C'}));
  Wait(4 * kSecond);
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 8, 'D'}));
  // Another one that is not due changes nothing.
  Send({"<TB>*080000904C"});
  EXPECT_EQ(Letter(), "A");
}

TEST_F(ScheduleTest, ReplacedByOneForAnotherTimeLeavesItsMinuteToTheNext) {
  Send({"<TA>*08**00105A", "<TB>*****00205B"});
  EXPECT_EQ(Letter(), "A");
  Send({"<TA>*20**00105A"});
  EXPECT_EQ(Letter(), "B");
  EXPECT_EQ(LastDescription(),
            QStringLiteral("schedule A, daily 20:**, 1 entry: schedule B begins"));
}

TEST_F(ScheduleTest, FollowsThePanelsOwnClock) {
  Send({"<TA>3140800105A,00205B", "<TB>*****00305C"});
  EXPECT_EQ(Letter(), "B");
  engine_.Receive("<T2503053140730>\r\n");  // Wednesday 5 March 2025
  EXPECT_EQ(Letter(), "B");
  EXPECT_EQ(Next(), "Wed 14:08:00.000");
  Wait(30 * kSecond);
  EXPECT_EQ(Now(), (Playing{'A', 1, 2, 1, 'A'}));
  // Set back by a little within its minute, it goes on as it was.
  Wait(6 * kSecond);
  engine_.Receive("<T2503053140802>\r\n");
  EXPECT_EQ(Now(), (Playing{'A', 2, 2, 2, 'B'}));
  // Set to another minute, that minute's schedule begins; set into its own, it begins.
  engine_.Receive("<T2503053151500>\r\n");
  EXPECT_EQ(Letter(), "B");
  Wait(1 * kSecond);
  engine_.Receive("<T2503053140830>\r\n");
  EXPECT_EQ(Now(), (Playing{'A', 1, 2, 1, 'A'}));
}

TEST_F(ScheduleTest, DoesNotBeginWhatAClockLeaptOver) {
  Send({"<TA>*083000105A", "<L01><P007>x "});
  engine_.Receive("<T2611216090000>\r\n");  // from 08:00 to 09:00
  EXPECT_EQ(Letter(), "-");
  EXPECT_EQ(Next(), "Sun 08:30:00.000");
  engine_.Receive("<T2611216082959>\r\n");
  EXPECT_EQ(Letter(), "-");
  Wait(kSecond);
  EXPECT_EQ(Letter(), "A");
  // What plays goes on whatever the clock is set to, if nothing is due there.
  engine_.Receive("<T2611216120000>\r\n");
  EXPECT_EQ(Letter(), "A");
}

TEST_F(ScheduleTest, ARunPageHoldsWhileTheClockIsSetWithinASlot) {
  Send({"<TA>*****00105A", "<RP009>"});
  engine_.Receive("<T2503053140730>\r\n");
  EXPECT_EQ(Letter(), "-");
  EXPECT_EQ(engine_.ShownPage(26), 9);
}

TEST_F(ScheduleTest, PlaysAtOnceOnDemand) {
  Send({"<TA>*****00105A", "<TB>3235900205B,00305C", "<RP009>"});
  const QSignalSpy changes(&engine_, &PanelEngine::Changed);
  EXPECT_TRUE(engine_.Play(26, 'B'));
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(Now(), (Playing{'B', 1, 2, 2, 'B'}));
  EXPECT_EQ(engine_.RunningPage(26), std::nullopt);
  Wait(6 * kSecond);
  EXPECT_EQ(Now(), (Playing{'B', 2, 2, 3, 'C'}));
  EXPECT_TRUE(engine_.Play(26, 'B'));
  EXPECT_EQ(Now(), (Playing{'B', 1, 2, 2, 'B'}));
  EXPECT_FALSE(engine_.Play(26, 'C'));
  EXPECT_FALSE(engine_.Play(3, 'B'));
  EXPECT_FALSE(engine_.Play(4, 'B'));
  EXPECT_EQ(changes.count(), 2);
  EXPECT_EQ(Letter(3), "-");
}

TEST_F(ScheduleTest, RunsAPageOnDemandAsTheCommandDoes) {
  Send({"<TA>*****00105A", "<L01><P001>x ", "<L01><P009>y ", "<L2>scrolling"});
  const QSignalSpy changes(&engine_, &PanelEngine::Changed);
  EXPECT_TRUE(engine_.Run(26, 9));
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(engine_.RunningPage(26), 9);
  EXPECT_EQ(Letter(), "-");
  EXPECT_TRUE(engine_.FindPanel(26)->scrolling_lines.isEmpty());
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "y ");
  EXPECT_FALSE(engine_.Run(26, 8));
  EXPECT_FALSE(engine_.Run(26, -1));
  EXPECT_FALSE(engine_.Run(3, 9));
  EXPECT_FALSE(engine_.Run(4, 9));
  EXPECT_EQ(engine_.RunningPage(26), 9);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(ScheduleTest, SaysHowAndWhenTheShownPageEntered) {
  const auto entrance = [this] { return engine_.LastEntrance(26, now_); };
  const qint64 start = now_.toMSecsSinceEpoch();
  EXPECT_EQ(entrance(), std::nullopt);
  EXPECT_EQ(engine_.LastEntrance(4, now_), std::nullopt);
  // A row that arrives just appears.
  Send({"<L01><P007>x "});
  EXPECT_EQ(entrance(), std::nullopt);
  Send({"<RP007>"});
  EXPECT_EQ(entrance(), (PageEntrance{7, 'A', start}));
  // Of two schedules that have the page the first one says how.
  Wait(100);
  Send({"<TB>3235900805C,00705D", "<TC>3235900705E"});
  EXPECT_EQ(entrance(), (PageEntrance{7, 'D', start}));
  Wait(100);
  Send({"<RP007>"});
  EXPECT_EQ(entrance(), (PageEntrance{7, 'D', start + 200}));
  // A schedule: entry by entry, round and round.
  Send({"<TA>*****00102F,00203G"});
  EXPECT_EQ(entrance(), (PageEntrance{1, 'F', start + 200}));
  Wait(1999);
  EXPECT_EQ(entrance(), (PageEntrance{1, 'F', start + 200}));
  Wait(1);
  EXPECT_EQ(entrance(), (PageEntrance{2, 'G', start + 2200}));
  Wait(3500);
  EXPECT_EQ(entrance(), (PageEntrance{1, 'F', start + 5200}));
  // A single page enters once, and anew when it is played anew.
  Send({"<TA>*****00102H"});
  Wait(9000);
  EXPECT_EQ(entrance(), (PageEntrance{1, 'H', start + 5700}));
  EXPECT_TRUE(engine_.Play(26, 'A'));
  EXPECT_EQ(entrance(), (PageEntrance{1, 'H', start + 14'700}));
  Send({"<D*>"});
  EXPECT_EQ(entrance(), std::nullopt);
}

TEST_F(ScheduleTest, PlaysOnArrivalOnEveryPanelThatHasIt) {
  engine_.SetPlayOnArrival('C');
  Send({"<TA>*****00105A", "<TC>3235900205B"});
  EXPECT_EQ(Letter(), "C");
  EXPECT_EQ(Letter(3), "-");
  engine_.Receive("<ID03><TC>3235900405D\r\n");
  EXPECT_EQ(engine_.PlayingAt(3, now_), (Playing{'C', 1, 1, 4, 'D'}));
}

TEST_F(ScheduleTest, ObeysABroadcastOnEveryPanelWithItsOwnClockAndPages) {
  EXPECT_TRUE(engine_.Receive("<ID00><TA>*08**00105A,00205B\r\n").isEmpty());
  EXPECT_EQ(Letter(26), "A");
  EXPECT_EQ(Letter(3), "A");
  engine_.Receive("<ID03><RP007>\r\n");
  EXPECT_EQ(Letter(26), "A");
  EXPECT_EQ(Letter(3), "-");
  EXPECT_TRUE(engine_.Receive("<ID00><L2>all\r\n").isEmpty());
  EXPECT_EQ(engine_.FindPanel(26)->scrolling_lines.value(2).row.text, "all");
  EXPECT_EQ(engine_.FindPanel(3)->scrolling_lines.value(2).row.text, "all");
}

TEST_F(ScheduleTest, DeletingAllPagesDeletesSchedulesAndScrollingTexts) {
  Send({"<L01><P001>x ", "<TA>*****00105A", "<L2>text", "<D*>"});
  EXPECT_TRUE(engine_.FindPanel(26)->schedules.isEmpty());
  EXPECT_TRUE(engine_.FindPanel(26)->scrolling_lines.isEmpty());
  EXPECT_EQ(Letter(), "-");
  EXPECT_EQ(engine_.ShownPage(26), std::nullopt);
  EXPECT_EQ(Next(), "never");
  EXPECT_FALSE(engine_.Play(26, 'A'));
  // The panel begins anew.
  Send({"<TA>*****00205A"});
  EXPECT_EQ(Letter(), "A");
}

TEST_F(ScheduleTest, DropsAScheduleOfTooManyEntries) {
  const auto with_entries = [](int count) {
    QByteArrayList entries;
    for (int i = 0; i < count; ++i) entries.append("00101A");
    return "<TA>*****" + entries.join(',');
  };
  const QByteArray most = with_entries(64);
  const QByteArray too_many = with_entries(65);
  Send({too_many.constData()});
  EXPECT_EQ(LastDescription(), QStringLiteral("schedule A, daily **:**, 65 entries: ignored, a "
                                              "schedule has at most 64 entries"));
  EXPECT_FALSE(engine_.Frames().last().obeyed);
  EXPECT_TRUE(engine_.FindPanel(26)->schedules.isEmpty());
  Send({most.constData()});
  EXPECT_EQ(engine_.FindPanel(26)->schedules.value('A').entries.size(), 64);
}

TEST_F(ScheduleTest, TheFirstChangeOfAllPanelsIsTheNext) {
  EXPECT_EQ(engine_.NextChange(now_), std::nullopt);
  Send({"<TA>*****00150A,00250B"});
  engine_.Receive("<ID03><TA>*****00120A,00220B\r\n");
  EXPECT_EQ(engine_.NextChange(now_), now_.addSecs(20));
  Wait(30 * kSecond);
  EXPECT_EQ(engine_.NextChange(now_), now_.addSecs(10));
  engine_.Receive("<ID03><D*>\r\n");
  EXPECT_EQ(engine_.NextChange(now_), now_.addSecs(20));
}

TEST_F(ScheduleTest, ChangesExactlyWhenItSays) {
  Send({"<TA>*****00117A,00200B,00340C", "<TB>*08**00459D", "<TC>*080500501E,00603F",
        "<TD>6081300707G"});
  // Every change of an hour, found by asking and found by looking.
  QDateTime expected = *engine_.NextChange(26, now_);
  for (int ms = 100; ms <= 3'600'000; ms += 100) {
    const QDateTime before = now_;
    const auto was_playing = Now();
    Wait(100);
    if (Now() != was_playing) {
      ASSERT_EQ(expected, now_) << At(now_).constData();
    }
    if (expected <= now_) expected = *engine_.NextChange(26, now_);
    ASSERT_GT(*engine_.NextChange(26, before), before);
  }
}

TEST_F(ScheduleTest, SurvivesAMachineWhoseClockGoesBack) {
  Send({"<TA>*****00105A,00205B", "<L1>text"});
  GoTo({7, 0, 6});
  EXPECT_EQ(Letter(), "A");
  EXPECT_GT(*engine_.NextChange(26, now_), now_);
  Send({"<TB>*070000304C"});
  EXPECT_EQ(Letter(), "B");
  EXPECT_EQ(Next(), "Sat 07:01:00.000");
}

TEST_F(ScheduleTest, KeepsScrollingTextsByRow) {
  Send({"<L1><SC><CB>One", "<L4>Four ", "<L0>zero", "<L5>five", "<L-1>minus", "<L10>ten"});
  EXPECT_EQ(LastDescription(),
            QStringLiteral("scrolling text, row 10: ignored, panel 26 has rows 1 to 4"));
  EXPECT_FALSE(engine_.Frames().last().obeyed);
  const ScrollingLines& lines = engine_.FindPanel(26)->scrolling_lines;
  EXPECT_EQ(lines.keys(), (QList<int>{1, 4}));
  EXPECT_EQ(lines.value(1).row.text, "<SC><CB>One");
  EXPECT_EQ(lines.value(1).row.cells.size(), 3);
  EXPECT_EQ(lines.value(1).row.cells.first(), (Cell{Cell::Kind::kCharacter, 'O', 'C', 'B', false}));
  EXPECT_EQ(lines.value(1).began_ms, now_.toMSecsSinceEpoch());
  EXPECT_EQ(lines.value(4).row.cells.size(), 5);  // nobody adds a blank to it
  EXPECT_TRUE(engine_.FindPanel(3)->scrolling_lines.isEmpty());
}

TEST_F(ScheduleTest, AScrollingTextEndsByAnotherAnEmptyOneOrARunPage) {
  const ScrollingLines& lines = engine_.FindPanel(26)->scrolling_lines;
  Send({"<L1>first", "<L2>second"});
  Wait(5 * kSecond);
  Send({"<L1>new"});
  EXPECT_EQ(lines.value(1).row.text, "new");
  EXPECT_EQ(lines.value(1).began_ms, now_.toMSecsSinceEpoch());
  Send({"<L1>"});
  EXPECT_EQ(LastDescription(), QStringLiteral("scrolling text, row 1: ends"));
  EXPECT_EQ(lines.keys(), QList<int>{2});
  // A page that arrives, one that is deleted and a schedule go on under it.
  Send({"<L02><P001>x ", "<D001>", "<TA>*****00101A,00201A"});
  Wait(5 * kSecond);
  EXPECT_EQ(lines.keys(), QList<int>{2});
  Send({"<RP001>"});
  EXPECT_TRUE(lines.isEmpty());
}

TEST_F(ScheduleTest, WritesSchedulesPlayingAndScrollingIntoItsState) {
  Send({"<TB>*08**00750A,012100H", "<TD>0123000101C", "<L2><CA>caf\xE9"});
  Wait(60 * kSecond);
  const QJsonDocument expected = QJsonDocument::fromJson(R"({"panels": [
      {"id": 3, "rows": 2, "columns": 48, "colour": "mono", "running_page": null, "shown_page": null,
       "clock_offset_seconds": 0, "pages": {}, "schedules": {}, "playing": null, "scrolling": {}},
      {"id": 26, "rows": 4, "columns": 96, "colour": "tri", "running_page": null, "shown_page": 12,
       "clock_offset_seconds": 0, "pages": {},
       "schedules": {
         "B": {"weekday": "*", "hour": "08", "minute": "**",
               "entries": [{"page": 7, "delay": 50, "feature": "A"},
                           {"page": 12, "delay": 100, "feature": "H"}]},
         "D": {"weekday": "0", "hour": "12", "minute": "30",
               "entries": [{"page": 1, "delay": 1, "feature": "C"}]}},
       "playing": {"letter": "B", "entry": 2, "page": 12, "effect": "Shift"},
       "scrolling": {"2": "<CA>café"}}]})");
  EXPECT_EQ(QJsonDocument::fromJson(StateDocument(engine_)), expected);
}

TEST_F(ScheduleTest, SurvivesRandomSchedulesAndScrollingLines) {
  std::mt19937 random(20'261'122);
  const QByteArray alphabet("AABCDJ***0000111223459,,,<>LT-P \xFF", 34);
  std::uniform_int_distribution<qsizetype> choice(0, alphabet.size() - 1);
  std::uniform_int_distribution<int> length(0, 24);
  qsizetype understood = 0;
  for (int round = 0; round < 50'000; ++round) {
    QByteArray body(random() % 2 == 0 ? "<TA>***" : "<L");
    if (random() % 4 == 0) body += "**00101A,00203";
    const int size = length(random);
    for (int i = 0; i < size; ++i) body += alphabet[choice(random)];
    const QList<Answer> answers = engine_.Receive("<ID1A>" + body + "\r\n");
    ASSERT_EQ(answers.size(), 1) << body.constData();
    ASSERT_EQ(answers.first().bytes, "<ID1A>\r\n");
    if (engine_.Frames().last().obeyed) ++understood;
    Wait(777);
    const auto playing = Now();
    ASSERT_TRUE(!playing || playing->entry <= playing->entries);
    const auto next = engine_.NextChange(26, now_);
    ASSERT_TRUE(!next || *next > now_);
  }
  EXPECT_GT(understood, 100);
}

}  // namespace
}  // namespace VirtualPanel
