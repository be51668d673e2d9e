// The panels keep their place and size, whatever they are sent.

#include <QApplication>
#include <QPushButton>

#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

struct Screen {
  QSize size;
  int font_points = 10;
};

void PrintTo(const Screen& screen, std::ostream* stream) {
  *stream << screen.size.width() << 'x' << screen.size.height() << " in " << screen.font_points
          << " pt";
}

// The font of the program, set before its window is made.
class FontInUse {
 public:
  explicit FontInUse(int points) {
    QFont font = usual_;
    font.setPointSize(points);
    QApplication::setFont(font);
  }
  ~FontInUse() { QApplication::setFont(usual_); }
  FontInUse(const FontInUse&) = delete;
  FontInUse& operator=(const FontInUse&) = delete;

 private:
  QFont usual_ = QApplication::font();
};

class SteadyPicture : public testing::WithParamInterface<Screen>,
                      private FontInUse,
                      public WindowTest {
 protected:
  SteadyPicture() : FontInUse(GetParam().font_points) {}

  void SetUp() override {
    window_.resize(GetParam().size);
    window_.show();
    Settle();
  }

  // Carries out what is still to be laid out.
  static void Settle() {
    for (int i = 0; i < 5; ++i) QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  }

  void ReceiveAndSettle(QByteArrayView bytes) {
    Receive(bytes);
    Settle();
  }

  // The dots of all panels, and where their facts begin, in pixels of the window.
  std::string Places() {
    std::string places =
        std::to_string(HeightOf("facts_3")) + ", " + std::to_string(HeightOf("facts_26")) + "; ";
    for (const char* name : {"panel_3", "panel_26"}) {
      const auto* view = Find<PanelView>(name);
      const QPoint corner = view->mapTo(&window_, QPoint());
      places += u"%1x%2 at %3, %4; "_s.arg(view->width())
                    .arg(view->height())
                    .arg(corner.x())
                    .arg(corner.y())
                    .toStdString();
    }
    return places;
  }

  int HeightOf(const char* label) { return Find<QLabel>(label)->mapTo(&window_, QPoint()).y(); }
};

QByteArray ManyPages() {
  QByteArray frames;
  for (int page = 1; page < 500; ++page) {
    frames += "<ID1A><L01><P" + QByteArray::number(page).rightJustified(3, '0') + ">x \r\n";
  }
  return frames;
}

QByteArray AllSchedules() {
  QByteArray frames;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    frames += QByteArray("<ID1A><T") + letter + ">*12**00105A,00205A,00305A\r\n";
  }
  return frames;
}

TEST_P(SteadyPicture, StaysWhenPagesAndSchedulesArrive) {
  const QSize size = window_.size();
  const std::string places = Places();
  ReceiveAndSettle("<ID1A><L01><P001>one \r\n");
  EXPECT_EQ(Places(), places) << "a page";
  ReceiveAndSettle("<ID1A><TA>*****00105A\r\n");
  EXPECT_EQ(Places(), places) << "a schedule that plays";
  ReceiveAndSettle(ManyPages());
  EXPECT_EQ(Places(), places) << "499 pages";
  ReceiveAndSettle(AllSchedules());
  EXPECT_EQ(Find<QPushButton>("schedule_26_J")->isVisible(), true);
  EXPECT_EQ(Places(), places) << "all schedules";
  ReceiveAndSettle("<ID1A><RP499>\r\n<ID1A><L2>scrolling\r\n");
  EXPECT_EQ(Places(), places) << "another page is run";
  ReceiveAndSettle("<ID1A><D*>\r\n");
  EXPECT_EQ(Places(), places) << "everything is deleted";
  EXPECT_EQ(window_.size(), size);
}

INSTANTIATE_TEST_SUITE_P(Windows, SteadyPicture,
                         testing::Values(Screen{{1100, 860}, 10}, Screen{{1100, 860}, 14},
                                         Screen{{910, 560}, 10}, Screen{{640, 700}, 10},
                                         Screen{{640, 700}, 14}));

TEST(ManyPanels, KeepTheirSizeWherePagesAndSchedulesAreScrolledTo) {
  QList<PanelDescription> panels;
  for (int id = 1; id <= 40; ++id)
    panels.append({id, id % 2 == 0 ? 4 : 12, 96 * (1 + id % 2), true});
  for (const qsizetype count : {2, 3, 4, 5, 12, 40}) {
    PanelEngine engine(panels.first(count));
    PanelWindow window(&engine);
    window.resize(700, 700);
    window.show();
    const auto sizes = [&] {
      for (int i = 0; i < 5; ++i) QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
      std::string text;
      for (const auto* view : window.findChildren<PanelView*>()) {
        text += std::to_string(view->width()) + 'x' + std::to_string(view->height()) + ' ';
      }
      return text;
    };
    const std::string before = sizes();
    const auto expect_same = [&](const QByteArray& frames, const char* what) {
      const QSignalSpy refreshed(&window, &PanelWindow::Refreshed);
      engine.Receive(QByteArray(frames).replace("<ID1A>", "<ID00>"));
      ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
      EXPECT_EQ(sizes(), before) << count << ' ' << what;
    };
    expect_same(AllSchedules(), "schedules alone");
    EXPECT_TRUE(window.findChild<QPushButton*>(u"schedule_1_A"_s)->isVisible());
    expect_same("<ID1A><D*>\r\n", "nothing");
    expect_same(ManyPages(), "pages alone");
    EXPECT_TRUE(window.findChild<PageStrip*>(u"pages_1"_s)->isVisible());
    expect_same(AllSchedules(), "both");
  }
}

}  // namespace
}  // namespace VirtualPanel
