#include <QApplication>
#include <QTest>

#include "window/panel_window.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(WindowTest, NamesEveryPanelAndWhatItHolds) {
  EXPECT_EQ(window_.windowTitle(), u"Virtual panel"_s);
  EXPECT_EQ(Facts("facts_26"),
            u"ID 026   \u00B7   4x96   \u00B7   Tri   \u00B7   Sat 21 Nov 2026 10:30   \u00B7   "
            "no page shown   \u00B7   0 pages stored"_s);
  EXPECT_TRUE(Facts("facts_3").contains(u"Mono"_s));
  Receive("<ID1A><L01><P007>x \r\n");
  EXPECT_TRUE(
      Facts("facts_26").endsWith(u"showing page 7, last received   \u00B7   1 page stored"_s));
  Receive("<ID1A><RP007>\r\n<ID1A><L01><P008>x \r\n");
  EXPECT_TRUE(Facts("facts_26").endsWith(u"running page 7   \u00B7   2 pages stored"_s));
  Receive("<T2503053140709>\r\n");
  EXPECT_TRUE(Facts("facts_3").contains(u"Wed 05 Mar 2025 14:07"_s));
}

TEST_F(WindowTest, ShowsThePageInItsRowAndColour) {
  Receive("<ID1A><L02><P007><CK>HHHH \r\n<ID1A><RP007>\r\n");
  auto* view = Find<PanelView>("panel_26");
  // Four characters on red: an H has 17 dots.
  EXPECT_EQ(Count(view, 2, Led::kGreen), 4 * 17);
  EXPECT_EQ(Count(view, 2, Led::kRed), 4 * (6 * 8 - 17));
  for (const int row : {1, 3, 4}) EXPECT_EQ(Count(view, row, Led::kDark), 96 * 8) << row;
  EXPECT_EQ(view->accessibleDescription(), u"HHHH"_s);
}

TEST_F(WindowTest, RunsTheBlinkTimerOnlyWhileSomethingBlinks) {
  auto* timer = Find<QTimer>("blink_timer_26");
  EXPECT_FALSE(timer->isActive());
  Receive("<ID1A><L01><P001><SA>steady \r\n");
  EXPECT_FALSE(timer->isActive());
  Receive("<ID1A><L01><P001><SE>blinking \r\n");
  EXPECT_TRUE(timer->isActive());
  const QSignalSpy blinks(timer, &QTimer::timeout);
  EXPECT_TRUE(WaitUntil([&] { return blinks.count() >= 2; }));
  Receive("<ID1A><D001>\r\n");
  EXPECT_FALSE(timer->isActive());
}

TEST_F(WindowTest, NamesItsLines) {
  window_.SetLines(u"listening on tcp 127.0.0.1:2101"_s);
  EXPECT_EQ(Find<QLabel>("lines")->text(), u"listening on tcp 127.0.0.1:2101"_s);
}

TEST_F(WindowTest, NothingInTheNameOfALineIsTakenForMarkup) {
  window_.SetLines(u"pseudo-terminal /home/<b>x</b>/panel-line"_s);
  EXPECT_EQ(Shown(Find<QLabel>("lines")), u"pseudo-terminal /home/<b>x</b>/panel-line"_s);
}

TEST_F(WindowTest, NamesTheFilesThatCannotBeWritten) {
  auto* label = Find<QLabel>("unwritten_files");
  EXPECT_FALSE(label->isVisible());
  window_.SetUnwrittenFiles({u"log"_s, u"state"_s}, {u"the log <b>x</b>: why"_s, u"the state"_s});
  EXPECT_TRUE(label->isVisible());
  EXPECT_EQ(label->text(), u"Not written: log, state"_s);
  EXPECT_EQ(ShownText(label->toolTip()), u"the log <b>x</b>: why\nthe state"_s);
  window_.SetUnwrittenFiles({}, {});
  EXPECT_FALSE(label->isVisible());
}

TEST_F(WindowTest, TakesNoTimeWhileNothingMoves) {
  Receive("<ID1A><L01><P001>steady \r\n<ID1A><RP001>\r\n");
  for (const QByteArray id : {"26", "3"}) {
    for (const char* name : {"blink_timer_", "scroll_timer_", "entrance_timer_", "play_timer_"}) {
      EXPECT_FALSE(Find<QTimer>((name + id).constData())->isActive()) << name << id.constData();
    }
    // Only the panels' clocks, once a minute.
    EXPECT_EQ(Find<QTimer>(("clock_timer_" + id).constData())->interval(), 60'000);
  }
}

TEST_F(WindowTest, MovesNothingWhileItIsHiddenOrMinimised) {
  Receive("<ID1A><L01><P001><SE>blinking \r\n<ID1A><L2>scrolling\r\n<ID1A><TA>*****00105C\r\n");
  const auto moving = [this] {
    QStringList names;
    for (const char* name : {"blink_timer_26", "scroll_timer_26", "entrance_timer_26"}) {
      if (Find<QTimer>(name)->isActive()) names.append(QLatin1String(name));
    }
    return names;
  };
  EXPECT_EQ(moving().size(), 3);
  window_.hide();
  EXPECT_TRUE(moving().isEmpty());
  Receive("<ID1A><L2>another\r\n");
  EXPECT_TRUE(moving().isEmpty());
  window_.show();
  EXPECT_EQ(moving().size(), 3);
  window_.showMinimized();
  EXPECT_TRUE(moving().isEmpty());
  window_.showNormal();
  EXPECT_EQ(moving().size(), 3);
}

TEST_F(WindowTest, QuitsByItsStandardKey) {
  window_.activateWindow();
  ASSERT_TRUE(WaitUntil([&] { return window_.isActiveWindow(); }));
  QTest::keyClick(&window_, Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(WindowTest, ShowsAScrollingText) {
  auto* timer = Find<QTimer>("scroll_timer_26");
  auto* view = Find<PanelView>("panel_26");
  EXPECT_FALSE(timer->isActive());
  Receive("<ID1A><L01><P001>one \r\n<ID1A><L02><P001>two \r\n<ID1A><L2><CK>HHHH\r\n");
  EXPECT_TRUE(timer->isActive());
  EXPECT_GE(timer->interval(), 20);
  EXPECT_EQ(view->accessibleDescription(), u"one\nHHHH"_s);
  const auto green = [&] { return Count(view, 2, Led::kGreen); };
  EXPECT_EQ(green(), 0);
  now_ = now_.addSecs(2);  // 60 dots of the 96 + 24
  EXPECT_EQ(green(), 4 * 17);
  const QSignalSpy scrolls(timer, &QTimer::timeout);
  EXPECT_TRUE(WaitUntil([&] { return scrolls.count() >= 3; }));
  now_ = now_.addSecs(2);
  EXPECT_EQ(green(), 0);

  window_.hide();
  EXPECT_FALSE(timer->isActive());
  window_.show();
  EXPECT_TRUE(timer->isActive());
  Receive("<ID1A><L2>\r\n");
  EXPECT_FALSE(timer->isActive());
}

TEST_F(WindowTest, ScrollsAtTheSpeedThatIsSet) {
  Receive("<ID1A><L2>text\r\n");
  auto* timer = Find<QTimer>("scroll_timer_26");
  window_.SetScrollSpeed(1);
  EXPECT_EQ(timer->interval(), 1000);
  window_.SetScrollSpeed(10);
  EXPECT_EQ(timer->interval(), 100);
  window_.SetScrollSpeed(1000);
  EXPECT_EQ(timer->interval(), 20);
  EXPECT_EQ(Find<PanelView>("panel_26")->Picture().scroll_speed, 1000);
  // Of several texts it waits for the one that moves next.
  window_.SetScrollSpeed(1);
  now_ = now_.addMSecs(300);
  Receive("<ID1A><L3>text\r\n");
  EXPECT_EQ(timer->interval(), 700);
  now_ = now_.addMSecs(800);
  Receive("<ID1A><?>\r\n<ID1A><L01><P001>x \r\n");
  EXPECT_EQ(timer->interval(), 200);
}

}  // namespace
}  // namespace VirtualPanel
