#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "panel_window.h"
#include "wait_until.h"

namespace VirtualPanel {
namespace {

class WindowTest : public testing::Test {
 protected:
  void SetUp() override {
    window_.resize(900, 700);
    window_.show();
  }

  void Receive(QByteArrayView bytes) {
    const QSignalSpy refreshed(&window_, &PanelWindow::Refreshed);
    engine_.Receive(bytes);
    ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    Widget* widget = window_.findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  QString Facts(const char* name) { return Find<QLabel>(name)->text(); }

  QDateTime now_{QDate(2026, 11, 21), QTime(10, 30, 0)};
  PanelEngine engine_{{{26, 4, 96, true}, {3, 2, 48, false}}, [this] { return now_; }};
  PanelWindow window_{&engine_};
};

TEST_F(WindowTest, NamesEveryPanelAndWhatItHolds) {
  EXPECT_EQ(window_.windowTitle(), QStringLiteral("Virtual panel"));
  EXPECT_EQ(Facts("facts_26"),
            QStringLiteral(
                "ID 026   \u00B7   4x96   \u00B7   Tri   \u00B7   Sat 21 Nov 2026 10:30   \u00B7   "
                "no page shown   \u00B7   0 pages stored"));
  EXPECT_TRUE(Facts("facts_3").contains(QStringLiteral("Mono")));
  Receive("<ID1A><L01><P007>x \r\n");
  EXPECT_TRUE(
      Facts("facts_26")
          .endsWith(QStringLiteral("showing page 7, last received   \u00B7   1 page stored")));
  Receive("<ID1A><RP007>\r\n<ID1A><L01><P008>x \r\n");
  EXPECT_TRUE(
      Facts("facts_26").endsWith(QStringLiteral("running page 7   \u00B7   2 pages stored")));
  Receive("<T2503053140709>\r\n");
  EXPECT_TRUE(Facts("facts_3").contains(QStringLiteral("Wed 05 Mar 2025 14:07")));
}

TEST_F(WindowTest, ShowsThePageInItsRowAndColour) {
  Receive("<ID1A><L02><P007><CK>HHHH \r\n<ID1A><RP007>\r\n");
  auto* view = Find<PanelView>("panel_26");
  const QImage image = view->grab().toImage();
  const QSizeF size = view->size();
  const auto count = [&](int row, const QColor& colour) {
    int found = 0;
    const QRect rect = RowRect(size, {26, 4, 96, true}, row).toRect();
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
      for (int x = rect.left(); x <= rect.right(); ++x) {
        if (image.pixelColor(x, y) == colour) ++found;
      }
    }
    return found;
  };
  EXPECT_GT(count(2, QColor(255, 0, 0)), 100);
  EXPECT_GT(count(2, QColor(0, 255, 0)), 50);
  EXPECT_EQ(count(1, QColor(255, 0, 0)), 0);
  EXPECT_EQ(count(3, QColor(255, 0, 0)), 0);
  EXPECT_EQ(view->accessibleDescription(), QStringLiteral("HHHH"));
}

TEST_F(WindowTest, RunsTheBlinkTimerOnlyWhileSomethingBlinks) {
  auto* timer = Find<QTimer>("blink_timer");
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

TEST_F(WindowTest, ListsTheTrafficReadably) {
  auto* traffic = Find<QTableWidget>("traffic");
  now_ = now_.addMSecs(45);
  Receive("<ID1A><?>\r\n<ID00><D*>\n");
  ASSERT_EQ(traffic->rowCount(), 2);
  const auto text = [&](int row, int column) { return traffic->item(row, column)->text(); };
  EXPECT_EQ(text(0, 0), QStringLiteral("10:30:00.045"));
  EXPECT_EQ(text(0, 1), QStringLiteral("<ID1A><?><CR><LF>"));
  EXPECT_EQ(text(0, 2), QStringLiteral("<ID1A><CR><LF>"));
  EXPECT_EQ(text(0, 3), QStringLiteral("poll"));
  EXPECT_EQ(text(1, 1), QStringLiteral("<ID00><D*><LF>"));
  EXPECT_EQ(text(1, 2), QStringLiteral("-"));
}

TEST_F(WindowTest, CopiesTheSelectedTraffic) {
  auto* traffic = Find<QTableWidget>("traffic");
  Receive("<ID1A><?>\r\n<ID03><?>\r\n");
  traffic->selectRow(1);
  window_.activateWindow();
  traffic->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return traffic->hasFocus(); }));
  QTest::keyClick(traffic, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            QStringLiteral("10:30:00.000\t<ID03><?><CR><LF>\t<ID03><CR><LF>\tpoll"));
}

TEST_F(WindowTest, KeepsTheLastTrafficOnly) {
  auto* traffic = Find<QTableWidget>("traffic");
  for (int i = 0; i < 600; ++i) engine_.Receive("<ID1A><?>\r\n");
  Receive("<ID1A><RP042>\r\n");
  EXPECT_EQ(traffic->rowCount(), 500);
  EXPECT_EQ(traffic->item(499, 3)->text(), QStringLiteral("run page 42: an empty page"));
}

TEST_F(WindowTest, NamesItsLines) {
  window_.SetLines(QStringLiteral("listening on tcp 127.0.0.1:2101"));
  EXPECT_EQ(Find<QLabel>("lines")->text(), QStringLiteral("listening on tcp 127.0.0.1:2101"));
}

TEST(WidePanel, IsScrolledInsteadOfWideningTheWindow) {
  PanelEngine engine({{1, 12, 3000, true}, {2, 4, 96, true}});
  PanelWindow window(&engine);
  window.resize(800, 600);
  window.show();
  EXPECT_EQ(window.width(), 800);
  const auto width = [&](const char* name) {
    return window.findChild<PanelView*>(QLatin1String(name))->width();
  };
  EXPECT_TRUE(WaitUntil([&] { return width("panel_1") >= 6000; }));
  EXPECT_LE(width("panel_2"), 800);
}

TEST(SeveralPanels, ShrinkAndGrowWithTheWindow) {
  PanelEngine engine({{1, 4, 96, true}, {2, 4, 96, true}, {3, 8, 96, true}});
  PanelWindow window(&engine);
  window.show();
  const auto is_shown_whole = [&] {
    const auto* last = window.findChild<QLabel*>(QStringLiteral("facts_3"));
    return last->visibleRegion().boundingRect().height() == last->height();
  };
  const auto height = [&] {
    return window.findChild<PanelView*>(QStringLiteral("panel_3"))->height();
  };
  window.resize(700, 700);
  EXPECT_TRUE(WaitUntil(is_shown_whole));
  const int small = height();
  window.resize(1400, 1400);
  EXPECT_TRUE(WaitUntil([&] { return height() > small * 3 / 2 && is_shown_whole(); }));
}

TEST(VisibleText, WritesControlCharactersOut) {
  EXPECT_EQ(VisibleText(QByteArray("a\r\n\0\x07\x7F\xE9", 7)),
            QStringLiteral("a<CR><LF><00><07><7F>\u00E9"));
  EXPECT_EQ(VisibleText(QByteArray(5000, 'x')), QString(2000, QLatin1Char('x')) + QChar(0x2026));
}

}  // namespace
}  // namespace VirtualPanel
