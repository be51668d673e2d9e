#include "command/commands.h"

#include <gtest/gtest.h>

#include "support/program_folder.h"
#include "support/virtual_time.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class Commands : public testing::Test {
 protected:
  Commands() { folder_.Configure("[Communication]\r\nDelay Period=200\r\n"); }

  CommandReport Run(PanelCommand command, int id, const QString& page = {},
                    SendMode mode = SendMode::kSerial) {
    OpenLine line{link_, timer_, clock_, Store(), [](const QString&) {}};
    line.configuration.send_mode = mode == SendMode::kTcp ? "TCPIP" : "RS232";
    const QDateTime now(QDate(2025, 3, 5), QTime(14, 7, 9));
    return CarryOutCommand(line, command, id, page, now);
  }

  TemporaryProgramFolder folder_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
};

void ExpectReport(const CommandReport& report, const QString& text, const QString& title,
                  bool succeeded) {
  EXPECT_EQ(report.text.join(QLatin1Char(' ')), text);
  EXPECT_EQ(report.title, title);
  EXPECT_EQ(report.succeeded, succeeded);
}

const QString kTitle = u"Command"_s;

TEST_F(Commands, APollThatIsAnsweredOnTheThirdAttemptReportsSuccessAfterTwoPausesOfDelayPeriod) {
  link_.StaySilent();
  link_.StaySilent();
  link_.AnswerAfter(50, "<ID1A>\r\n");
  ExpectReport(Run(PanelCommand::kPolling, 26), u"Command is sent successfully!"_s, kTitle, true);
  const QString frame = u" send <ID1A><?>[CR][LF]"_s;
  QStringList expected{u"@0"_s + frame};
  expected << TicksAt(100, 1100) << TicksAt(1200, 1300) << u"@1300"_s + frame << TicksAt(1400, 2400)
           << TicksAt(2500, 2600) << u"@2600"_s + frame;
  EXPECT_EQ(time_.Timeline(), expected);
  EXPECT_EQ(time_.Now(), 2650);
}

TEST_F(Commands, AfterTheFifthFailureThePauseIsStillTaken) {
  ExpectReport(Run(PanelCommand::kPolling, 26), u"Polling error!"_s, kTitle, false);
  EXPECT_EQ(link_.Written(), QList<QByteArray>(5, "<ID1A><?>\r\n"));
  EXPECT_EQ(time_.Now(), 5 * (1100 + 200));
}

TEST_F(Commands, AWrongAnswerIsFollowedByThePauseToo) {
  link_.AnswerAfter(10, "<ID1a>\r\n");
  link_.AnswerAfter(10, "<ID1A>\r\n");
  EXPECT_TRUE(Run(PanelCommand::kPolling, 26).succeeded);
  EXPECT_EQ(time_.Now(), 10 + 200 + 10);
}

TEST_F(Commands, ALostLineEndsTheAttemptsWithoutAPause) {
  link_.LoseAfter(30);
  ExpectReport(Run(PanelCommand::kDeleteAll, 26), u"Transmission error!"_s, kTitle, false);
  EXPECT_EQ(time_.Now(), 30);
}

TEST_F(Commands, OverALostLineNoPanelHasObeyed) {
  link_.LoseAfter(0);
  link_.Write("the last frame of an earlier exchange");
  while (!link_.IsLost()) time_.Advance();
  ExpectReport(Run(PanelCommand::kDeleteAll, 0), u"Transmission error!"_s, kTitle, false);
  EXPECT_EQ(link_.Written().size(), 1);
}

TEST_F(Commands, Panel200IsAddressedAsC8AndDeletingItsPage7SendsThreeDigits) {
  link_.AnswerAfter(1, "<IDC8>\r\n");
  ExpectReport(Run(PanelCommand::kDeletePage, 200, u"7"_s), u"Page 7 is deleted."_s, kTitle, true);
  EXPECT_EQ(link_.Written(), QList<QByteArray>{"<IDC8><D007>\r\n"});
}

TEST_F(Commands, RunPageReportsThePageAsEnteredUnderItsOwnTitle) {
  link_.AnswerAfter(1, "<ID01>\r\n");
  ExpectReport(Run(PanelCommand::kRunPage, 1, u"012"_s), u"Page 012 is running."_s, u"Run page"_s,
               true);
  EXPECT_EQ(link_.Written(), QList<QByteArray>{"<ID01><RP012>\r\n"});
}

TEST_F(Commands, DeleteAll) {
  link_.AnswerAfter(1, "<ID01>\r\n");
  ExpectReport(Run(PanelCommand::kDeleteAll, 1), u"All pages are deleted!"_s, kTitle, true);
  EXPECT_EQ(link_.Written(), QList<QByteArray>{"<ID01><D*>\r\n"});
}

TEST_F(Commands, DeleteAndRunThatFailSayTransmissionError) {
  for (const PanelCommand command :
       {PanelCommand::kDeleteAll, PanelCommand::kDeletePage, PanelCommand::kRunPage}) {
    ExpectReport(Run(command, 1, u"1"_s), u"Transmission error!"_s, kTitle, false);
  }
  EXPECT_EQ(link_.Written().size(), 15);
}

TEST_F(Commands, PanelId0ObeysWithoutAnswering) {
  EXPECT_TRUE(Run(PanelCommand::kDeleteAll, 0).succeeded);
  EXPECT_EQ(link_.Written(), QList<QByteArray>{"<ID00><D*>\r\n"});
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Commands, ACommandToPanelId0IsDoneWhenItsBytesHaveLeft) {
  link_.SendAt(300);
  EXPECT_TRUE(Run(PanelCommand::kDeleteAll, 0).succeeded);
  EXPECT_EQ(time_.Now(), 400);  // 12 bytes
}

TEST_F(Commands, ACommandToPanelId0OverALineThatTakesNothingHasFailed) {
  link_.SendAt(0);
  ExpectReport(Run(PanelCommand::kDeleteAll, 0), u"Transmission error!"_s, kTitle, false);
  EXPECT_EQ(link_.Written().size(), 1);
  EXPECT_EQ(time_.Now(), 12 + 3 + 2000);  // 12 bytes at 9600
}

TEST_F(Commands, SetClockOverTheSerialLineWaitsOnceAndIsDoneWhateverTheAnswer) {
  ExpectReport(Run(PanelCommand::kSetClock, 26), u"Set clock is done!"_s, kTitle, true);
  EXPECT_EQ(link_.Written(), QList<QByteArray>{"<T2503053140709>\r\n"});
  EXPECT_EQ(time_.Now(), 1100);
}

TEST_F(Commands, SetClockOfAllPanelsIsDoneWhenItHasLeft) {
  link_.SendAt(300);
  ExpectReport(Run(PanelCommand::kSetClock, 0), u"Set clock is done!"_s, kTitle, true);
  EXPECT_EQ(time_.Now(), 600) << "18 bytes";
}

TEST_F(Commands, SetClockThatIsStoppedIsATransmissionError) {
  link_.SendAt(300);
  for (const int id : {0, 26}) {
    timer_.stop = {};
    time_.Schedule(time_.Now() + 50, [this] { timer_.stop.made = true; });
    ExpectReport(Run(PanelCommand::kSetClock, id), u"Transmission error!"_s, kTitle, false);
  }
}

TEST_F(Commands, SetClockOverTcpReportsFinishedEvenWhenNoPanelAnswers) {
  ExpectReport(Run(PanelCommand::kSetClock, 26, {}, SendMode::kTcp), u"Set Clock Finished!"_s,
               kTitle, true);
  EXPECT_EQ(link_.Written(), QList<QByteArray>{"<T2503053140709>\r\n"});
  EXPECT_EQ(link_.Reads(), 0);
  EXPECT_EQ(time_.Now(), 0);
}

TEST_F(Commands, PageNumberOfDeleteAndRunIsCheckedAgainst1To120) {
  EXPECT_FALSE(IsPageNumber(u"0"_s));
  EXPECT_TRUE(IsPageNumber(u"1"_s));
  EXPECT_TRUE(IsPageNumber(u"001"_s));
  EXPECT_TRUE(IsPageNumber(u"120"_s));
  EXPECT_FALSE(IsPageNumber(u"121"_s));
  EXPECT_FALSE(IsPageNumber(u"-1"_s));
  EXPECT_FALSE(IsPageNumber(u""_s));
  EXPECT_FALSE(IsPageNumber(u"abc"_s));
  EXPECT_FALSE(IsPageNumber(u"99999999999999999999"_s));
}

TEST_F(Commands, TheHighestPageStandsInItsFrameWithAllItsDigits) {
  link_.AnswerAfter(10, "<ID1A>\r\n");
  EXPECT_TRUE(Run(PanelCommand::kDeletePage, 26, u"120"_s).succeeded);
  link_.AnswerAfter(10, "<ID1A>\r\n");
  EXPECT_TRUE(Run(PanelCommand::kRunPage, 26, u"120"_s).succeeded);
  EXPECT_EQ(link_.Written(), (QList<QByteArray>{"<ID1A><D120>\r\n", "<ID1A><RP120>\r\n"}));
}

TEST_F(Commands, WhatDeletesSaysWhatOfAPanelAndOfAllPanels) {
  EXPECT_EQ(WhatItDeletes(PanelCommand::kDeleteAll, 1), u"Deletes every page of %1"_s);
  EXPECT_EQ(WhatItDeletes(PanelCommand::kDeletePage, 1), u"Deletes one page of %1"_s);
  EXPECT_EQ(WhatItDeletes(PanelCommand::kDeleteAll, 0), u"Deletes every page of all panels"_s);
  EXPECT_EQ(WhatItDeletes(PanelCommand::kDeletePage, 0), u"Deletes one page of all panels"_s);
  for (const auto command :
       {PanelCommand::kPolling, PanelCommand::kSetClock, PanelCommand::kRunPage}) {
    EXPECT_EQ(WhatItDeletes(command, 1), QString());
  }
}

TEST_F(Commands, OnlyDeletePageAndRunPageNeedAPage) {
  EXPECT_FALSE(NeedsPage(PanelCommand::kPolling));
  EXPECT_FALSE(NeedsPage(PanelCommand::kSetClock));
  EXPECT_FALSE(NeedsPage(PanelCommand::kDeleteAll));
  EXPECT_TRUE(NeedsPage(PanelCommand::kDeletePage));
  EXPECT_TRUE(NeedsPage(PanelCommand::kRunPage));
}

}  // namespace
}  // namespace Brivon1
