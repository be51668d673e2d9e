#include <QLineEdit>

#include <gtest/gtest.h>

#include "schedule/send_schedule_dialog.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFailure = u"Transmission failure!"_s;
const QString kNoLink = u"Cannot create TCP link!"_s;
const QString kNoPort = u"Fail to initialize communication port!"_s;
const QString kWrongDimension = u"Dimension not matched!"_s;
const QString kEnterLetter = u"Please enter A-J"_s;

using Dialog = ScheduleDialog;

const QByteArray k2x96 = "Row =2\r\nCol =96\r\n";

/// Two message files for a panel of 2 rows, and what the panel is to receive of them as the pages
/// 1 and 2.
const QByteArray kFirstFile =
    "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n<L01><SA><CA>Open \r\n<L02>Gate 1\r\n";
const QByteArray kSecondFile =
    "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n<L01><SC>Today HH:MM\r\n<L02>~B\r\n";
const QList<QByteArray> kShortFrames = {
    "<ID1A><L01><P001><SA><CA>Open  \r\n",     "<ID1A><L02><P001>Gate 1 \r\n",
    "<ID1A><L01><P002><SC>Today <DT> \r\n",    "<ID1A><L02><P002><GB> \r\n",
    "<ID1A><TA>608**00105E,00203A,00104A\r\n",
};

class SendSchedule : public ScheduleOverLine {
 protected:
  SendSchedule() : ScheduleOverLine(2) {
    const QString first = bench_.Folder().Write(u"first.msg"_s, kFirstFile);
    const QString second = bench_.Folder().Write(u"second.msg"_s, kSecondFile);
    path_ = bench_.Folder().Write(u"week.sch"_s, ScheduleFile(k2x96, {{first, "5", "wipe left"},
                                                                      {second, "3", "Sparkle"},
                                                                      {first, "4", ""}}));
  }

  /// Makes the dialog ready to send to the bench's panel under the letter "a".
  void FillIn(Dialog& dialog) {
    dialog.ChoosePanel(0);
    dialog.TypeLetter(u"a"_s);
  }

  void ExpectTheNextSendWorks(Dialog& dialog) {
    ExpectAtRest(dialog);
    bench_.Fail({});
    const qsizetype before = bench_.Frames().size();
    EXPECT_EQ(dialog.Send(), QStringList{Finished()});
    EXPECT_EQ(bench_.Frames().mid(before), kShortFrames);
    ExpectAtRest(dialog);
  }

  QString path_;
};

INSTANTIATE_TEST_SUITE_P(Links, SendSchedule, testing::Values(LineKind::kTcp, LineKind::kSerial),
                         LineName);

TEST_P(SendSchedule, TheMessageFilesArriveAsPagesAndThenTheSchedule) {
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  QStringList statuses;
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &bench_.Engine(),
                   [&] { statuses.append(dialog.Shown("lblSendStatus")); });
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames(), kShortFrames);
  EXPECT_EQ(statuses, (QStringList{u" Sending Line 1"_s, u" Sending Line 2"_s, u" Sending Line 1"_s,
                                   u" Sending Line 2"_s, u"Schedule--->"_s}));
  EXPECT_EQ(dialog.Shown("lblSendStatus"), u"<--- Ack"_s);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, TheBoxesArePlainAndBearTheWindowsCaption) {
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  dialog.TypeLetter(u"K"_s);
  dialog.Click("butSend");
  bench_.Unplug();
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), (QStringList{Finished(), kEnterLetter, kFailure,
                                        GetParam() == LineKind::kTcp ? kNoLink : kNoPort}));
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, u"Send Schedule"_s);
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
    EXPECT_EQ(box.parent, &dialog.window);
  }
}

TEST_P(SendSchedule, ALanguageFileWithoutTheResultLeavesTheEnglishOne) {
  bench_.Folder().UseLanguage("[Message]\r\nmsgTxFail=Fehler!\r\n");
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
}

TEST_P(SendSchedule, WithoutALanguageTheLanguageFileSaysNothing) {
  bench_.Folder().Write(u"langSetting.INI"_s,
                        "[Message]\r\nmsgTxOK=Fertig!\r\nmsgSendSchOK=Zeitplan ist da!\r\n");
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
}

TEST_P(SendSchedule, ALetterTypedWhileItSendsIsForTheNextSend) {
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [&] { dialog.TypeLetter(u"b"_s); });
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames(), kShortFrames);
  EXPECT_EQ(dialog.Find<QLineEdit>("txtSchNo")->text(), u"b"_s);
}

TEST_P(SendSchedule, ALetterKIsRefusedByTheTransmissionStepWithPleaseEnterAToJ) {
  Dialog dialog(path_, bench_.Ports());
  dialog.ChoosePanel(0);
  for (const char* letter : {"k", "K", "", "ab", "1", " ", "@"}) {
    dialog.TypeLetter(QString::fromLatin1(letter));
    EXPECT_EQ(dialog.Send(), (QStringList{kEnterLetter, kFailure})) << letter;
  }
  EXPECT_TRUE(bench_.Frames().isEmpty());
  dialog.TypeLetter(u"A"_s);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, ALowerCaseLetterIsTakenAsUpperCase) {
  Dialog dialog(path_, bench_.Ports());
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"j"_s);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames().value(0), "<ID1A><L01><P109><SA><CA>Open  \r\n");
  EXPECT_EQ(bench_.Frames().value(4), "<ID1A><TJ>608**10905E,11003A,10904A\r\n");
}

TEST_P(SendSchedule, ADimensionThatDoesNotMatchIsRefusedBeforeTheLineIsOpened) {
  const QString other = bench_.Folder().Write(
      u"other.sch"_s, ScheduleFile("Row =2\r\nCol =128\r\n", {{u"a.msg"_s, "1", "Flip"}}));
  Dialog dialog(other, bench_.Ports());
  FillIn(dialog);
  bench_.Unplug();  // opening it would give a message of its own
  EXPECT_EQ(dialog.Send(), QStringList{kWrongDimension});
  EXPECT_EQ(bench_.Openings(), 0);
  EXPECT_TRUE(dialog.IsReady());
}

TEST_P(SendSchedule, AScheduleSavedForAnotherPanelSinceItWasChosenIsRefused) {
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  bench_.Folder().Write(u"week.sch"_s,
                        ScheduleFile("Row =1\r\nCol =96\r\n", {{u"a.msg"_s, "1", "Flip"}}));
  EXPECT_EQ(dialog.Send(), QStringList{kWrongDimension});
  EXPECT_EQ(dialog.Shown("lblRow"), u"1"_s);
  EXPECT_EQ(dialog.Shown("lblCol"), u"96"_s);
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

TEST_P(SendSchedule, AFileThatIsNoScheduleAnyMoreFailsInTheTransmission) {
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  bench_.Folder().Write(u"week.sch"_s, QByteArray(100, 'x'));
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_TRUE(bench_.Frames().isEmpty());
  EXPECT_TRUE(dialog.IsReady());
}

TEST_P(SendSchedule, AnEmptyScheduleFailsWithItsMessage) {
  bench_.Folder().Write(u"week.sch"_s, ScheduleFile(k2x96, {{QString(), "1", "Flip"}}));
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), (QStringList{u"Empty Schedule File!"_s, kFailure}));
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

TEST_P(SendSchedule, AScheduleFrameThatIsNeverAcknowledgedFailsWithOneMessage) {
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &bench_.Engine(),
                   [&] {
                     if (bench_.Engine().FrameCount() == 4) bench_.Fail({.garbage = true});
                   });
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_EQ(bench_.Frames(), kShortFrames.first(4) + QList<QByteArray>(5, kShortFrames.at(4)));
  EXPECT_EQ(dialog.Shown("lblSendStatus"), u"Schedule--->"_s);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, ALineLostInTheSecondFileNamesThatFileAndTheNextSendWorks) {
  bench_.Fail({.close_after_frame = 3});
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), FailedAt(u"second.msg"_s));
  EXPECT_EQ(bench_.Frames(), kShortFrames.first(3));
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, ALineLostAheadOfTheScheduleFrameFailsOnce) {
  bench_.Fail({.close_after_frame = 4});
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure}) << "one message, not one for each error";
  EXPECT_EQ(bench_.Frames(), kShortFrames.first(4));
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, APressOfSendClearsTheStatusOfTheLastOne) {
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_FALSE(dialog.Shown("lblSendStatus").isEmpty());
  dialog.TypeLetter(u"k"_s);
  EXPECT_EQ(dialog.Send(), (QStringList{kEnterLetter, kFailure}));
  EXPECT_EQ(dialog.Shown("lblSendStatus"), QString());
}

class SendScheduleOverTcp : public testing::Test {
 protected:
  SendScheduleOverTcp() : bench_(LineKind::kTcp, {{26, 2, 96, true}}) {
    const QString first = bench_.Folder().Write(u"first.msg"_s, kFirstFile);
    path_ = bench_.Folder().Write(u"week.sch"_s, ScheduleFile(k2x96, {{first, "5", "Flip"}}));
  }

  void FillIn(Dialog& dialog) {
    dialog.ChoosePanel(0);
    dialog.TypeLetter(u"A"_s);
  }

  VirtualBench bench_;
  QString path_;
  const QStringList sent_{u"Schedules file is sent successfully through network"_s};
};

TEST_F(SendScheduleOverTcp, AnEmptyTranslationOfTheResultGivesAnEmptyText) {
  bench_.Folder().UseLanguage("[Message]\r\nmsgSendSchOK=\r\n");
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{QString()});
}

TEST_F(SendScheduleOverTcp, APanelWithoutAUsableAddressGivesCannotCreateTcpLink) {
  bench_.Folder().Configure(
      "[Dimension Config]\r\nID026=2x96,Tri\r\n[Communication]\r\nSendMode=TCPIP\r\n");
  Dialog dialog(path_, bench_.Ports());
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{kNoLink});
  EXPECT_TRUE(dialog.IsReady());
}

}  // namespace
