// The virtual panel at its largest: twelve rows of 3000 dot columns, all of them blinking in the
// costly colours, with a text that scrolls over one. A redraw must take less than 16 ms: in the
// window as it is seen, and with every dot of the panel drawn, at the distances between two dots
// that the window shows such a panel with; beside each stands the same area filled with plain
// rectangles, one a dot.
#include <algorithm>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "measure.h"
#include "panel_dots/panel_drawing.h"
#include "window/panel_window.h"

using namespace Qt::StringLiterals;

namespace {

using PanelDots::DotsOf;
using PanelDots::DrawPanel;
using PanelDots::PanelPicture;
using PanelDots::PanelShape;
using VirtualPanel::PanelEngine;
using VirtualPanel::PanelView;
using VirtualPanel::PanelWindow;

constexpr PanelShape kLargest{12, 3000, true};
constexpr qint64 kScrolledMs = 60'000;  // the text has come to the panel's middle
constexpr double kLimit = 16;

QByteArray RowText(int row) {
  return "<SE><C" + QByteArray(1, static_cast<char>('C' + row)) + '>' + QByteArray(500, 'M');
}

QByteArray LongText() { return "<SE><CP>" + QByteArray(2000, 'W'); }

PanelPicture FullPicture() {
  PanelPicture picture{kLargest, {}, QDateTime(QDate(2026, 11, 21), QTime(9, 5))};
  for (int row = 1; row <= kLargest.rows; ++row) {
    picture.rows.insert(row, PanelDots::ParseCells(RowText(row)));
  }
  picture.scrolling_texts.insert(6, {PanelDots::ParseCells(LongText()), 0});
  return picture;
}

/// One plain rectangle for each dot; the median of some fillings, in milliseconds.
double PlainMilliseconds(const QSize& size, int pitch) {
  QImage image(size, QImage::Format_RGB32);
  constexpr int kTimes = 11;
  std::vector<double> milliseconds;
  milliseconds.reserve(kTimes);
  for (int time = 0; time < kTimes; ++time) {
    milliseconds.push_back(Microseconds([&] {
                             QPainter painter(&image);
                             for (int y = 0; y < size.height(); y += pitch) {
                               for (int x = 0; x < size.width(); x += pitch) {
                                 painter.fillRect(x, y, pitch, pitch,
                                                  (x + y) / pitch % 2 == 0 ? Qt::red : Qt::black);
                               }
                             }
                           }) /
                           1000);
  }
  return Median(milliseconds);
}

void ReportTimes(benchmark::State& state, const std::vector<double>& milliseconds, double plain) {
  const double median = Median(milliseconds);
  state.counters["worst_ms"] = *std::max_element(milliseconds.begin(), milliseconds.end());
  state.counters["plain_ms"] = plain;
  state.counters["ratio"] = median / plain;
  Report(state, "median_ms", median, kLimit);
}

void EveryDot(benchmark::State& state) {
  const PanelPicture picture = FullPicture();
  const int pitch = static_cast<int>(state.range(0));
  QImage image((PanelDots::SizeInDots(kLargest) * pitch).toSize(), QImage::Format_RGB32);
  std::vector<double> milliseconds;
  for ([[maybe_unused]] const auto round : state) {
    milliseconds.push_back(Microseconds([&] {
                             QPainter painter(&image);
                             DrawPanel(&painter, image.size(), picture, kScrolledMs);
                           }) /
                           1000);
  }
  ReportTimes(state, milliseconds, PlainMilliseconds(image.size(), pitch));
}
BENCHMARK(EveryDot)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond);

/// A page half on its way in, which is worked out from two pages.
void EveryDotOfAPageThatEnters(benchmark::State& state) {
  PanelPicture picture = FullPicture();
  picture.entrance = PanelDots::Entrance{DotsOf(picture, 0), static_cast<char>(state.range(0)),
                                         kScrolledMs - PanelDots::kEntranceMs / 2};
  constexpr int kPitch = 2;
  QImage image((PanelDots::SizeInDots(kLargest) * kPitch).toSize(), QImage::Format_RGB32);
  std::vector<double> milliseconds;
  for ([[maybe_unused]] const auto round : state) {
    milliseconds.push_back(Microseconds([&] {
                             QPainter painter(&image);
                             DrawPanel(&painter, image.size(), picture, kScrolledMs);
                           }) /
                           1000);
  }
  ReportTimes(state, milliseconds, PlainMilliseconds(image.size(), kPitch));
}
BENCHMARK(EveryDotOfAPageThatEnters)->Arg('B')->Arg('H')->Unit(benchmark::kMillisecond);

/// The real window with the panel in it, at a time that is moved by hand.
class LargestPanel {
 public:
  LargestPanel() {
    for (int row = 1; row <= kLargest.rows; ++row) {
      engine_.Receive("<ID01><L" + QByteArray::number(row).rightJustified(2, '0') + "><P001>" +
                      RowText(row) + " \r\n");
    }
    engine_.Receive("<ID01><L6>" + LongText() + "\r\n");
    window_.resize(1920, 1000);
    window_.show();
    QCoreApplication::processEvents();
    view_ = window_.findChild<PanelView*>(u"panel_1"_s);
    now_ = now_.addMSecs(kScrolledMs);
  }

  void Blink() {
    view_->update();
    QCoreApplication::sendPostedEvents();
  }

  void Scroll() {
    view_->Scroll();
    QCoreApplication::sendPostedEvents();
  }

  void Pass(qint64 ms) { now_ = now_.addMSecs(ms); }

  QSize Seen() const { return view_->visibleRegion().boundingRect().size(); }
  QSize RowSeen() const {
    const QRectF row = PanelDots::RowRect(view_->size(), kLargest, 6);
    return row.intersected(view_->visibleRegion().boundingRect()).size().toSize();
  }
  int Pitch() const { return static_cast<int>(PanelDots::DotDistance(view_->size(), kLargest)); }

 private:
  QDateTime now_{QDate(2026, 11, 21), QTime(9, 5)};
  PanelEngine engine_{{{1, kLargest.rows, kLargest.columns, kLargest.tri_colour}},
                      [this] { return now_; }};
  PanelWindow window_{&engine_};
  PanelView* view_ = nullptr;
};

void BlinkTickInTheWindow(benchmark::State& state) {
  LargestPanel panel;
  std::vector<double> milliseconds;
  // One tick hides the characters; the next one, which shows them, has more to draw.
  for ([[maybe_unused]] const auto round : state) {
    panel.Pass(PanelDots::kBlinkMs);
    panel.Blink();
    panel.Pass(PanelDots::kBlinkMs);
    milliseconds.push_back(Microseconds([&] { panel.Blink(); }) / 1000);
  }
  ReportTimes(state, milliseconds, PlainMilliseconds(panel.Seen(), panel.Pitch()));
}
BENCHMARK(BlinkTickInTheWindow)->Unit(benchmark::kMillisecond);

void ScrollTickInTheWindow(benchmark::State& state) {
  LargestPanel panel;
  std::vector<double> milliseconds;
  for ([[maybe_unused]] const auto round : state) {
    panel.Pass(34);
    milliseconds.push_back(Microseconds([&] { panel.Scroll(); }) / 1000);
  }
  ReportTimes(state, milliseconds, PlainMilliseconds(panel.RowSeen(), panel.Pitch()));
}
BENCHMARK(ScrollTickInTheWindow)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
