// The page editor at its largest: twelve rows of 600 blinking "3D" characters. A blink tick must
// take less than 16 ms, a key press less than 4 ms. Each is measured in the real window as an
// operator has it before him, and for a blink tick also with every character of the page drawn;
// beside each stands the same area filled with plain rectangles, one a character. The same limits
// hold with the preview of the panel shown, which then stands beside the editor without it.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <benchmark/benchmark.h>

#include "drawing_times.h"
#include "page/dialog_results.h"
#include "page/frmMsgEditor.h"
#include "row/draw_cell.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 12;
constexpr int kCharacters = 600;
constexpr int kWidth = 1920;
constexpr int kHeight = 1000;

/// The real editor with the whole page typed into it.
class FullEditor {
 public:
  FullEditor() {
    QFile ini(folder_.filePath(u"brivon.ini"_s));
    if (!ini.open(QIODevice::WriteOnly)) qFatal("cannot write the configuration");
    ini.write("[Dimension Config]\r\nID001=12x3000,Tri,127.0.0.1:80\r\n");
    ini.close();
    Brivon1::SetProgramFolder(folder_.path());
    QTimer::singleShot(0, [] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) qFatal("the dimension dialog is not open");
      dialog->done(0);
      Brivon1::DialogAccepted = true;
      Brivon1::SelectedRows = kRows;
      Brivon1::SelectedCols = kCharacters * Brivon1::kDotsPerCharacter;
    });
    window_.resize(kWidth, kHeight);
    window_.show();
    Click("butNew");
    window_.findChild<QComboBox*>(u"ComboColor"_s)->setCurrentIndex(3);
    Click("chkBlink");
    for (int row = 1; row <= kRows; ++row) {
      QTest::keyClicks(Row(row), QString(kCharacters, QLatin1Char('M')));
    }
    QCoreApplication::processEvents();
    for (QTimer* timer : window_.findChildren<QTimer*>()) timer->stop();
    ShowPreview(false);
  }

  void ShowPreview(bool shown) {
    auto* box = window_.findChild<QCheckBox*>(u"chkPreview"_s);
    auto* preview = window_.findChild<QWidget*>(u"picPreview"_s);
    if (box == nullptr || preview == nullptr) qFatal("there is no preview");
    box->setChecked(shown);
    QCoreApplication::processEvents();
    if (preview->isVisible() != shown) qFatal("the preview has no room");
  }

  QWidget* Row(int number) { return window_.findChild<QWidget*>(u"Picture1(%1)"_s.arg(number)); }

  /// Lets the characters blink once and paints what that exposes.
  void BlinkTick() {
    auto* timer = window_.findChild<QTimer*>(u"Timer2"_s);
    if (!QMetaObject::invokeMethod(timer, "timeout")) qFatal("there is no tick");
    QCoreApplication::sendPostedEvents();
  }

  void Press(Qt::Key key) {
    QTest::keyClick(Row(kRows), key);
    QCoreApplication::sendPostedEvents();
  }

  int ColumnsInSight() { return Row(1)->parentWidget()->width() / Brivon1::kCellWidth; }

 private:
  void Click(const char* name) {
    auto* button = window_.findChild<QAbstractButton*>(QString::fromLatin1(name));
    if (button == nullptr) qFatal("no such button");
    button->click();
  }

  QTemporaryDir folder_;
  frmMsgEditor window_;
};

void BlinkTickInTheWindow(benchmark::State& state) {
  FullEditor editor;
  Times times;
  // One tick hides the characters; the next one, which shows them, has more to draw.
  for ([[maybe_unused]] const auto round : state) {
    editor.BlinkTick();
    times.Take([&] { editor.BlinkTick(); });
  }
  ReportTimes(state, times, PlainMilliseconds(editor.ColumnsInSight(), kRows), 16);
}
BENCHMARK(BlinkTickInTheWindow)->Unit(benchmark::kMillisecond);

void BlinkTickOfEveryCharacter(benchmark::State& state) {
  Brivon1::PageRow row;
  for (int at = 0; at < kCharacters; ++at) {
    row.Append(static_cast<char>('!' + at % 90), {'A', 'D', Brivon1::kBlinking});
  }
  QImage image(RowWidth(kCharacters), kRows * kCellHeight, QImage::Format_ARGB32_Premultiplied);
  const auto draw = [&] {
    QPainter painter(&image);
    painter.fillRect(image.rect(), kSurfaceBackground);
    for (int number = 0; number < kRows; ++number) {
      DrawRow(painter, row, QRect(0, 0, RowWidth(kCharacters), kCellHeight), false);
      painter.translate(0, kCellHeight);
    }
  };
  Times times;
  for ([[maybe_unused]] const auto round : state) times.Take(draw);
  ReportTimes(state, times, PlainMilliseconds(kCharacters, kRows), 16);
}
BENCHMARK(BlinkTickOfEveryCharacter)->Unit(benchmark::kMillisecond);

void KeyPressInTheWindow(benchmark::State& state) {
  FullEditor editor;
  Times times;
  for ([[maybe_unused]] const auto round : state) {
    // A full row takes no character before it has lost one.
    times.Take([&] { editor.Press(Qt::Key_Backspace); });
    times.Take([&] { editor.Press(Qt::Key_M); });
  }
  ReportTimes(state, times, PlainMilliseconds(editor.ColumnsInSight(), 1), 4);
}
BENCHMARK(KeyPressInTheWindow)->Unit(benchmark::kMillisecond);

/// Prints the median with the preview beside the limit, and as a ratio to the one without it.
void ReportPreview(benchmark::State& state, Times& with, Times& without, double limit) {
  state.counters["worst_ms"] = with.Worst();
  state.counters["without_ms"] = without.Middle();
  state.counters["ratio"] = with.Middle() / without.Middle();
  Report(state, "median_ms", with.Middle(), limit);
}

void BlinkTickWithThePreview(benchmark::State& state) {
  FullEditor editor;
  Times with;
  Times without;
  for ([[maybe_unused]] const auto round : state) {
    for (const bool shown : {false, true}) {
      editor.ShowPreview(shown);
      editor.BlinkTick();
      (shown ? with : without).Take([&] { editor.BlinkTick(); });
    }
  }
  ReportPreview(state, with, without, 16);
}
BENCHMARK(BlinkTickWithThePreview)->Unit(benchmark::kMillisecond);

void KeyPressWithThePreview(benchmark::State& state) {
  FullEditor editor;
  Times with;
  Times without;
  for ([[maybe_unused]] const auto round : state) {
    for (const bool shown : {false, true}) {
      editor.ShowPreview(shown);
      Times& times = shown ? with : without;
      times.Take([&] { editor.Press(Qt::Key_Backspace); });
      times.Take([&] { editor.Press(Qt::Key_M); });
    }
  }
  ReportPreview(state, with, without, 4);
}
BENCHMARK(KeyPressWithThePreview)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
