// Schedules that arrive, begin and play.

#include "schedule_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(ScheduleTest, KeepsTenSchedulesByLetter) {
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    const QByteArray frame = QByteArray("<T") + letter + ">6123000105A";
    Send({frame.constData()});
  }
  const Schedules& schedules = engine_.FindPanel(26)->Memory().StoredSchedules();
  EXPECT_EQ(schedules.keys(), (QList<char>{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 'J'}));
  Send({"<TB>**1**00203D,00304E"});
  EXPECT_EQ(schedules.size(), 10);
  EXPECT_EQ(LastDescription(), u"not understood"_s);
  Send({"<TB>*17**00203D,00304E"});
  EXPECT_EQ(LastDescription(), u"schedule B, daily 17:**, 2 entries"_s);
  EXPECT_EQ(schedules.size(), 10);
  EXPECT_EQ(schedules.value('B'), (Schedule{{}, 17, {}, {{2, 3, 'D'}, {3, 4, 'E'}}}));
  EXPECT_EQ(schedules.value('A'), (Schedule{6, 12, 30, {{1, 5, 'A'}}}));
  EXPECT_TRUE(engine_.FindPanel(3)->Memory().StoredSchedules().isEmpty());
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
  EXPECT_EQ(LastDescription(), u"schedule A, daily 08:**, 2 entries: begins"_s);
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
  EXPECT_EQ(LastDescription(), u"schedule A, daily 20:**, 1 entry: schedule B begins"_s);
}

}  // namespace
}  // namespace VirtualPanel
