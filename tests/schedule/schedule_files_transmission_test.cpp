// Which files a schedule needs, and what is said about those that cannot be sent.
#include <gtest/gtest.h>

#include "schedule/schedule_transmission.h"
#include "schedule/schedule_transmission_fixture.h"
#include "support/use_code_page.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

// ---- the message files --------------------------------------------------------------------------

TEST_F(ScheduleTransmission, TheSameMessageFileInThreeSequencesIsSentOnceAndAllCarryTheSamePage) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString b = Message(u"b.msg"_s, "B");
  Answer(3);
  EXPECT_TRUE(Send(ScheduleOf({{a, "1"}, {b, "2"}, {a, "3"}, {a, "4"}})));
  EXPECT_EQ(link_.Written(),
            (QList<QByteArray>{"<ID0A><L01><P001>A \r\n", "<ID0A><L01><P002>B \r\n",
                               "<ID0A><TA>*****00101A,00202A,00103A,00104A\r\n"}));
}

TEST_F(ScheduleTransmission, ANameWithoutAFoldersFullPathIsThatOfAFileInTheProgramsFolder) {
  const QString a = Message(u"a.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf({{u"a.msg"_s}})));
  EXPECT_EQ(link_.Written().value(0), "<ID0A><L01><P001>A \r\n");
  shown_.clear();
  EXPECT_FALSE(Send(ScheduleOf({{u"missing.msg"_s}})));
  EXPECT_EQ(shown_, QStringList(u"File not found: missing.msg"_s));
}

TEST_F(ScheduleTransmission, PathsAreComparedWithoutRegardToCase) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString capital = folder_.Path(u"A.MSG"_s);
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf({{a}, {capital}})));
  EXPECT_EQ(link_.Written(),
            (QList<QByteArray>{"<ID0A><L01><P001>A \r\n", "<ID0A><TA>*****00105A,00105A\r\n"}));
}

TEST_F(ScheduleTransmission, ASingleColourPanelReceivesTheMessageFilesWithoutColours) {
  for (int i = 0; i < 2; ++i) link_.AnswerAfter(1, "<ID03>\r\n");
  EXPECT_TRUE(Send(ScheduleOf({{Message(u"a.msg"_s, "<SA><CB>A")}}), 3));
  EXPECT_EQ(link_.Written().value(0), "<ID03><L01><P001><SA>A \r\n");
}

TEST_F(ScheduleTransmission, AllPanelsAreSentToWithoutWaitingForAnAnswer) {
  EXPECT_TRUE(Send(ScheduleOf({{Message(u"a.msg"_s, "A")}}), 0));
  EXPECT_EQ(link_.Written(),
            (QList<QByteArray>{"<ID00><L01><P001>A \r\n", "<ID00><TA>*****00105A\r\n"}));
  EXPECT_EQ(time_.Now(), 200 + 3 * 200);
}

TEST_F(ScheduleTransmission, AScheduleForAllPanelsIsFinishedWhenItsBytesHaveLeft) {
  link_.SendAt(300);
  const QString a = Message(u"a.msg"_s, "A");
  EXPECT_TRUE(Send(ScheduleOf({{a}}), 0));
  // A page of 21 bytes and the four pauses behind it, then a schedule of 23.
  const QStringList timeline = time_.Timeline();
  EXPECT_TRUE(timeline.contains(u"@1500 send <ID00><TA>*****00105A[CR][LF]"_s))
      << timeline.join(QLatin1Char('\n')).toStdString();
  EXPECT_EQ(timeline.last(), u"@2270 status \"<--- Ack\""_s);
}

TEST_F(ScheduleTransmission, AScheduleForAllPanelsOverALineThatTakesNothingHasFailed) {
  const QString a = Message(u"a.msg"_s, "A");
  link_.SendAt(0);
  EXPECT_FALSE(Send(ScheduleOf({{a}}), 0));
  EXPECT_EQ(shown_, QStringList(u"Error in sending %1!"_s.arg(a)));
  EXPECT_EQ(link_.Written().size(), 1) << "the schedule does not follow a page that has not left";
}

TEST_F(ScheduleTransmission, AFailureInTheSecondFileNamesItAndSendsNothingMore) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString b = Message(u"b.msg"_s, "B");
  const QString c = Message(u"c.msg"_s, "C");
  Answer(1);
  EXPECT_FALSE(Send(ScheduleOf({{a}, {b}, {c}})));
  EXPECT_EQ(shown_, QStringList(u"Error in sending %1!"_s.arg(b)));
  QList<QByteArray> frames{"<ID0A><L01><P001>A \r\n"};
  for (int attempt = 0; attempt < 5; ++attempt) frames.append("<ID0A><L01><P002>B \r\n");
  EXPECT_EQ(link_.Written(), frames);
}

TEST_F(ScheduleTransmission, AMessageFileThatEndsEarlyIsAnErrorInSending) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString cut =
      folder_.Write(u"cut.msg"_s, "*** Brivon Message File ***\r\nRow = 1\r\nCol = 96\r\n");
  Answer(1);
  EXPECT_FALSE(Send(ScheduleOf({{a}, {cut}})));
  EXPECT_EQ(shown_, QStringList(u"Error in sending %1!"_s.arg(cut)));
  EXPECT_EQ(link_.Written(), QList<QByteArray>{"<ID0A><L01><P001>A \r\n"});
}

TEST_F(ScheduleTransmission, AMissingMessageFileIsFoundBeforeAnythingIsSent) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString missing = Path(u"missing.msg"_s);
  ExpectRefused(ScheduleOf({{a}, {missing}}), u"File not found: "_s + missing);
}

TEST_F(ScheduleTransmission, OfANameThatNoFileCanHaveTheStartIsShown) {
  // A whole line of a megabyte would keep a message box busy for many seconds.
  const QString endless(1000000, QLatin1Char('x'));
  ExpectRefused(ScheduleOf({{endless}}), u"File not found: "_s + QString(4096, QLatin1Char('x')));
  const QString longest(4096, QLatin1Char('x'));
  ExpectRefused(ScheduleOf({{longest}}), u"File not found: "_s + longest);
}

TEST_F(ScheduleTransmission, EndlessPathsAndFeaturesInTheSlowestLetterAreRefused) {
  const UseCodePage western(1252);
  // Upper case makes two letters of this one and moves all that stands behind it, so that a line
  // of a megabyte would take seconds each time.
  const QString endless((1 << 20) - 1, QChar(0xDF));
  QList<Step> steps;
  for (int i = 0; i < 32; ++i) {
    steps.append({QChar(u'a' + i % 26) + endless, "1", endless.toLatin1()});
  }
  ExpectRefused(ScheduleOf(steps), u"File not found: a"_s + QString(4095, QChar(0xDF)));
}

TEST_F(ScheduleTransmission, AFeatureBetweenEndlessBlanksIsStillRead) {
  const QByteArray blanks(500000, ' ');
  const QString a = Message(u"a.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(
      Send(ScheduleOf({{a, "1", blanks + "flip" + blanks}, {a, "1", "flip" + blanks + "."}})));
  EXPECT_EQ(link_.Written().last(), "<ID0A><TA>*****00101B,00101A\r\n");
}

TEST_F(ScheduleTransmission, APathBetweenEndlessBlanksIsStillRead) {
  const QString blanks(500000, QLatin1Char(' '));
  const QString a = Message(u"a.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf({{blanks + a + blanks}, {a}})));
  EXPECT_EQ(link_.Written().size(), 2);
}

TEST_F(ScheduleTransmission, AFileThatIsNoMessageFileIsFoundBeforeAnythingIsSent) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString other = folder_.Write(u"other.msg"_s, "*** Some other file, long enough ***\r\n");
  ExpectRefused(ScheduleOf({{a}, {other}}), u"Error in opening file: "_s + other);
}

TEST_F(ScheduleTransmission, AMessageFileOfAnotherDimensionIsFoundBeforeAnythingIsSent) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString wide = folder_.Write(
      u"wide.msg"_s, "*** Brivon Message File ***\r\nRow = 1\r\nCol = 128\r\n<L01>W\r\n");
  ExpectRefused(ScheduleOf({{a}, {wide}}), u"Dimension Not Match: "_s + wide);
}

TEST_F(ScheduleTransmission, TheMessagesAreLookedUpAndTheFileNameIsNot) {
  folder_.UseLanguage(
      "[Message]\r\nmsgNotFound=Datei fehlt\r\nmsgErrOpen=Nicht lesbar\r\nmsgErrSend=Fehler "
      "bei\r\n");
  const QString missing = Path(u"missing.msg"_s);
  ExpectRefused(ScheduleOf({{missing}}), u"Datei fehlt: "_s + missing);
  const QString other = folder_.Write(u"other.msg"_s, "*** Some other file, long enough ***\r\n");
  ExpectRefused(ScheduleOf({{other}}), u"Nicht lesbar: "_s + other);
  const QString a = Message(u"a.msg"_s, "A");
  EXPECT_FALSE(Send(ScheduleOf({{a}})));
  EXPECT_EQ(shown_, QStringList(u"Fehler bei %1!"_s.arg(a)));
}

TEST_F(ScheduleTransmission, AScheduleWhoseSequencesNameNoFileIsEmpty) {
  ExpectRefused(ScheduleOf({{QString()}, {u"   "_s}}), u"Empty Schedule File!"_s);
}

TEST_F(ScheduleTransmission, OneBlankPathAmongOthersIsAFileThatWasNotFound) {
  const QString a = Message(u"a.msg"_s, "A");
  ExpectRefused(ScheduleOf({{a}, {QString()}}), u"File not found: "_s);
}

TEST_F(ScheduleTransmission, MoreThan26DistinctMessageFilesAreRefusedBeforeAnythingIsSent) {
  QList<Step> steps;
  for (int i = 0; i < 27; ++i) {
    steps.append({Message(u"%1.msg"_s.arg(i), "A")});
  }
  ExpectRefused(ScheduleOf(steps), {});
  steps.removeLast();
  Answer(27);
  EXPECT_TRUE(Send(ScheduleOf(steps), 10, u"J"_s));
  EXPECT_EQ(link_.Written().value(25), "<ID0A><L01><P134>A \r\n");
}

// ---- the schedule file --------------------------------------------------------------------------

TEST_F(ScheduleTransmission, BlanksAroundThePathOfTheScheduleDoNotCount) {
  folder_.Write(u"week.sch"_s, ScheduleOf({{Message(u"a.msg"_s, "A")}}));
  Answer(2);
  EXPECT_TRUE(SendFile(u"  "_s + Path(u"week.sch"_s) + QLatin1Char(' ')));
}

TEST_F(ScheduleTransmission, AMissingScheduleIsRefusedWithoutAText) {
  EXPECT_FALSE(SendFile(Path(u"nowhere.sch"_s)));
  EXPECT_FALSE(SendFile({}));
  EXPECT_TRUE(shown_.isEmpty());
}

TEST_F(ScheduleTransmission, AFileThatIsNoCompleteScheduleIsRefusedWithoutAText) {
  const QByteArray whole = ScheduleOf({{Message(u"a.msg"_s, "A")}});
  ExpectRefused(QByteArray(whole).replace("Brivon", "Other"), {});
  ExpectRefused(QByteArray(whole).replace("Row =1", "Row =0"), {});
  ExpectRefused(QByteArray(whole).replace("Col =96", "Col =0"), {});
  ExpectRefused(QByteArray(whole).replace("Sequence =1", "Sequence =0"), {});
  ExpectRefused(QByteArray(whole).replace("Sequence =1", "Sequence =33"), {});
  ExpectRefused(QByteArray(whole).replace("Sequence =1", "Sequence =2"), {});
  ExpectRefused(QByteArray(whole).replace("Week =0", "Week =8"), {});
  ExpectRefused({}, {});
}

}  // namespace
}  // namespace Brivon1
