// What every window that sends does alike about a panel or a line that fails.
#include <QComboBox>
#include <QTimer>

#include <gtest/gtest.h>

#include "sending/window_over_line.h"

using namespace Qt::StringLiterals;

namespace {

class PanelFaults : public WindowOverLineTest {
 protected:
  QList<QByteArray> FirstFrame(int times) const { return {times, window_.frames.at(0)}; }
};

INSTANTIATE_TEST_SUITE_P(All, PanelFaults, testing::ValuesIn(WindowsOverLines()),
                         WindowOverLineName);

TEST_P(PanelFaults, ASilentPanelFailsAfterFiveAttemptsAtTheFirstFrame) {
  bench_.Fail({.silent = true});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Failed());
  EXPECT_EQ(bench_.Frames(), FirstFrame(5));
  if (window_.keeps_status) {
    EXPECT_EQ(dialog.Shown("lblSendStatus"), window_.statuses.at(0));
  }
  ExpectTheNextSendWorks(dialog);
}

TEST_P(PanelFaults, APanelThatAnswersOnTheThirdAttemptGetsEveryFrame) {
  bench_.Fail({.silent_answers = 2});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(bench_.Frames(), FirstFrame(2) + window_.frames);
}

TEST_P(PanelFaults, GarbledAnswersAreRefusedFiveTimesAtOnce) {
  bench_.Fail({.garbage = true});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Failed());
  EXPECT_EQ(bench_.Frames(), FirstFrame(5));
  ExpectTheNextSendWorks(dialog);
}

TEST_P(PanelFaults, LowerCaseAnswersAreRefused) {
  bench_.Fail({.lower_case = true});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Failed());
}

TEST_P(PanelFaults, AStrayByteInFrontOfEveryAnswerFails) {
  bench_.Fail({.stray_byte = true});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Failed());
  EXPECT_EQ(bench_.Frames(), FirstFrame(5));
}

TEST_P(PanelFaults, AnswersInPiecesAndLateAreAccepted) {
  for (const int late_ms : {60, 900}) {
    bench_.Fail({.pieces = 3, .piece_pause_ms = 40, .late_ms = late_ms});
    SendDialog dialog = Open();
    const qsizetype before = bench_.Frames().size();
    EXPECT_EQ(dialog.Send(), Finished());
    EXPECT_EQ(bench_.Frames().mid(before), window_.frames);
  }
}

TEST_P(PanelFaults, AnEndlessAnswerFailsAndTheNextSendWorks) {
  bench_.Fail({.flood = true});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Failed());
  ExpectTheNextSendWorks(dialog);
}

TEST_P(PanelFaults, ALineLostBeforeTheFirstAnswerFailsOnceAndTheNextSendWorks) {
  bench_.Fail({.silent = true, .close_after_frame = 1});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Failed()) << "one message, not one for each error";
  EXPECT_EQ(bench_.Frames(), FirstFrame(1));
  ExpectTheNextSendWorks(dialog);
}

TEST_P(PanelFaults, ALineLostAfterTheLastAnswerHasSentEverything) {
  bench_.Fail({.close_after_frame = static_cast<int>(window_.frames.size())});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(bench_.Frames(), window_.frames);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(PanelFaults, ALineLostWhileTheMessageBoxIsOpenDoesNoHarm) {
  SendDialog dialog = Open();
  {
    const ModalWindowDriver box(QString(), [&](QWidget*) {
      bench_.Unplug();
      QCoreApplication::processEvents();
    });
    EXPECT_EQ(dialog.Send(), Finished());
    EXPECT_EQ(box.Count(), 1);
  }
  ExpectTheNextSendWorks(dialog);
}

TEST_P(PanelFaults, WhatCannotBeOpenedIsReportedWithItsNameAndTheNextSendWorks) {
  bench_.Unplug();
  SendDialog dialog = Open();
  {
    const MessageBoxReader boxes;
    dialog.Click("butSend");
    EXPECT_EQ(boxes.Texts(), NotOpened());
    EXPECT_EQ(boxes.Seen().value(0).informative,
              (GetParam().line == LineKind::kTcp ? u"127.0.0.1:2101"_s
                                                 : bench_.Folder().Path(u"panel-line"_s)) +
                  u": nobody is there"_s);
  }
  EXPECT_TRUE(bench_.Frames().isEmpty());
  ExpectTheNextSendWorks(dialog);
}

TEST_P(PanelFaults, APanelWithoutAnAddressIsReachedOverTheSerialLineAlone) {
  const QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
  bench_.Folder().Configure(QByteArray(ini).replace(",127.0.0.1:2101", ""));
  SendDialog dialog = Open();
  if (GetParam().line == LineKind::kSerial) {
    EXPECT_EQ(dialog.Send(), Finished());
    EXPECT_EQ(bench_.Frames(), window_.frames);
  } else {
    EXPECT_EQ(dialog.Send().size(), 1);
    EXPECT_EQ(bench_.Openings(), 0);
  }
  ExpectAtRest(dialog);
}

TEST_P(PanelFaults, TheWholeProgramCanBeEndedWhileItSends) {
  bench_.Fail({.silent = true});
  SendDialog dialog = Open();
  AtEachFrame(dialog, [] { QCoreApplication::exit(3); });
  QTimer::singleShot(0, &dialog.window, [&] { dialog.Click("butSend"); });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  ExpectAtRest(dialog);
  EXPECT_EQ(bench_.Frames(), FirstFrame(1));
}

class ConnectingWindows : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, ConnectingWindows, testing::ValuesIn(WindowsOverLines(IsOverTcp)),
                         WindowOverLineName);

TEST_P(ConnectingWindows, TheProgramsEndWhileItConnectsSendsNothing) {
  SendDialog dialog = Open();
  QTimer::singleShot(0, &dialog.window, [&] {
    QTimer::singleShot(0, &dialog.window, [] { QCoreApplication::exit(3); });
    dialog.Click("butSend");
  });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  ExpectAtRest(dialog);
  EXPECT_EQ(bench_.Openings(), 1);
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

}  // namespace
