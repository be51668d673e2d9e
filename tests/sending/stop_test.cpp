// What every window that sends does alike when the operator stops it.
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "sending/window_over_line.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kAborted = {u"Aborted!"_s};

class Stop : public WindowOverLineTest {
 protected:
  /// What is said of a transmission that was stopped at its first frame.
  QString NothingArrived() {
    const QByteArray name = window_.name;
    if (name == "Page") return u"0 of 4 rows have arrived, missing: 4."_s;
    if (name == "Schedule") {
      return u"0 of 1 files have arrived. The schedule has not.\n%1: 0 of 2 rows have arrived, "
             "missing: 2."_s.arg(bench_.Folder().Path(u"first.msg"_s));
    }
    return u"The panel has not acknowledged it."_s;
  }
};

INSTANTIATE_TEST_SUITE_P(All, Stop, testing::ValuesIn(WindowsOverLines()), WindowOverLineName);

TEST_P(Stop, IsOfferedOnlyWhileItSends) {
  SendDialog dialog = Open();
  auto* stop = dialog.Find<QPushButton>("butStop");
  EXPECT_FALSE(stop->isVisible());
  int seen = 0;
  AtEachFrame(dialog, [&] {
    ++seen;
    EXPECT_TRUE(stop->isVisible());
    EXPECT_TRUE(stop->isEnabled());
    EXPECT_EQ(stop->cursor().shape(), Qt::ArrowCursor);
  });
  const ModalWindowDriver box(QString(), [&](QWidget*) { EXPECT_FALSE(stop->isVisible()); });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(seen, window_.frames.size());
  EXPECT_FALSE(stop->isVisible());
}

TEST_P(Stop, EndsAfterTheAttemptInProgressAndSaysWhatHasArrived) {
  bench_.Fail({.silent = true});
  SendDialog dialog = Open();
  const auto stopping = QObject::connect(
      &bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window, [&] {
        dialog.Click("butStop");
        EXPECT_FALSE(dialog.Find<QPushButton>("butStop")->isEnabled());
        dialog.ExpectLocked();
      });
  const MessageBoxReader boxes;
  const qint64 begin = bench_.Time().Now();
  dialog.Click("butSend");
  EXPECT_GE(bench_.Time().Now() - begin, 1100) << "the attempt has its time";
  EXPECT_EQ(boxes.Texts(), kAborted);
  EXPECT_EQ(boxes.Seen().value(0).informative, NothingArrived());
  EXPECT_EQ(boxes.Seen().value(0).title, window_.title);
  EXPECT_EQ(boxes.Seen().value(0).icon, window_.failure_icon);
  EXPECT_EQ(bench_.Frames(), window_.frames.first(1));
  QObject::disconnect(stopping);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(Stop, ByEscapeIsTheSameAndTheWindowStaysOpen) {
  bench_.Fail({.silent = true});
  SendDialog dialog = Open();
  const auto stopping = QObject::connect(
      &bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window, [&] {
        dialog.window.close();
        QTest::keyClick(&dialog.window, Qt::Key_Escape);
        EXPECT_TRUE(dialog.window.isVisible());
      });
  EXPECT_EQ(dialog.Send(), kAborted);
  EXPECT_EQ(bench_.Frames(), window_.frames.first(1));
  EXPECT_TRUE(dialog.window.isVisible());
  QObject::disconnect(stopping);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(Stop, AtTheLastFrameLeavesWhatHasArrivedWholeASuccess) {
  SendDialog dialog = Open();
  AtEachFrame(dialog, [&] {
    if (bench_.Frames().size() == window_.frames.size()) dialog.Click("butStop");
  });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(bench_.Frames(), window_.frames);
}

TEST_P(Stop, IsSaidInTheLanguageOfTheFile) {
  bench_.Folder().UseLanguage("[Message]\r\nmsgCancel=Abgebrochen!\r\n");
  bench_.Fail({.silent = true});
  SendDialog dialog = Open();
  AtEachFrame(dialog, [&] { dialog.Click("butStop"); });
  EXPECT_EQ(dialog.Send(), QStringList{u"Abgebrochen!"_s});
}

class StopOfAConnection : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, StopOfAConnection, testing::ValuesIn(WindowsOverLines(IsOverTcp)),
                         WindowOverLineName);

TEST_P(StopOfAConnection, EndsTheWaitWithNothingSent) {
  SendDialog dialog = Open();
  const qint64 begin = bench_.Time().Now();
  {
    const MessageBoxReader boxes;
    QTimer::singleShot(0, &dialog.window, [&] { dialog.Click("butStop"); });
    dialog.Click("butSend");
    EXPECT_EQ(boxes.Texts(), kAborted);
    EXPECT_EQ(boxes.Seen().value(0).informative, u"Nothing has been sent."_s);
  }
  EXPECT_LE(bench_.Time().Now() - begin, 100);
  EXPECT_TRUE(bench_.Frames().isEmpty());
  ExpectTheNextSendWorks(dialog);
}

class StopOfAPage : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, StopOfAPage,
                         testing::ValuesIn(WindowsOverLines([](const WindowOverLine& pair) {
                           return pair.window->name == std::string("Page");
                         })),
                         WindowOverLineName);

TEST_P(StopOfAPage, LeavesTheRowsThatHaveArrivedOnThePanel) {
  SendDialog dialog = Open();
  AtEachFrame(dialog, [&] {
    if (bench_.Frames().size() == 2) dialog.Click("butStop");
  });
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), kAborted);
  EXPECT_EQ(boxes.Seen().value(0).informative, u"2 of 4 rows have arrived, missing: 2."_s);
  EXPECT_EQ(bench_.Frames(), window_.frames.first(2));
}

class StopOfASchedule : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, StopOfASchedule,
                         testing::ValuesIn(WindowsOverLines([](const WindowOverLine& pair) {
                           return pair.window->name == std::string("Schedule");
                         })),
                         WindowOverLineName);

TEST_P(StopOfASchedule, BehindItsFilesLeavesThemOnThePanel) {
  SendDialog dialog = Open();
  AtEachFrame(dialog, [&] {
    if (bench_.Frames().size() == 2) dialog.Click("butStop");
  });
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), kAborted);
  EXPECT_EQ(boxes.Seen().value(0).informative,
            u"1 of 1 files have arrived. The schedule has not."_s);
  EXPECT_EQ(bench_.Frames(), window_.frames.first(2));
}

}  // namespace
