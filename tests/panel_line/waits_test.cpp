#include "panel_line/waits.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "panel_line/transmission.h"
#include "support/virtual_time.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// A line from which there is always more to read.
class EndlessLink : public PanelLink {
 public:
  static constexpr qsizetype kPiece = 1 << 16;

  int Reads() const { return reads_; }

  void Write(const QByteArray&) override {}
  qint64 Unsent() const override { return 0; }
  int Speed() const override { return 9600; }
  QByteArray ReadAvailable() override {
    ++reads_;
    return QByteArray(kPiece, 'U');
  }
  bool IsLost() const override { return false; }
  void Close() override {}
  QString FailureReason() const override { return {}; }

 private:
  int reads_ = 0;
};

class Waits : public testing::Test {
 protected:
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
};

TEST(DiscardedInput, OfAPanelThatNeverStopsAMegabyteIsReadAway) {
  EndlessLink link;
  DiscardInput(link);
  EXPECT_EQ(link.Reads() * EndlessLink::kPiece, 1 << 20);
}

TEST_F(Waits, AFrameThatIsStoppedBeforeItsFirstAttemptHasNone) {
  OpenLine line{link_, timer_, clock_, {}, [](const QString&) {}};
  line.progress.attempt = 3;
  timer_.stop.made = true;
  EXPECT_FALSE(SendUntilAcknowledged(line, 26, "x", [] {}));
  EXPECT_EQ(line.progress.attempt, 0);
  EXPECT_TRUE(link_.Written().isEmpty());
}

TEST_F(Waits, Id0NoReadAtAllResultTrueStatus1) {
  link_.Receive("garbage!");
  EXPECT_TRUE(WaitForAck(link_, timer_, 0));
  EXPECT_EQ(timer_.last_ack_status, 1);
  EXPECT_EQ(link_.Reads(), 0);
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Waits, Id0LeavesTheTickTimerEnabled) {
  WaitForAck(link_, timer_, 0);
  EXPECT_TRUE(timer_.IsEnabled());
}

TEST_F(Waits, AnAnswerOfPanel26InUpperCaseIsAccepted) {
  link_.AnswerAfter(40, "<ID1A>\r\n");
  link_.Write("x");
  EXPECT_TRUE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, 1);
  EXPECT_EQ(time_.Now(), 40) << "an answer is seen when it arrives, not at the next tick";
  EXPECT_FALSE(timer_.IsEnabled());
}

TEST_F(Waits, TheSameInLowerCaseIsRefusedWithStatus0) {
  link_.AnswerAfter(40, "<ID1a>\r\n");
  link_.Write("x");
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, 0);
  EXPECT_EQ(time_.Now(), 40);
}

TEST_F(Waits, NineBytesArrivingInOneReadGiveStatusMinus1After1100Ms) {
  link_.AnswerAfter(40, "?<ID1A>\r\n");
  link_.Write("x");
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, -1);
  EXPECT_EQ(time_.Now(), 1100);
}

TEST_F(Waits, TheNinthByteInALaterReadComesTooLateToDoHarm) {
  link_.AnswerAfter(40, "<ID1A>\r\n");
  link_.AndAfter(50, "!");
  link_.Write("x");
  EXPECT_TRUE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(time_.Now(), 40);
}

TEST_F(Waits, AnAnswerInPiecesIsPutTogether) {
  link_.AnswerAfter(10, "<ID");
  link_.AndAfter(350, "1A");
  link_.AndAfter(900, ">\r\n");
  link_.Write("x");
  EXPECT_TRUE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(time_.Now(), 900);
}

TEST_F(Waits, SevenBytesAreNoAnswer) {
  link_.AnswerAfter(10, "<ID1A>\r");
  link_.Write("x");
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, -1);
  EXPECT_EQ(time_.Now(), 1100);
}

TEST_F(Waits, BytesLeftOverFromAnEarlierExchangeAreCountedIntoTheEight) {
  link_.Receive("\n");
  link_.AnswerAfter(10, "<ID1A>\r\n");
  link_.Write("x");
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, -1);
}

TEST_F(Waits, AnAnswerThatWaitsAlreadyTakesNoTime) {
  link_.Receive("<ID1A>\r\n");
  EXPECT_TRUE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Waits, AnAnswerAfterTheTimeOutIsTooLate) {
  link_.AnswerAfter(1101, "<ID1A>\r\n");
  link_.Write("x");
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, -1);
}

TEST_F(Waits, AnEndlessAnswerIsBoundedAndUnanswered) {
  for (int i = 0; i < 200; ++i)
    time_.Schedule(5 * i, [&] { link_.Receive(QByteArray(65536, 'x')); });
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, -1);
  EXPECT_EQ(time_.Now(), 1100);
}

TEST_F(Waits, ALostLineEndsTheWaitAtOnce) {
  link_.LoseAfter(250);
  link_.Write("x");
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(timer_.last_ack_status, -1);
  EXPECT_EQ(time_.Now(), 250);
  EXPECT_FALSE(timer_.IsEnabled());
}

TEST_F(Waits, WhatArrivedBeforeTheLineWasLostStillCounts) {
  link_.Receive("<ID1A>\r\n");
  link_.LoseAfter(0);
  link_.Write("x");
  time_.Advance();
  EXPECT_TRUE(WaitForAck(link_, timer_, 26));
}

TEST_F(Waits, TheEndOfTheProgramEndsEveryWait) {
  timer_.EndProgram();
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  WaitTicks(timer_, 30000);
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Waits, TheEndOfTheProgramIsNotTakenBackByALateByte) {
  timer_.EndOneWait();
  WaitTicks(timer_, 300);
  EXPECT_TRUE(timer_.program_ends);
  link_.Receive("<ID");
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_TRUE(timer_.program_ends);
  EXPECT_FALSE(MaySend(link_, timer_));
}

TEST_F(Waits, WaitTicksCountsTheTicks) {
  WaitTicks(timer_, 300);
  EXPECT_EQ(time_.Timeline(), TicksAt(100, 300));
  EXPECT_FALSE(timer_.IsEnabled());
  EXPECT_FALSE(timer_.waiting);
}

TEST_F(Waits, WaitTicksRoundsUpToAWholeTick) {
  WaitTicks(timer_, 301);
  EXPECT_EQ(time_.Now(), 400);
}

TEST_F(Waits, WaitTicksOfZeroTakesNoTime) {
  WaitTicks(timer_, 0);
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Waits, WaitTicksOf30000Ends) {
  WaitTicks(timer_, 30000);
  EXPECT_EQ(time_.Now(), 30000);
}

TEST_F(Waits, TheCountersRiseOnlyWhileTheyAreBelow30000) {
  timer_.ack_tick_counter = 29950;
  timer_.wait_tick_counter = 29950;
  timer_.waiting = true;
  timer_.Tick();
  timer_.Tick();
  EXPECT_EQ(timer_.ack_tick_counter, 30050);
  EXPECT_EQ(timer_.wait_tick_counter, 30050);
}

TEST_F(Waits, TheWaitCounterStandsStillWhileNobodyWaits) {
  timer_.Tick();
  EXPECT_EQ(timer_.ack_tick_counter, 100);
  EXPECT_EQ(timer_.wait_tick_counter, 0);
}

TEST_F(Waits, WaitMillisecondsTakesExactlyItsTime) {
  time_.Schedule(120, [] {});
  WaitMilliseconds(clock_, 500);
  EXPECT_EQ(time_.Now(), 500);
}

TEST_F(Waits, WaitMillisecondsOf0ReturnsAtOnce) {
  WaitMilliseconds(clock_, 0);
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Waits, ALineThatHasSentEverythingIsDrainedInNoTime) {
  link_.Write("x");
  EXPECT_TRUE(DrainLink(link_, clock_));
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Waits, ADrainTakesTheTimeThatTheSpeedOfTheLineGives) {
  struct Case {
    int speed;
    qint64 milliseconds;  // for 960 bytes of ten bits, up to the next look, of which there are 100
                          // a second
  };
  for (const auto& [speed, milliseconds] :
       {Case{300, 32000}, Case{1200, 8000}, Case{2400, 4000}, Case{4800, 2000}, Case{9600, 1000},
        Case{19200, 500}, Case{38400, 250}, Case{57600, 170}, Case{115200, 90}}) {
    const qint64 begin = time_.Now();
    link_.SendAt(speed);
    link_.Write(QByteArray(960, 'x'));
    EXPECT_TRUE(DrainLink(link_, clock_)) << speed;
    EXPECT_EQ(time_.Now() - begin, milliseconds) << speed;
    EXPECT_EQ(link_.Unsent(), 0);
  }
}

TEST_F(Waits, ALineThatTakesNothingIsGivenUpAQuarterAndTwoSecondsAfterItsTime) {
  link_.SendAt(0);
  link_.Write(QByteArray(960, 'x'));  // a second at 9600
  EXPECT_FALSE(DrainLink(link_, clock_));
  EXPECT_EQ(time_.Now(), 1000 + 250 + 2000);
  EXPECT_EQ(time_.Timeline().last(), u"@3250 close"_s);
}

TEST_F(Waits, ALineThatIsJustInTimeIsNotGivenUp) {
  link_.SendAt(0);
  link_.Write(QByteArray(960, 'x'));
  time_.Schedule(3249, [this] { link_.TakeEverything(); });
  EXPECT_TRUE(DrainLink(link_, clock_));
  EXPECT_EQ(time_.Now(), 3249);
}

TEST_F(Waits, ALostLineEndsTheDrainAtOnce) {
  link_.SendAt(300);
  link_.LoseAfter(55);
  link_.Write(QByteArray(960, 'x'));
  EXPECT_FALSE(DrainLink(link_, clock_));
  EXPECT_EQ(time_.Now(), 55);
}

TEST_F(Waits, TheEndOfTheProgramEndsTheDrainAndGivesTheRestUp) {
  link_.SendAt(300);
  link_.Write(QByteArray(960, 'x'));
  clock_.EndProgram();
  EXPECT_FALSE(DrainLink(link_, clock_));
  EXPECT_EQ(time_.Now(), 0);
  EXPECT_EQ(time_.Timeline().last(), u"@0 close"_s);
}

TEST_F(Waits, AStopEndsTheDrainAtTheNextLookAndGivesTheRestUp) {
  link_.SendAt(300);
  link_.Write(QByteArray(960, 'x'));
  StopRequest stop;
  time_.Schedule(55, [&stop] { stop.made = true; });
  EXPECT_FALSE(DrainLink(link_, clock_, stop));
  EXPECT_EQ(time_.Now(), 55);
  EXPECT_EQ(time_.Timeline().last(), u"@55 close"_s);
}

TEST_F(Waits, ADrainTellsHowLongTheRestNeeds) {
  link_.SendAt(9600);
  link_.Write(QByteArray(96, 'x'));
  QList<qint64> told;
  EXPECT_TRUE(DrainLink(link_, clock_, {}, [&told](qint64 left) { told.append(left); }));
  EXPECT_EQ(told.value(0), 100);
  EXPECT_EQ(told.size(), 10);
  EXPECT_TRUE(std::is_sorted(told.rbegin(), told.rend()));
}

TEST_F(Waits, AStopEndsAPause) {
  time_.Schedule(250, [this] { timer_.stop.made = true; });
  WaitTicks(timer_, 30000);
  EXPECT_EQ(time_.Now(), 250);
  EXPECT_FALSE(timer_.waiting);
}

TEST_F(Waits, AStopLeavesAnAcknowledgementItsTime) {
  timer_.stop.made = true;
  link_.AnswerAfter(1000, "<ID1A>\r\n");
  link_.Write("x");
  EXPECT_TRUE(WaitForAck(link_, timer_, 26));
  EXPECT_FALSE(WaitForAck(link_, timer_, 26));
  EXPECT_EQ(time_.Now(), 1000 + 1100);
}

TEST_F(Waits, AfterAStopNothingMoreMayBeSent) {
  EXPECT_TRUE(MaySend(link_, timer_));
  timer_.stop.made = true;
  EXPECT_FALSE(MaySend(link_, timer_));
}

TEST_F(Waits, AStopEndsTheWaitForAConnectionWithinATick) {
  StopRequest stop;
  time_.Schedule(30, [&stop] { stop.made = true; });
  EXPECT_FALSE(WaitMilliseconds(clock_, 500, stop));
  EXPECT_LE(time_.Now(), 130);
}

}  // namespace
}  // namespace Brivon1
