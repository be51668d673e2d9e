// What every window that sends shows of its progress.
#include <QProgressBar>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "sending/progress_view.h"
#include "sending/sending_words.h"
#include "sending/window_over_line.h"

using namespace Qt::StringLiterals;

using Brivon1::ProgressText;

namespace {

class ProgressOfAWindow : public WindowOverLineTest {
 protected:
  /// What stands in the line as the frame of each attempt is received.
  QStringList Expected(int attempt_at_the_first) {
    const QByteArray name = window_.name;
    const auto page = [](int row, int attempt) {
      return u"Row %1 of 4, attempt %2 of 5"_s.arg(row).arg(attempt);
    };
    const QString file = bench_.Folder().Path(u"first.msg"_s);
    const auto schedule = [&file](int row, int attempt) {
      return u"File 1 of 1, row %1 of 2, attempt %2 of 5: %3"_s.arg(row).arg(attempt).arg(file);
    };
    QStringList first;
    for (int attempt = 1; attempt <= attempt_at_the_first; ++attempt) {
      first += name == "Page"       ? page(1, attempt)
               : name == "Schedule" ? schedule(1, attempt)
                                    : u"Attempt %1 of 5"_s.arg(attempt);
    }
    if (name == "Page") return first + QStringList{page(2, 1), page(3, 1), page(4, 1)};
    if (name == "Schedule") {
      return first + QStringList{schedule(2, 1), u"Schedule, attempt 1 of 5"_s};
    }
    return first;
  }
};

INSTANTIATE_TEST_SUITE_P(All, ProgressOfAWindow, testing::ValuesIn(WindowsOverLines()),
                         WindowOverLineName);

TEST_P(ProgressOfAWindow, NamesRowFileAndAttempt) {
  bench_.Fail({.silent_answers = 2});
  SendDialog dialog = Open();
  QStringList shown;
  AtEachFrame(dialog, [&] { shown.append(dialog.Shown("lblProgress")); });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(shown, Expected(3));
}

TEST_P(ProgressOfAWindow, IsABarOfTheFramesThatHaveArrived) {
  SendDialog dialog = Open();
  auto* bar = dialog.Find<QProgressBar>("barProgress");
  QList<int> values;
  AtEachFrame(dialog, [&] {
    EXPECT_TRUE(bar->isVisible());
    values.append(bar->maximum() == 0 ? 0 : bar->value());
    if (window_.frames.size() > 1) {
      EXPECT_EQ(bar->maximum(), window_.frames.size());
    }
  });
  EXPECT_EQ(dialog.Send(), Finished());
  QList<int> counted;
  for (int frame = 0; frame < window_.frames.size(); ++frame) counted.append(frame);
  EXPECT_EQ(values, counted);
}

TEST_P(ProgressOfAWindow, IsSeenOnlyWhileItSendsAndNothingMoves) {
  SendDialog dialog = Open();
  auto* bar = dialog.Find<QProgressBar>("barProgress");
  const auto places = [&dialog] {
    QList<QRect> all;
    for (const QWidget* control : dialog.window.findChildren<QWidget*>()) {
      if (control->parentWidget() == &dialog.window) all.append(control->geometry());
    }
    all.append(dialog.window.rect());
    return all;
  };
  const QList<QRect> idle = places();
  EXPECT_FALSE(bar->isVisible());
  EXPECT_EQ(dialog.Shown("lblProgress"), QString());
  QList<QRect> sending;
  AtEachFrame(dialog, [&] {
    QCoreApplication::sendPostedEvents();
    sending = places();
  });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(sending, idle);
  EXPECT_FALSE(bar->isVisible());
  EXPECT_EQ(dialog.Shown("lblProgress"), QString());
}

class ProgressOfAConnection : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, ProgressOfAConnection, testing::ValuesIn(WindowsOverLines(IsOverTcp)),
                         WindowOverLineName);

TEST_P(ProgressOfAConnection, SaysThatItConnects) {
  SendDialog dialog = Open();
  QString shown;
  QTimer::singleShot(0, &dialog.window, [&] { shown = dialog.Shown("lblProgress"); });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(shown, u"Connecting to the panel"_s);
}

TEST_P(ProgressOfAWindow, OfASilentPanelIsSaidWithTheFailureAndWhatToDo) {
  bench_.Fail({.silent = true});
  SendDialog dialog = Open();
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  ASSERT_EQ(boxes.Texts(), Failed());
  const QString said = boxes.Seen().last().informative;
  EXPECT_TRUE(
      said.startsWith(u"No response from display panel. Please check connection.\n"
                      "Panel ID %1 was tried 5 times.\n"_s.arg(window_.panel.id)))
      << said.toStdString();
  if (window_.name == std::string("Page")) {
    EXPECT_TRUE(said.endsWith(u"\n0 of 4 rows have arrived, missing: 4."_s)) << said.toStdString();
  }
}

TEST(ProgressText, GivesTheSecondsThatTheLastBytesNeed) {
  EXPECT_EQ(ProgressText({.milliseconds_left = 1}), u"The last bytes are leaving, 1 s left"_s);
  EXPECT_EQ(ProgressText({.milliseconds_left = 61000}), u"The last bytes are leaving, 61 s left"_s);
}

TEST(ProgressView, OneThatHasBegunIsNotBegunAgain) {
  ProgressView view;
  view.Begin();
  view.Show({.row = 3, .rows = 4, .attempt = 1});
  view.Begin();
  EXPECT_EQ(view.findChild<QProgressBar*>()->value(), 2);
  EXPECT_EQ(view.findChild<QProgressBar*>()->maximum(), 4);
}

TEST(FailureText, BlamesThePanelOnlyWhereItsLastAttemptWasNotAnswered) {
  const Brivon1::Progress last{.row = 1, .rows = 2, .attempt = 5, .attempts = 5};
  const QString arrived = u"0 of 2 rows have arrived, missing: 2."_s;
  const QString tried = u"Panel ID 26 was tried 5 times.\n"_s + arrived;
  EXPECT_EQ(Brivon1::FailureText(last, 26, 1), arrived);
  EXPECT_EQ(Brivon1::FailureText(last, 26, 0), tried);
  EXPECT_EQ(Brivon1::FailureText(last, 26, -1),
            u"No response from display panel. Please check connection.\n"_s + tried);
}

TEST(ProgressText, TakesAFilesNameAsItIs) {
  EXPECT_EQ(
      ProgressText(
          {.row = 1, .rows = 2, .file = 1, .files = 3, .file_name = u"%1 %2.msg"_s, .attempt = 4}),
      u"File 1 of 3, row 1 of 2, attempt 4 of 5: %1 %2.msg"_s);
}

}  // namespace
