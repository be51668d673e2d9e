#include "schedule/schedule_transmission.h"

#include <QFile>

#include <gtest/gtest.h>

#include "schedule/schedule_transmission_fixture.h"
#include "support/use_code_page.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

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

TEST_F(ScheduleTransmission, AnHourThatIsMissingStaysSo) {
  EXPECT_EQ(ScheduleFrame("Week =0\r\nHour =\r\nMin =\r\n", {Message(u"a.msg"_s, "A")}),
            "<ID0A><TA>*00105A\r\n");
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

TEST_F(ScheduleTransmission, ThirtyTwoSequencesAreSentInOneFrame) {
  const QString a = Message(u"a.msg"_s, "A");
  Answer(2);
  EXPECT_TRUE(Send(ScheduleOf(QList<Step>(32, {a, "7", "Shift"}))));
  QByteArray frame = "<ID0A><TA>*****00107H";
  for (int i = 1; i < 32; ++i) frame += ",00107H";
  EXPECT_EQ(link_.Written().last(), frame + "\r\n");
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
