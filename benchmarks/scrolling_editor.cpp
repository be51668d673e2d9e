// The scrolling message editor at its longest message, 1000 blinking "3D" characters: typing,
// deleting and moving must take less than 4 ms for each key. Each is measured in the real window as
// an operator has it before him, its painting included; beside each stands the same area filled
// with plain rectangles, one a character.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <benchmark/benchmark.h>

#include "drawing_times.h"
#include "scrolling/frmShiftMsg.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kCharacters = static_cast<int>(Brivon1::ScrollingMessage::kMostCharacters);
constexpr int kSpan = static_cast<int>(Brivon1::ScrollingMessage::kSpan);
constexpr double kKeyLimit = 4;

/// The real editor with the longest message typed into it.
class FullEditor {
 public:
  FullEditor() {
    Brivon1::SetProgramFolder(folder_.path());
    window_.show();
    window_.findChild<QComboBox*>(u"ComboColor"_s)->setCurrentIndex(3);
    window_.findChild<QAbstractButton*>(u"chkBlink"_s)->click();
    surface_ = window_.findChild<QWidget*>(u"Picture1"_s);
    QTest::keyClicks(surface_, QString(kCharacters, QLatin1Char('M')));
    QCoreApplication::processEvents();
    for (QTimer* timer : window_.findChildren<QTimer*>()) timer->stop();
  }

  void Press(Qt::Key key, int times = 1) {
    for (int time = 0; time < times; ++time) {
      QTest::keyClick(surface_, key);
      QCoreApplication::sendPostedEvents();
    }
  }

 private:
  QTemporaryDir folder_;
  frmShiftMsg window_;
  QWidget* surface_;
};

void ReportKeys(benchmark::State& state, Times& times) {
  ReportTimes(state, times, PlainMilliseconds(kSpan, 1), kKeyLimit);
}

void TypingAtTheEnd(benchmark::State& state) {
  FullEditor editor;
  Times times;
  for ([[maybe_unused]] const auto round : state) {
    editor.Press(Qt::Key_Backspace);
    times.Take([&] { editor.Press(Qt::Key_M); });
  }
  ReportKeys(state, times);
}
BENCHMARK(TypingAtTheEnd)->Unit(benchmark::kMillisecond);

void TypingInTheMiddle(benchmark::State& state) {
  FullEditor editor;
  editor.Press(Qt::Key_Left, kCharacters / 2);
  Times times;
  for ([[maybe_unused]] const auto round : state) {
    editor.Press(Qt::Key_Delete);
    times.Take([&] { editor.Press(Qt::Key_M); });
    editor.Press(Qt::Key_Left);
  }
  ReportKeys(state, times);
}
BENCHMARK(TypingInTheMiddle)->Unit(benchmark::kMillisecond);

void DeletingAtTheStart(benchmark::State& state) {
  FullEditor editor;
  editor.Press(Qt::Key_Home);
  Times times;
  for ([[maybe_unused]] const auto round : state) {
    times.Take([&] { editor.Press(Qt::Key_Delete); });
    editor.Press(Qt::Key_M);
    editor.Press(Qt::Key_Home);
  }
  ReportKeys(state, times);
}
BENCHMARK(DeletingAtTheStart)->Unit(benchmark::kMillisecond);

void Scrolling(benchmark::State& state) {
  FullEditor editor;
  Times times;
  int left = 0;
  for ([[maybe_unused]] const auto round : state) {
    // Only steps that move the span: back to the end before its start is reached.
    if (left == 0) {
      editor.Press(Qt::Key_End);
      editor.Press(Qt::Key_Left, kSpan);
      left = kCharacters - kSpan;
    }
    times.Take([&] { editor.Press(Qt::Key_Left); });
    --left;
  }
  ReportKeys(state, times);
}
BENCHMARK(Scrolling)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
