// Schedules and a clock: what begins when, and what a clock that is set does not begin.

#include <random>

#include "schedule_fixture.h"

namespace VirtualPanel {
namespace {

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

TEST_F(ScheduleTest, SurvivesAMachineWhoseClockGoesBack) {
  Send({"<TA>*****00105A,00205B", "<L1>text"});
  GoTo({7, 0, 6});
  EXPECT_EQ(Letter(), "A");
  EXPECT_GT(*engine_.NextChange(26, now_), now_);
  Send({"<TB>*070000304C"});
  EXPECT_EQ(Letter(), "B");
  EXPECT_EQ(Next(), "Sat 07:01:00.000");
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

TEST_F(ScheduleTest, TheFirstChangeOfAllPanelsIsTheNext) {
  EXPECT_EQ(engine_.NextChange(now_), std::nullopt);
  Send({"<TA>*****00150A,00250B"});
  engine_.Receive("<ID03><TA>*****00120A,00220B\r\n");
  EXPECT_EQ(engine_.NextChange(now_), now_.addSecs(20));
  Wait(30 * kSecond);
  EXPECT_EQ(engine_.NextChange(now_), now_.addSecs(10));
  engine_.Receive("<ID03><D*>\r\n");
  EXPECT_EQ(engine_.NextChange(now_), now_.addSecs(20));
  engine_.Receive("<ID03><TA>*****00150A,00220B\r\n");
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
