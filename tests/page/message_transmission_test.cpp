#include "page/message_transmission.h"

#include <gtest/gtest.h>

#include "support/program_folder.h"
#include "support/virtual_time.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// A message file of the given rows, lines ended by CR LF.
QByteArray MessageFile(int rows, int columns, const QList<QByteArray>& lines) {
  return "*** Brivon Message File ***\r\nRow = " + QByteArray::number(rows) +
         "\r\nCol = " + QByteArray::number(columns) + "\r\n" + lines.join("\r\n") + "\r\n";
}

class MessageTransmission : public testing::Test {
 protected:
  MessageTransmission() {
    folder_.Configure(
        "[Dimension Config]\r\n"
        "ID003=2x96,Mono,10.0.0.3:80\r\n"
        "ID026=2x96,Tri,10.0.0.26:80\r\n"
        "ID000=2x96,Tri,10.0.0.0:80\r\n"
        "[Communication]\r\nDelay Period=200\r\n");
  }

  QString File(const QList<QByteArray>& lines) {
    return folder_.Write(u"page.msg"_s, MessageFile(static_cast<int>(lines.size()), 96, lines));
  }

  bool Send(const QString& path, int id, Dimension panel) {
    OpenLine line{link_, timer_, clock_, Store(),
                  [this](const QString& text) { time_.Note(u"status \"%1\""_s.arg(text)); }};
    return SendMessageFile(line, path, id, "007", panel);
  }

  /// The one frame that a two-row file makes of `line` in its first row.
  QByteArray FirstFrame(const QByteArray& line, int id) {
    for (int row = 0; row < 2; ++row) link_.AnswerAfter(1, id == 3 ? "<ID03>\r\n" : "<ID1A>\r\n");
    EXPECT_TRUE(Send(File({line, "<L02>"}), id, {2, 96}));
    return link_.Written().value(0);
  }

  TemporaryProgramFolder folder_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
};

TEST_F(MessageTransmission, TimelineOfASuccessAtOnce) {
  link_.AnswerAfter(30, "<ID1A>\r\n");
  link_.AnswerAfter(140, "<ID1A>\r\n");
  const QString path = File({"<L01><SA><CA>AB", "<L02><SC><CB>CD"});
  EXPECT_TRUE(Send(path, 26, {2, 96}));
  EXPECT_EQ(time_.Timeline(), (QStringList{
                                  u"@0 status \"Reading %1\""_s.arg(path),
                                  u"@0 status \" Sending Line 1\""_s,
                                  u"@0 send <ID1A><L01><P007><SA><CA>AB [CR][LF]"_s,
                                  u"@30 status \" Sending Line 1 <--- Ack\""_s,
                                  u"@30 status \" Sending Line 2\""_s,
                                  u"@30 send <ID1A><L02><P007><SC><CB>CD [CR][LF]"_s,
                                  u"@130 tick"_s,
                                  u"@170 status \" Sending Line 2 <--- Ack\""_s,
                                  u"@270 tick"_s,
                                  u"@370 tick"_s,
                              }));
}

TEST_F(MessageTransmission, TimelineOfASuccessOnTheThirdAttempt) {
  link_.StaySilent();
  link_.StaySilent();
  link_.AnswerAfter(10, "<ID1A>\r\n");
  link_.AnswerAfter(10, "<ID1A>\r\n");
  const QString path = File({"<L01><SA><CA>A", "<L02>"});
  EXPECT_TRUE(Send(path, 26, {2, 96}));
  const QString attempt = u" send <ID1A><L01><P007><SA><CA>A [CR][LF]"_s;
  QStringList expected{u"@0 status \"Reading %1\""_s.arg(path)};
  expected << u"@0 status \" Sending Line 1\""_s << u"@0"_s + attempt << TicksAt(100, 1100)
           << u"@1100 status \" Sending Line 1\""_s << u"@1100"_s + attempt << TicksAt(1200, 2200)
           << u"@2200 status \" Sending Line 1\""_s << u"@2200"_s + attempt
           << u"@2210 status \" Sending Line 1 <--- Ack\""_s
           << u"@2210 status \" Sending Line 2\""_s << u"@2210 send <ID1A><L02><P007> [CR][LF]"_s
           << u"@2220 status \" Sending Line 2 <--- Ack\""_s << TicksAt(2320, 2420);
  EXPECT_EQ(time_.Timeline(), expected);
}

TEST_F(MessageTransmission, TimelineOfFiveFailures) {
  const QString path = File({"<L01><SA><CA>A", "<L02>"});
  EXPECT_FALSE(Send(path, 26, {2, 96}));
  QStringList expected{u"@0 status \"Reading %1\""_s.arg(path)};
  for (int attempt = 0; attempt < 5; ++attempt) {
    const int from = 1100 * attempt;
    expected << u"@%1 status \" Sending Line 1\""_s.arg(from)
             << u"@%1 send <ID1A><L01><P007><SA><CA>A [CR][LF]"_s.arg(from)
             << TicksAt(from + 100, from + 1100);
  }
  EXPECT_EQ(time_.Timeline(), expected);
  EXPECT_EQ(time_.Now(), 5500) << "no pause follows the fifth failure";
  EXPECT_EQ(timer_.last_ack_status, -1);
}

TEST_F(MessageTransmission, TimelineOfAWrongAnswerOfEightBytes) {
  link_.AnswerAfter(20, "<ID1B>\r\n");
  link_.AnswerAfter(20, "<ID1A>\r\n");
  link_.AnswerAfter(20, "<ID1A>\r\n");
  const QString path = File({"<L01>", "<L02>"});
  EXPECT_TRUE(Send(path, 26, {2, 96}));
  EXPECT_EQ(time_.Timeline(), (QStringList{
                                  u"@0 status \"Reading %1\""_s.arg(path),
                                  u"@0 status \" Sending Line 1\""_s,
                                  u"@0 send <ID1A><L01><P007> [CR][LF]"_s,
                                  u"@20 status \" Sending Line 1\""_s,
                                  u"@20 send <ID1A><L01><P007> [CR][LF]"_s,
                                  u"@40 status \" Sending Line 1 <--- Ack\""_s,
                                  u"@40 status \" Sending Line 2\""_s,
                                  u"@40 send <ID1A><L02><P007> [CR][LF]"_s,
                                  u"@60 status \" Sending Line 2 <--- Ack\""_s,
                                  u"@160 tick"_s,
                                  u"@260 tick"_s,
                              }));
}

TEST_F(MessageTransmission, TimelineOfNineBytes) {
  link_.AnswerAfter(20, "!<ID1A>\r\n");
  link_.AnswerAfter(20, "<ID1A>\r\n");
  link_.AnswerAfter(20, "<ID1A>\r\n");
  const QString path = File({"<L01>", "<L02>"});
  EXPECT_TRUE(Send(path, 26, {2, 96}));
  QStringList expected{u"@0 status \"Reading %1\""_s.arg(path)};
  expected << u"@0 status \" Sending Line 1\""_s << u"@0 send <ID1A><L01><P007> [CR][LF]"_s
           << TicksAt(100, 1100) << u"@1100 status \" Sending Line 1\""_s
           << u"@1100 send <ID1A><L01><P007> [CR][LF]"_s
           << u"@1120 status \" Sending Line 1 <--- Ack\""_s
           << u"@1120 status \" Sending Line 2\""_s << u"@1120 send <ID1A><L02><P007> [CR][LF]"_s
           << u"@1140 status \" Sending Line 2 <--- Ack\""_s << TicksAt(1240, 1340);
  EXPECT_EQ(time_.Timeline(), expected);
}

TEST_F(MessageTransmission, TimelineOfAnAnswerInPieces) {
  link_.AnswerAfter(20, "<I");
  link_.AndAfter(120, "D1A>");
  link_.AndAfter(220, "\r\n");
  link_.AnswerAfter(0, "<ID1A>\r\n");
  const QString path = File({"<L01>", "<L02>"});
  EXPECT_TRUE(Send(path, 26, {2, 96}));
  EXPECT_EQ(time_.Timeline(), (QStringList{
                                  u"@0 status \"Reading %1\""_s.arg(path),
                                  u"@0 status \" Sending Line 1\""_s,
                                  u"@0 send <ID1A><L01><P007> [CR][LF]"_s,
                                  u"@100 tick"_s,
                                  u"@200 tick"_s,
                                  u"@220 status \" Sending Line 1 <--- Ack\""_s,
                                  u"@220 status \" Sending Line 2\""_s,
                                  u"@220 send <ID1A><L02><P007> [CR][LF]"_s,
                                  u"@220 status \" Sending Line 2 <--- Ack\""_s,
                                  u"@320 tick"_s,
                                  u"@420 tick"_s,
                              }));
}

TEST_F(MessageTransmission, TimelineForPanelId0) {
  const QString path = File({"<L01>", "<L02>"});
  EXPECT_TRUE(Send(path, 0, {2, 96}));
  EXPECT_EQ(time_.Timeline(), (QStringList{
                                  u"@0 status \"Reading %1\""_s.arg(path),
                                  u"@0 status \" Sending Line 1\""_s,
                                  u"@0 send <ID00><L01><P007> [CR][LF]"_s,
                                  u"@0 status \" Sending Line 1 <--- Ack\""_s,
                                  u"@0 status \" Sending Line 2\""_s,
                                  u"@0 send <ID00><L02><P007> [CR][LF]"_s,
                                  u"@0 status \" Sending Line 2 <--- Ack\""_s,
                                  u"@100 tick"_s,
                                  u"@200 tick"_s,
                              }));
}

TEST_F(MessageTransmission, ATransmissionToId0IsFinishedWhenItsBytesHaveLeft) {
  link_.SendAt(1200);
  // 2 frames of 20 and 100 bytes: a second.
  const QString path = File({"<L01>", "<L02>" + QByteArray(80, 'x')});
  EXPECT_TRUE(Send(path, 0, {2, 96}));
  EXPECT_EQ(time_.Timeline().mid(4, 2),
            (QStringList{u"@0 status \" Sending Line 2\""_s,
                         u"@0 send <ID00><L02><P007>"_s + QString(80, u'x') + u" [CR][LF]"_s}))
      << "no pause between the rows";
  EXPECT_EQ(time_.Now(), 1000 + 200) << "the pause begins when everything has left";
}

TEST_F(MessageTransmission, ATransmissionToId0OverALineThatTakesNothingHasFailed) {
  link_.SendAt(0);
  EXPECT_FALSE(Send(File({"<L01>", "<L02>" + QByteArray(80, 'x')}), 0, {2, 96}));
  // 120 bytes at 9600, a quarter and two seconds more, and no pause.
  EXPECT_EQ(time_.Now(), 125 + 31 + 2000);
  EXPECT_EQ(time_.Timeline().last(), u"@2156 close"_s);
}

TEST_F(MessageTransmission, APageToId0OverALineThatIsLostBehindItsLastRowHasFailed) {
  link_.SendAt(300);
  link_.StaySilent();
  link_.LoseAfter(40);
  EXPECT_FALSE(Send(File({"<L01>", "<L02>"}), 0, {2, 96}));
  EXPECT_EQ(time_.Now(), 40);
}

TEST_F(MessageTransmission, APageThatIsAcknowledgedAheadOfItsLastFramesIsFinishedWhenTheyHaveLeft) {
  link_.SendAt(1200);
  // A frame of 120 bytes: a second.
  link_.AnswerAfter(30, "<ID1A>\r\n");
  EXPECT_TRUE(Send(File({"<L01>" + QByteArray(100, 'x')}), 26, {1, 96}));
  EXPECT_EQ(time_.Now(), 1000 + 200) << "the pause begins when everything has left";
}

TEST_F(MessageTransmission, APageThatIsAcknowledgedAndNeverLeavesHasFailed) {
  link_.SendAt(0);
  link_.AnswerAfter(30, "<ID1A>\r\n");
  EXPECT_FALSE(Send(File({"<L01>"}), 26, {1, 96}));
}

TEST_F(MessageTransmission, ThePacingOfAcknowledgedFramesDoesNotDependOnWhatHasLeft) {
  for (const int speed : {0, 300, 115200}) {
    SCOPED_TRACE(speed);
    const qint64 begin = time_.Now();
    const qsizetype sent = link_.Written().size();
    link_.SendAt(speed);
    link_.AnswerAfter(30, "<ID1A>\r\n");
    EXPECT_FALSE(Send(File({"<L01>" + QByteArray(5000, 'x'), "<L02>"}), 26, {2, 96}));
    EXPECT_EQ(link_.Written().size() - sent, 1 + 5);
    EXPECT_EQ(time_.Now() - begin, 30 + 5 * 1100);
  }
  EXPECT_FALSE(time_.Timeline().last().endsWith(u"close"_s));
}

TEST_F(MessageTransmission, AFailureOnLine3Of8LeavesLines1And2OnThePanelAndSendsNothingMore) {
  folder_.Configure("[Dimension Config]\r\nID026=8x96,Tri,10.0.0.26:80\r\n");
  QList<QByteArray> lines;
  for (int row = 1; row <= 8; ++row) lines.append("<L0" + QByteArray::number(row) + ">x");
  link_.AnswerAfter(1, "<ID1A>\r\n");
  link_.AnswerAfter(1, "<ID1A>\r\n");
  EXPECT_FALSE(Send(File(lines), 26, {8, 96}));
  EXPECT_EQ(link_.Written(),
            (QList<QByteArray>{"<ID1A><L01><P007>x \r\n", "<ID1A><L02><P007>x \r\n",
                               "<ID1A><L03><P007>x \r\n", "<ID1A><L03><P007>x \r\n",
                               "<ID1A><L03><P007>x \r\n", "<ID1A><L03><P007>x \r\n",
                               "<ID1A><L03><P007>x \r\n"}));
  EXPECT_EQ(time_.Now(), 2 + 5 * 1100);
}

TEST_F(MessageTransmission, ALineLostInMidTransferEndsTheAttemptsAtOnce) {
  link_.AnswerAfter(1, "<ID1A>\r\n");
  link_.LoseAfter(50);
  EXPECT_FALSE(Send(File({"<L01>", "<L02>"}), 26, {2, 96}));
  EXPECT_EQ(time_.Now(), 51);
  EXPECT_EQ(link_.Written().size(), 2);
}

TEST_F(MessageTransmission, OverALostLineNothingIsSentToAllPanelsEither) {
  link_.LoseAfter(0);
  link_.Write("the last frame of an earlier exchange");
  while (!link_.IsLost()) time_.Advance();
  EXPECT_FALSE(Send(File({"<L01>", "<L02>"}), 0, {2, 96}));
  EXPECT_EQ(link_.Written().size(), 1);
}

TEST_F(MessageTransmission, TheEndOfTheProgramEndsTheAttemptsAtOnce) {
  timer_.EndProgram();
  EXPECT_FALSE(Send(File({"<L01>", "<L02>"}), 26, {2, 96}));
  EXPECT_EQ(link_.Written().size(), 1);
}

TEST_F(MessageTransmission, WhatTheLinkHasReceivedBeforeALineIsDiscarded) {
  link_.Receive("<ID1A>\r\nleft over");
  link_.AnswerAfter(70, "<ID1A>\r\n");
  link_.AnswerAfter(0, "<ID1A>\r\n");
  EXPECT_TRUE(Send(File({"<L01>", "<L02>"}), 26, {2, 96}));
  EXPECT_EQ(time_.Now(), 70 + 200);
}

TEST_F(MessageTransmission,
       AFileWhoseRowsHeaderSays8SentToA16RowPanelIsRefusedBeforeAnythingIsSent) {
  EXPECT_FALSE(Send(folder_.Write(u"page.msg"_s, MessageFile(8, 96, QList<QByteArray>(8, "<L01>"))),
                    26, {16, 96}));
  EXPECT_TRUE(link_.Written().isEmpty());
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(MessageTransmission, AFileWith4DotColumnsIsRefusedEvenIfThePanelAlsoHas4) {
  EXPECT_FALSE(
      Send(folder_.Write(u"page.msg"_s, MessageFile(2, 4, {"<L01>abc", "<L02>"})), 26, {2, 4}));
  EXPECT_TRUE(link_.Written().isEmpty());
}

TEST_F(MessageTransmission, AFileWith5DotColumnsIsSent) {
  for (int row = 0; row < 2; ++row) link_.AnswerAfter(1, "<ID1A>\r\n");
  EXPECT_TRUE(
      Send(folder_.Write(u"page.msg"_s, MessageFile(2, 5, {"<L01>abc", "<L02>"})), 26, {2, 5}));
}

TEST_F(MessageTransmission, MoreThan12RowsAreRefusedBeforeAnythingIsSent) {
  EXPECT_FALSE(
      Send(folder_.Write(u"page.msg"_s, MessageFile(13, 96, QList<QByteArray>(13, "<L01>"))), 26,
           {13, 96}));
  EXPECT_TRUE(link_.Written().isEmpty());
}

TEST_F(MessageTransmission, FewerRowLinesThanRowsAreRefusedBeforeAnythingIsSent) {
  EXPECT_FALSE(Send(folder_.Write(u"page.msg"_s, MessageFile(2, 96, {"<L01>"})), 26, {2, 96}));
  EXPECT_TRUE(link_.Written().isEmpty());
}

TEST_F(MessageTransmission, ANegativeRowCountIsRefused) {
  EXPECT_FALSE(Send(folder_.Write(u"page.msg"_s, MessageFile(-2, 96, {"<L01>"})), 26, {-2, 96}));
}

TEST_F(MessageTransmission, AFileOf29BytesIsRefused) {
  const QByteArray content = "*** Brivon Message File ***\r\n";
  ASSERT_EQ(content.size(), 29);
  EXPECT_FALSE(Send(folder_.Write(u"page.msg"_s, content), 26, {0, 0}));
}

TEST_F(MessageTransmission, APageOfTwelveRowsIsSentWhole) {
  QList<QByteArray> lines;
  for (const char* tag : {"<L01>", "<L02>", "<L03>", "<L04>", "<L05>", "<L06>", "<L07>", "<L08>",
                          "<L09>", "<L10>", "<L11>", "<L12>"}) {
    lines.append(QByteArray(tag) + "<SA><CA>x");
    link_.AnswerAfter(1, "<ID1A>\r\n");
  }
  EXPECT_TRUE(Send(File(lines), 26, {12, 96}));
  ASSERT_EQ(link_.Written().size(), 12);
  EXPECT_EQ(link_.Written()[0], "<ID1A><L01><P007><SA><CA>x \r\n");
  EXPECT_EQ(link_.Written()[11], "<ID1A><L12><P007><SA><CA>x \r\n");
}

TEST_F(MessageTransmission, DateTimeAndGraphicsBecomeThePanelsCodes) {
  EXPECT_EQ(FirstFrame("<L01><SA><CA>Today DD MMM YYYY at HH:MM ~A", 26),
            "<ID1A><L01><P007><SA><CA>Today <DD> at <DT> <GA> \r\n");
}

TEST_F(MessageTransmission, AGraphicWhoseCharactersDifferInColourGoesByTheLiteralText) {
  EXPECT_EQ(FirstFrame("<L01><SA><CA>~<CB>A", 26), "<ID1A><L01><P007><SA><CA><G<>CB>A \r\n");
}

TEST_F(MessageTransmission, ADateBrokenByACodeStaysAsItIs) {
  EXPECT_EQ(FirstFrame("<L01><SA><CA>DD <CB>MMM YYYY", 26),
            "<ID1A><L01><P007><SA><CA>DD <CB>MMM YYYY \r\n");
}

TEST_F(MessageTransmission, ATildeAtTheEndStaysATilde) {
  EXPECT_EQ(FirstFrame("<L01><SA><CA>x~", 26), "<ID1A><L01><P007><SA><CA>x~ \r\n");
}

TEST_F(MessageTransmission, AThreeColourPanelReceivesTheColourCodesUnchanged) {
  EXPECT_EQ(FirstFrame("<L01><SA><CA>A<CP>B", 26), "<ID1A><L01><P007><SA><CA>A<CP>B \r\n");
}

TEST_F(MessageTransmission, ASingleColourPanelReceivesNoColourCodeAndATrimmedText) {
  EXPECT_EQ(FirstFrame("<L01><CA>  A<CP>B  ", 3), "<ID03><L01><P007>AB \r\n");
}

TEST_F(MessageTransmission, ARowLineWithoutABracketIsAllText) {
  EXPECT_EQ(FirstFrame("Plain text", 26), "<ID1A>Plain<P007>Plain text \r\n");
}

TEST_F(MessageTransmission, AShortRowTagGivesItsFirstFiveCharactersAsTheyStand) {
  EXPECT_EQ(FirstFrame("<L1>ABC", 26), "<ID1A><L1>A<P007>ABC \r\n");
}

TEST_F(MessageTransmission, ARowLineOfThreeBytesIsCopiedWhole) {
  EXPECT_EQ(FirstFrame("abc", 26), "<ID1A>abc<P007>abc \r\n");
}

}  // namespace
}  // namespace Brivon1
