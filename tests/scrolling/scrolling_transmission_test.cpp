#include "scrolling/scrolling_transmission.h"

#include <gtest/gtest.h>

#include "support/program_folder.h"
#include "support/virtual_time.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class ScrollingTransmission : public testing::Test {
 protected:
  ScrollingTransmission() {
    folder_.Configure(
        "[Dimension Config]\r\n"
        "ID003=2x96,Mono,10.0.0.3:80\r\n"
        "ID018=16x96,Tri,10.0.0.18:80\r\n"
        "ID000=2x96,Tri,10.0.0.0:80\r\n"
        "[Communication]\r\nDelay Period=200\r\n");
  }

  QString File(const QByteArray& body) {
    return folder_.Write(u"a.srl"_s, "*** Brivon Shift Message File ***\r\n" + body + "\r\n");
  }

  bool Send(const QString& path, int id, int line_number) {
    OpenLine line{link_, timer_, clock_, Store(),
                  [this](const QString& text) { time_.Note(u"status \"%1\""_s.arg(text)); }};
    return SendScrollingFile(line, path, id, line_number);
  }

  /// The frame that carries a file with this body.
  QByteArray Frame(const QByteArray& body, int id, int line) {
    link_.AnswerAfter(1, id == 3 ? "<ID03>\r\n" : "<ID12>\r\n");
    EXPECT_TRUE(Send(File(body), id, line));
    return link_.Written().value(0);
  }

  void ExpectRefused(const QByteArray& content) {
    EXPECT_FALSE(Send(folder_.Write(u"a.srl"_s, content), 18, 2));
    EXPECT_TRUE(link_.Written().isEmpty());
    EXPECT_TRUE(time_.Timeline().isEmpty()) << "no status, no wait";
  }

  TemporaryProgramFolder folder_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
};

TEST_F(ScrollingTransmission, TimelineOfASuccessAtOnce) {
  link_.AnswerAfter(340, "<ID12>\r\n");
  EXPECT_TRUE(Send(File("<SA><CA>Road works"), 18, 2));
  EXPECT_EQ(time_.Timeline(), (QStringList{
                                  u"@0 status \"Sending --->\""_s,
                                  u"@0 send <ID12><L2><SA><CA>Road works[CR][LF]"_s,
                                  u"@100 tick"_s,
                                  u"@200 tick"_s,
                                  u"@300 tick"_s,
                                  u"@340 status \"<--- Ack\""_s,
                                  u"@440 tick"_s,
                                  u"@540 tick"_s,
                              }));
  EXPECT_EQ(timer_.last_ack_status, 1);
}

TEST_F(ScrollingTransmission, AnAnswerThatComesDuringThe300MsIsSeenAtTheirEnd) {
  link_.AnswerAfter(20, "<ID12>\r\n");
  EXPECT_TRUE(Send(File("x"), 18, 2));
  EXPECT_EQ(time_.Timeline(), (QStringList{
                                  u"@0 status \"Sending --->\""_s,
                                  u"@0 send <ID12><L2>x[CR][LF]"_s,
                                  u"@100 tick"_s,
                                  u"@200 tick"_s,
                                  u"@300 tick"_s,
                                  u"@300 status \"<--- Ack\""_s,
                                  u"@400 tick"_s,
                                  u"@500 tick"_s,
                              }));
}

TEST_F(ScrollingTransmission, TimelineOfASuccessOnTheThirdAttempt) {
  link_.StaySilent();
  link_.AnswerAfter(310, "<ID13>\r\n");
  link_.AnswerAfter(310, "<ID12>\r\n");
  EXPECT_TRUE(Send(File("x"), 18, 2));
  const QString attempt = u" send <ID12><L2>x[CR][LF]"_s;
  QStringList expected{u"@0 status \"Sending --->\""_s};
  // Silence: 300 ms and 1100 ms. Another panel's answer ends the wait with its eighth byte.
  expected << u"@0"_s + attempt << TicksAt(100, 1400) << u"@1400"_s + attempt << TicksAt(1500, 1700)
           << u"@1710"_s + attempt << TicksAt(1810, 2010) << u"@2020 status \"<--- Ack\""_s
           << TicksAt(2120, 2220);
  EXPECT_EQ(time_.Timeline(), expected);
}

TEST_F(ScrollingTransmission,
       FiveFailedAttemptsTakeFiveTimes300MsPlusFiveTimeOutsOf1100MsAndNoPauseFollows) {
  EXPECT_FALSE(Send(File("x"), 18, 2));
  QStringList expected{u"@0 status \"Sending --->\""_s};
  for (int attempt = 0; attempt < 5; ++attempt) {
    const int from = 1400 * attempt;
    expected << u"@%1 send <ID12><L2>x[CR][LF]"_s.arg(from) << TicksAt(from + 100, from + 1400);
  }
  EXPECT_EQ(time_.Timeline(), expected);
  EXPECT_EQ(time_.Now(), 5 * 300 + 5 * 1100);
  EXPECT_EQ(timer_.last_ack_status, -1);
  EXPECT_FALSE(timer_.IsEnabled());
}

TEST_F(ScrollingTransmission, NineBytesRunIntoTheTimeOut) {
  link_.AnswerAfter(10, "!<ID12>\r\n");
  link_.AnswerAfter(10, "<ID12>\r\n");
  EXPECT_TRUE(Send(File("x"), 18, 2));
  EXPECT_EQ(time_.Now(), 1400 + 300 + 200);
}

TEST_F(ScrollingTransmission, BytesLeftOverFromAnEarlierExchangeAreCountedIntoTheAnswer) {
  link_.Receive("!");
  link_.AnswerAfter(10, "<ID12>\r\n");
  link_.AnswerAfter(10, "<ID12>\r\n");
  EXPECT_TRUE(Send(File("x"), 18, 2));
  EXPECT_EQ(link_.Written().size(), 2);
  EXPECT_EQ(time_.Now(), 1400 + 300 + 200);
}

TEST_F(ScrollingTransmission, TimelineForPanelId0) {
  EXPECT_TRUE(Send(File("x"), 0, 2));
  EXPECT_EQ(time_.Timeline(), (QStringList{
                                  u"@0 status \"Sending --->\""_s,
                                  u"@0 send <ID00><L2>x[CR][LF]"_s,
                                  u"@100 tick"_s,
                                  u"@200 tick"_s,
                                  u"@300 tick"_s,
                                  u"@300 status \"<--- Ack\""_s,
                                  u"@400 tick"_s,
                                  u"@500 tick"_s,
                              }));
}

TEST_F(ScrollingTransmission, ALongMessageToId0IsFinishedWhenItsBytesHaveLeft) {
  link_.SendAt(9600);
  EXPECT_TRUE(Send(File(QByteArray(9588, 'x')), 0, 2));  // 9600 bytes with the rest of the frame
  EXPECT_EQ(time_.Timeline().last(2), (QStringList{u"@10100 tick"_s, u"@10200 tick"_s}));
  EXPECT_EQ(time_.Timeline().at(time_.Timeline().size() - 3), u"@10000 status \"<--- Ack\""_s);
}

TEST_F(ScrollingTransmission, AMessageToId0OverALineThatTakesNothingHasFailed) {
  link_.SendAt(0);
  EXPECT_FALSE(Send(File(QByteArray(84, 'x')), 0, 2));  // 96 bytes, a tenth of a second
  EXPECT_EQ(time_.Now(), 300 + 100 + 25 + 2000);
  EXPECT_EQ(time_.Timeline().last(), u"@2425 close"_s);
}

TEST_F(ScrollingTransmission, Panel18Line2OnAThreeColourPanelReceivesTheTextAsItIs) {
  EXPECT_EQ(Frame("  <SA><CA>A<CP>B ", 18, 2), "<ID12><L2>  <SA><CA>A<CP>B \r\n");
}

TEST_F(ScrollingTransmission, LineNumber10IsWrittenAsL10LineNumber1AsL1) {
  EXPECT_EQ(Frame("x", 18, 10), "<ID12><L10>x\r\n");
  EXPECT_EQ(Frame("x", 18, 1), "<ID12><L10>x\r\n");  // the first frame once more
  EXPECT_EQ(link_.Written().value(1), "<ID12><L1>x\r\n");
}

TEST_F(ScrollingTransmission, LinesBelow1AreWrittenAsTheyAre) {
  Frame("x", 18, 0);
  Frame("x", 18, -3);
  EXPECT_EQ(link_.Written(), (QList<QByteArray>{"<ID12><L0>x\r\n", "<ID12><L-3>x\r\n"}));
}

TEST_F(ScrollingTransmission, ASingleColourPanelNeverReceivesAColourCode) {
  EXPECT_EQ(Frame(" <SA><CA> A<CP>B<C?> <CA", 3, 1), "<ID03><L1><SA> AB <CA\r\n");
}

TEST_F(ScrollingTransmission, NorOneThatIsPutTogetherByTakingOutAnother) {
  EXPECT_EQ(Frame("a<C<CA>B>b<C<C<CA>B>>>c<CA", 3, 1), "<ID03><L1>abc<CA\r\n");
}

TEST_F(ScrollingTransmission, NorOneThatIsPutTogetherWhereTheTextBegins) {
  EXPECT_EQ(Frame("<C<CA>B>a", 3, 1), "<ID03><L1>a\r\n");
}

TEST_F(ScrollingTransmission, NothingIsTakenOutBeforeASignThatEndsNoCode) {
  EXPECT_EQ(Frame("a> <CA>b<SC>", 3, 1), "<ID03><L1>a> b<SC>\r\n");
}

TEST_F(ScrollingTransmission, ManyCodesWithinOneAnotherAreTakenOutInBoundedTime) {
  const int depth = 100000;
  EXPECT_EQ(Frame("x" + QByteArray("<C").repeated(depth) + QByteArray("A>").repeated(depth), 3, 1),
            "<ID03><L1>x\r\n");
}

TEST_F(ScrollingTransmission, ASingleColourPanelReceivesATrimmedText) {
  EXPECT_EQ(Frame("<CA>  AB \t ", 3, 1), "<ID03><L1>AB\r\n");
}

TEST_F(ScrollingTransmission, DateTimeAndGraphicsAreSentAsTheyStand) {
  EXPECT_EQ(Frame("DD MMM YYYY HH:MM ~A", 18, 1), "<ID12><L1>DD MMM YYYY HH:MM ~A\r\n");
}

TEST_F(ScrollingTransmission, AnEmptyMessageIsSent) {
  EXPECT_EQ(Frame("", 18, 1), "<ID12><L1>\r\n");
}

TEST_F(ScrollingTransmission, TheShortestFileWithTheRightHeaderIsAccepted) {
  // The header line alone is longer than the 30 bytes that a file must have.
  link_.AnswerAfter(1, "<ID12>\r\n");
  EXPECT_TRUE(Send(folder_.Write(u"a.srl"_s, "*** Brivon Shift Message File ***\n\n"), 18, 1));
  EXPECT_EQ(link_.Written(), (QList<QByteArray>{"<ID12><L1>\r\n"}));
}

TEST_F(ScrollingTransmission, ATooShortFileIsRefusedBeforeAnythingIsSent) {
  ExpectRefused(QByteArray("*** Brivon Shift Message File ***").first(29));
  ExpectRefused("");
}

TEST_F(ScrollingTransmission, AWrongHeaderIsRefusedBeforeAnythingIsSent) {
  ExpectRefused("*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01>x\r\n");
  ExpectRefused("*** BRIVON SHIFT MESSAGE FILE ***\r\nx\r\n");
}

TEST_F(ScrollingTransmission, AFileWithoutASecondLineIsRefusedBeforeAnythingIsSent) {
  ExpectRefused("*** Brivon Shift Message File ***\r\n");
}

TEST_F(ScrollingTransmission, AMissingFileIsRefusedBeforeAnythingIsSent) {
  EXPECT_FALSE(Send(folder_.Path(u"gone.srl"_s), 18, 2));
  EXPECT_TRUE(time_.Timeline().isEmpty());
}

TEST_F(ScrollingTransmission, ALineLostWhileItIsSentEndsTheAttempts) {
  link_.LoseAfter(50);
  EXPECT_FALSE(Send(File("x"), 18, 2));
  EXPECT_EQ(link_.Written().size(), 1);
  EXPECT_EQ(time_.Now(), 300);
}

TEST_F(ScrollingTransmission, AnAnswerThatCameBeforeTheLineWasLostCounts) {
  link_.AnswerAfter(10, "<ID12>\r\n");
  link_.AndLoseAfter(50);
  EXPECT_TRUE(Send(File("x"), 18, 2));
}

TEST_F(ScrollingTransmission, WhatIsSentToAllPanelsOverALineThatIsLostHasFailed) {
  link_.LoseAfter(50);
  EXPECT_FALSE(Send(File("x"), 0, 2));
  EXPECT_EQ(link_.Written().size(), 1);
  EXPECT_EQ(time_.Now(), 300);
}

TEST_F(ScrollingTransmission, TheEndOfTheProgramEndsTheAttemptsAtOnce) {
  timer_.EndProgram();
  EXPECT_FALSE(Send(File("x"), 18, 2));
  EXPECT_EQ(link_.Written().size(), 1);
  EXPECT_EQ(time_.Now(), 0);
}

}  // namespace
}  // namespace Brivon1
