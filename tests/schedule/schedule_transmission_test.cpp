#include "schedule/schedule_transmission.h"

#include <QFile>

#include <gtest/gtest.h>

#include "support/program_folder.h"
#include "support/use_code_page.h"
#include "support/virtual_time.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

struct Step {
  QString path;
  QByteArray delay = "5";
  QByteArray feature = "Appear";
};

/// A schedule file for a panel of 1 x 96; `slot` are its lines for weekday, hour and minute.
QByteArray ScheduleOf(const QList<Step>& steps,
                      const QByteArray& slot = "Week =0\r\nHour =**\r\nMin =**\r\n") {
  QByteArray content = "*** Brivon Schedule File ***\r\n" + slot +
                       "Row =1\r\nCol =96\r\nNo of Sequence =" + QByteArray::number(steps.size()) +
                       "\r\n";
  for (const Step& step : steps) {
    content += step.path.toLatin1().leftJustified(100, ' ') + "\r\n" + step.delay + "\r\n" +
               step.feature.leftJustified(20, ' ') + "\r\n";
  }
  return content;
}

class ScheduleTransmission : public testing::Test {
 protected:
  ScheduleTransmission() {
    folder_.Configure(
        "[Dimension Config]\r\n"
        "ID000=1x96,Tri,10.0.0.0:80\r\n"
        "ID003=1x96,Mono,10.0.0.3:80\r\n"
        "ID010=1x96,Tri,10.0.0.10:80\r\n"
        "[Communication]\r\nDelay Period=200\r\n");
  }

  /// A message file of one row of 96 dot columns that says `text`.
  QString Message(const QString& name, const QByteArray& text) {
    return folder_.Write(
        name, "*** Brivon Message File ***\r\nRow = 1\r\nCol = 96\r\n<L01>" + text + "\r\n");
  }

  QString Path(const QString& name) { return folder_.Path(name); }

  bool Send(const QByteArray& content, int id = 10, const QString& letter = u"A"_s) {
    return SendFile(folder_.Write(u"week.sch"_s, content), id, letter);
  }

  bool SendFile(const QString& path, int id = 10, const QString& letter = u"A"_s) {
    OpenLine line{link_, timer_, clock_, Store(),
                  [this](const QString& text) { time_.Note(u"status \"%1\""_s.arg(text)); }};
    return SendScheduleFile(line, path, id, letter,
                            [this](const QString& text) { shown_.append(text); });
  }

  /// Panel 10 acknowledges the next frames.
  void Answer(int frames) {
    for (int i = 0; i < frames; ++i) link_.AnswerAfter(1, "<ID0A>\r\n");
  }

  /// The frame that follows the one message file of a schedule whose lines for the time are `slot`.
  QByteArray ScheduleFrame(const QByteArray& slot, const Step& step) {
    Answer(2);
    EXPECT_TRUE(Send(ScheduleOf({step}, slot)));
    return link_.Written().value(1);
  }

  /// Expects that the schedule is refused with `text`, or without one, and that nothing was sent.
  void ExpectRefused(const QByteArray& content, const QString& text) {
    EXPECT_FALSE(Send(content));
    EXPECT_EQ(shown_, text.isEmpty() ? QStringList() : QStringList(text));
    EXPECT_TRUE(link_.Written().isEmpty());
    EXPECT_EQ(time_.Now(), 0);
    shown_.clear();
  }

  TemporaryProgramFolder folder_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
  QStringList shown_;
};

TEST_F(ScheduleTransmission, TimelineOfASuccess) {
  const QString a = Message(u"a.msg"_s, "<SA><CA>A");
  const QString b = Message(u"b.msg"_s, "<SA><CB>B");
  link_.AnswerAfter(30, "<ID0A>\r\n");
  link_.AnswerAfter(40, "<ID0A>\r\n");
  link_.AnswerAfter(50, "<ID0A>\r\n");
  EXPECT_TRUE(Send(
      ScheduleOf({{a, "5", "Appear"}, {b, "12", "Fall"}}, "Week =2\r\nHour =8\r\nMin =30\r\n")));
  QStringList expected{u"@0 status \"Reading %1\""_s.arg(a)};
  expected << u"@0 status \" Sending Line 1\""_s << u"@0 send <ID0A><L01><P001><SA><CA>A [CR][LF]"_s
           << u"@30 status \" Sending Line 1 <--- Ack\""_s << TicksAt(130, 230)
           << u"@230 status \"Reading %1\""_s.arg(b) << u"@230 status \" Sending Line 1\""_s
           << u"@230 send <ID0A><L01><P002><SA><CB>B [CR][LF]"_s
           << u"@270 status \" Sending Line 1 <--- Ack\""_s
           << TicksAt(370, 470)   // the pause behind the message file
           << TicksAt(570, 1070)  // three pauses ahead of the schedule
           << u"@1070 status \"Schedule--->\""_s
           << u"@1070 send <ID0A><TA>1083000105A,00212F[CR][LF]"_s
           << u"@1120 status \"<--- Ack\""_s;
  EXPECT_EQ(time_.Timeline(), expected);
  EXPECT_TRUE(shown_.isEmpty());
}

TEST_F(ScheduleTransmission, TheScheduleFrameIsTriedFiveTimesWithoutAPause) {
  const QString a = Message(u"a.msg"_s, "A");
  Answer(1);
  EXPECT_FALSE(Send(ScheduleOf({{a}})));
  QStringList expected{u"@0 status \"Reading %1\""_s.arg(a)};
  expected << u"@0 status \" Sending Line 1\""_s << u"@0 send <ID0A><L01><P001>A [CR][LF]"_s
           << u"@1 status \" Sending Line 1 <--- Ack\""_s << TicksAt(101, 201) << TicksAt(301, 801)
           << u"@801 status \"Schedule--->\""_s;
  for (int attempt = 0; attempt < 5; ++attempt) {
    const int from = 801 + 1100 * attempt;
    expected << u"@%1 send <ID0A><TA>*****00105A[CR][LF]"_s.arg(from)
             << TicksAt(from + 100, from + 1100);
  }
  EXPECT_EQ(time_.Timeline(), expected);
  EXPECT_TRUE(shown_.isEmpty()) << "the caller reports that the transmission failed";
}

TEST_F(ScheduleTransmission, AnAcknowledgementOfTheThirdAttemptIsASuccess) {
  Answer(1);
  link_.StaySilent();
  link_.AnswerAfter(20, "<ID0B>\r\n");
  Answer(1);
  EXPECT_TRUE(Send(ScheduleOf({{Message(u"a.msg"_s, "A")}})));
  EXPECT_EQ(link_.Written().size(), 4);
  EXPECT_EQ(time_.Now(), 801 + 1100 + 20 + 1);
}

TEST_F(ScheduleTransmission, ALateAnswerToAMessageFileIsNotTakenForThatToTheSchedule) {
  const QString a = Message(u"a.msg"_s, "A");
  link_.AnswerAfter(1, "<ID0A>\r\n");
  link_.AndAfter(300, "<ID0A>\r\n");
  EXPECT_FALSE(Send(ScheduleOf({{a}})));
  EXPECT_EQ(link_.Written().size(), 1 + 5);
}

TEST_F(ScheduleTransmission, AFileIsSentWhicheverWayTheSystemWritesTheLettersOfItsName) {
  const UseCodePage western(1252);
  const QString decomposed = Message(u"Cafe\u0301.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf({{u"Caf\u00E9.msg"_s}})));
  EXPECT_EQ(link_.Written().first(), "<ID0A><L01><P001>A \r\n");
  EXPECT_TRUE(shown_.isEmpty());
  ASSERT_TRUE(QFile::remove(decomposed));
  EXPECT_FALSE(Send(ScheduleOf({{u"Caf\u00E9.msg"_s}})));
  EXPECT_EQ(shown_, QStringList(u"File not found: Caf\u00E9.msg"_s));
}

// ---- letter -------------------------------------------------------------------------------------

TEST_F(ScheduleTransmission, LetterSmallCIsSentAsCapitalCWithPages025Onwards) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString b = Message(u"b.msg"_s, "B");
  Answer(3);
  EXPECT_TRUE(Send(ScheduleOf({{a}, {b}}), 10, u"c"_s));
  EXPECT_EQ(link_.Written(),
            (QList<QByteArray>{"<ID0A><L01><P025>A \r\n", "<ID0A><L01><P026>B \r\n",
                               "<ID0A><TC>*****02505A,02605A\r\n"}));
}

TEST_F(ScheduleTransmission, EachLetterHasItsOwnBlockOfTwelvePages) {
  const QString a = Message(u"a.msg"_s, "A");
  const QList<QByteArray> first_pages = {"001", "013", "025", "037", "049",
                                         "061", "073", "085", "097", "109"};
  for (int i = 0; i < 10; ++i) {
    Answer(2);
    const QString letter(QLatin1Char(static_cast<char>('A' + i)));
    ASSERT_TRUE(Send(ScheduleOf({{a}}), 10, letter));
    EXPECT_EQ(link_.Written()[2 * i], "<ID0A><L01><P" + first_pages[i] + ">A \r\n");
    EXPECT_EQ(link_.Written()[2 * i + 1],
              "<ID0A><T" + letter.toLatin1() + ">*****" + first_pages[i] + "05A\r\n");
  }
}

TEST_F(ScheduleTransmission, LetterKGivesPleaseEnterAToJAndNothingIsSent) {
  const QByteArray content = ScheduleOf({{Message(u"a.msg"_s, "A")}});
  for (const char* letter : {"K", "k", "", " ", "A ", "AB", "@", "1", "\xC4"}) {
    EXPECT_FALSE(Send(content, 10, QString::fromLatin1(letter)));
    EXPECT_EQ(shown_, QStringList(u"Please enter A-J"_s)) << letter;
    shown_.clear();
  }
  EXPECT_TRUE(link_.Written().isEmpty());
}

TEST_F(ScheduleTransmission, ACharacterOutsideTheCodePageIsNoLetter) {
  EXPECT_FALSE(Send(ScheduleOf({{Message(u"a.msg"_s, "A")}}), 10,
                    QString(QChar(0x0141))));  // its low byte is that of "A"
  EXPECT_EQ(shown_, QStringList(u"Please enter A-J"_s));
}

TEST_F(ScheduleTransmission, TheLetterIsCheckedBeforeTheFile) {
  EXPECT_FALSE(SendFile(Path(u"nowhere.sch"_s), 10, u"K"_s));
  EXPECT_EQ(shown_, QStringList(u"Please enter A-J"_s));
}

// ---- the schedule frame -------------------------------------------------------------------------

TEST_F(ScheduleTransmission, Week0GivesAStarAndHourOfTwoStarsStaysInTheFrame) {
  EXPECT_EQ(ScheduleFrame("Week =0\r\nHour =**\r\nMin =5\r\n", {Message(u"a.msg"_s, "A")}),
            "<ID0A><TA>***0500105A\r\n");
}

TEST_F(ScheduleTransmission, SundayIs0AndSaturdayIs6) {
  const Step step{Message(u"a.msg"_s, "A")};
  EXPECT_EQ(ScheduleFrame("Week =1\r\nHour =0\r\nMin =0\r\n", step), "<ID0A><TA>0000000105A\r\n");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf({step}, "Week =7\r\nHour =23\r\nMin =59\r\n")));
  EXPECT_EQ(link_.Written().last(), "<ID0A><TA>6235900105A\r\n");
}

TEST_F(ScheduleTransmission, AnHourThatIsNoNumberIsKeptAsItIs) {
  EXPECT_EQ(ScheduleFrame("Week =0\r\nHour =ab\r\nMin =7pm\r\n", {Message(u"a.msg"_s, "A")}),
            "<ID0A><TA>*ab7pm00105A\r\n");
}

TEST_F(ScheduleTransmission, ANumberWithBlanksOrLeadingZerosIsWrittenWithTwoDigits) {
  EXPECT_EQ(ScheduleFrame("Week =0\r\nHour = 8 \r\nMin =007\r\n", {Message(u"a.msg"_s, "A")}),
            "<ID0A><TA>*080700105A\r\n");
}

TEST_F(ScheduleTransmission, BlanksAroundAnHourThatIsNoNumberAreKeptToo) {
  EXPECT_EQ(ScheduleFrame("Week =0\r\nHour = **\r\nMin =ab \r\n", {Message(u"a.msg"_s, "A")}),
            "<ID0A><TA>* **ab 00105A\r\n");
}

TEST_F(ScheduleTransmission, ADelayIsWrittenWithAtLeastTwoDigits) {
  const QString a = Message(u"a.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf({{a, "5"}, {a, "99"}, {a, "100"}, {a, "soon"}})));
  EXPECT_EQ(link_.Written().last(), "<ID0A><TA>*****00105A,00199A,001100A,00100A\r\n");
}

TEST_F(ScheduleTransmission, AFeatureLineInAnyCaseGivesItsCode) {
  const QString a = Message(u"a.msg"_s, "A");
  QList<Step> steps;
  for (const char* feature : {"APPEAR", "Flip", "open", "Wipe Right", "wipe left", "  FALL ",
                              "Slide", "sHIFT", "Explode", "", "Wipe  Left"}) {
    steps.append({a, "1", feature});
  }
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf(steps)));
  EXPECT_EQ(link_.Written().last(),
            "<ID0A><TA>*****00101A,00101B,00101C,00101D,00101E,00101F,00101G,00101H,00101A,00101A,"
            "00101A\r\n");
}

TEST_F(ScheduleTransmission, AFeatureNameInTheUsersLanguageGivesItsCode) {
  folder_.UseLanguage("[frmDelay]\r\nListFeature.List(4)=Von links\r\n");
  const QString a = Message(u"a.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf({{a, "1", "Von links"}, {a, "1", "Flip"}, {a, "1", "von links"}})));
  EXPECT_EQ(link_.Written().last(), "<ID0A><TA>*****00101E,00101B,00101A\r\n");
}

TEST_F(ScheduleTransmission, AFrameForPanelId10BeginsWithTwoHexadecimalDigits) {
  EXPECT_TRUE(ScheduleFrame("Week =0\r\nHour =**\r\nMin =**\r\n", {Message(u"a.msg"_s, "A")})
                  .startsWith("<ID0A><T"));
}

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

TEST_F(ScheduleTransmission, ThirtyTwoSequencesAreSentInOneFrame) {
  const QString a = Message(u"a.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf(QList<Step>(32, {a, "7", "Shift"}))));
  QByteArray frame = "<ID0A><TA>*****00107H";
  for (int i = 1; i < 32; ++i) frame += ",00107H";
  EXPECT_EQ(link_.Written().last(), frame + "\r\n");
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

TEST_F(ScheduleTransmission, ALostLineEndsTheTransferWithOneText) {
  const QString a = Message(u"a.msg"_s, "A");
  const QString b = Message(u"b.msg"_s, "B");
  Answer(1);
  link_.LoseAfter(10);
  EXPECT_FALSE(Send(ScheduleOf({{a}, {b}})));
  EXPECT_EQ(shown_, QStringList(u"Error in sending %1!"_s.arg(b)));
  EXPECT_EQ(link_.Written().size(), 2);
}

}  // namespace
}  // namespace Brivon1
