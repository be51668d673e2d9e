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

class SchedulesTest : public WindowTest {
 protected:
  // The captions of a panel's schedules that can be seen, in their order.
  QStringList Schedules(int id) {
    QStringList captions;
    for (char letter = 'A'; letter <= 'J'; ++letter) {
      const QPushButton* button = Button(id, letter);
      if (button->isVisible()) captions.append(button->text());
    }
    return captions;
  }

  QPushButton* Button(int id, char letter) {
    const QByteArray name = "schedule_" + QByteArray::number(id) + '_' + QByteArray(1, letter);
    return Find<QPushButton>(name.constData());
  }

  // Whether the layout has given a button all the room that its caption needs.
  static bool HasItsPlace(const QPushButton* button) {
    return button->isVisible() && button->width() >= button->sizeHint().width() &&
           button->height() >= button->sizeHint().height();
  }

  // The letters whose buttons are pressed down.
  QByteArray PressedDown(int id) {
    QByteArray letters;
    for (char letter = 'A'; letter <= 'J'; ++letter) {
      if (Button(id, letter)->isChecked()) letters += letter;
    }
    return letters;
  }

  QString PlayingLine(int id) {
    return Find<QLabel>(("playing_" + QByteArray::number(id)).constData())->text();
  }

  void WaitForRefresh() {
    const QSignalSpy refreshed(&window_, &PanelWindow::Refreshed);
    ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
  }
};

TEST_F(SchedulesTest, ListsThePanelsSchedules) {
  EXPECT_TRUE(Schedules(26).isEmpty());
  EXPECT_FALSE(Find<QLabel>("playing_26")->isVisible());
  Receive("<ID1A><TJ>1083000105A,01207D\r\n<ID1A><TB>*22**00105A\r\n<ID03><TA>6**1500205B\r\n");
  EXPECT_EQ(Schedules(26),
            (QStringList{QStringLiteral("B  \u00B7  daily 22:**  \u00B7  1 entry"),
                         QStringLiteral("J  \u00B7  Mon 08:30  \u00B7  2 entries")}));
  EXPECT_EQ(Schedules(3), QStringList{QStringLiteral("A  \u00B7  Sat **:15  \u00B7  1 entry")});
  EXPECT_EQ(Button(26, 'J')->toolTip(),
            QStringLiteral("1. page 1, 5 s, Appear\n2. page 12, 7 s, Wipe Right"));
  EXPECT_EQ(Button(26, 'J')->accessibleDescription(),
            QStringLiteral("Plays schedule J of panel 26"));
  EXPECT_EQ(PlayingLine(26), QStringLiteral("no schedule is playing"));
  Receive("<ID1A><D*>\r\n");
  EXPECT_TRUE(Schedules(26).isEmpty());
  EXPECT_FALSE(Find<QLabel>("playing_26")->isVisible());
  EXPECT_EQ(Schedules(3).size(), 1);
}

TEST_F(SchedulesTest, SaysWhatIsPlaying) {
  Receive("<ID1A><TB>*10**01305A,01407D,01503H\r\n");
  EXPECT_EQ(PlayingLine(26), QStringLiteral("playing schedule B   \u00B7   entry 1 of 3   \u00B7   "
                                            "page 13   \u00B7   Appear"));
  EXPECT_TRUE(Facts("facts_26").contains(QStringLiteral("showing page 13   \u00B7   0 pages")));
  EXPECT_EQ(PressedDown(26), "B");
  now_ = now_.addSecs(6);
  Receive("<ID1A><L01><P014><CK>HH \r\n");
  EXPECT_EQ(PlayingLine(26), QStringLiteral("playing schedule B   \u00B7   entry 2 of 3   \u00B7   "
                                            "page 14   \u00B7   Wipe Right"));
  EXPECT_EQ(Find<PanelView>("panel_26")->accessibleDescription(), QStringLiteral("HH"));
  Receive("<ID1A><RP014>\r\n");
  EXPECT_EQ(PlayingLine(26), QStringLiteral("no schedule is playing"));
  EXPECT_EQ(PressedDown(26), "");
}

TEST_F(SchedulesTest, PlaysAScheduleByAClick) {
  Receive("<ID1A><TB>1083001305A\r\n<ID1A><TC>1083001405E\r\n<ID03><TC>1083001505E\r\n");
  EXPECT_EQ(PressedDown(26), "");
  ASSERT_TRUE(WaitUntil([&] { return HasItsPlace(Button(26, 'C')); }));
  QTest::mouseClick(Button(26, 'C'), Qt::LeftButton);
  WaitForRefresh();
  EXPECT_EQ(engine_.PlayingAt(26, now_), (Playing{'C', 1, 1, 14, 'E'}));
  EXPECT_TRUE(PlayingLine(26).startsWith(QStringLiteral("playing schedule C")));
  EXPECT_EQ(PressedDown(26), "C");
  EXPECT_EQ(engine_.PlayingAt(3, now_), std::nullopt);
  // Once more is from its first page again, and it stays pressed down.
  QTest::mouseClick(Button(26, 'C'), Qt::LeftButton);
  EXPECT_EQ(PressedDown(26), "C");
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "C");
  QTest::mouseClick(Button(26, 'B'), Qt::LeftButton);
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "B");
}

TEST_F(SchedulesTest, PlaysAScheduleByTheKeyboard) {
  // Whatever their order of arrival, the tab key goes by letter.
  Receive("<ID1A><TJ>1083001605A\r\n<ID1A><TC>1083001405E\r\n<ID1A><TB>1083001305A\r\n");
  window_.activateWindow();
  Button(26, 'B')->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Button(26, 'B')->hasFocus(); }));
  QTest::keyClick(&window_, Qt::Key_Tab);
  EXPECT_TRUE(Button(26, 'C')->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "C");
  EXPECT_TRUE(Button(26, 'C')->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Button(26, 'J')->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "J");
}

TEST_F(SchedulesTest, CanBeReachedFromTheTrafficByTheTabKey) {
  Receive("<ID03><TA>1083001605A\r\n<ID1A><TC>1083001405E\r\n");
  window_.activateWindow();
  Find<QTableWidget>("traffic")->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Find<QTableWidget>("traffic")->hasFocus(); }));
  QWidgetList met;
  for (int i = 0; i < 10; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    met.append(QApplication::focusWidget());
  }
  const qsizetype first = met.indexOf(Button(3, 'A'));
  EXPECT_GE(first, 0);
  EXPECT_GT(met.indexOf(Button(26, 'C')), first);
}

TEST_F(SchedulesTest, WakesOnlyWhenSomethingChanges) {
  auto* play_timer = Find<QTimer>("play_timer");
  EXPECT_FALSE(play_timer->isActive());
  Receive("<ID1A><TA>6103200105A,00207B\r\n");  // in two minutes
  EXPECT_EQ(play_timer->interval(), 120'000);
  now_ = now_.addSecs(122);
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(play_timer->interval(), 3000);
  now_ = now_.addSecs(3);
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(play_timer->interval(), 7000);
  // A page alone follows itself: until next week.
  Receive("<ID1A><TA>6103200105A\r\n");
  EXPECT_EQ(play_timer->interval(), 24 * 3600 * 1000);
  Receive("<ID1A><D*>\r\n");
  EXPECT_FALSE(play_timer->isActive());
}

TEST_F(SchedulesTest, FollowsAScheduleWithoutAnyFrame) {
  Receive("<ID1A><TA>*****00101A,00201B\r\n");
  EXPECT_TRUE(PlayingLine(26).contains(QStringLiteral("page 1 ")));
  now_ = now_.addSecs(1);
  // The timer runs in real time: within a second it asks for the page of now.
  EXPECT_TRUE(WaitUntil([&] { return PlayingLine(26).contains(QStringLiteral("page 2 ")); }));
}

TEST_F(SchedulesTest, ShowsAScrollingText) {
  auto* timer = Find<QTimer>("scroll_timer");
  auto* view = Find<PanelView>("panel_26");
  EXPECT_FALSE(timer->isActive());
  Receive("<ID1A><L01><P001>one \r\n<ID1A><L02><P001>two \r\n<ID1A><L2><CK>HHHH\r\n");
  EXPECT_TRUE(timer->isActive());
  EXPECT_GE(timer->interval(), 20);
  EXPECT_EQ(view->accessibleDescription(), QStringLiteral("one\nHHHH"));
  const auto green = [&] {
    const QImage image = view->grab().toImage();
    const QRect row = RowRect(view->size(), {26, 4, 96, true}, 2).toRect();
    int found = 0;
    for (int y = row.top(); y <= row.bottom(); ++y) {
      for (int x = row.left(); x <= row.right(); ++x) {
        if (image.pixelColor(x, y) == QColor(0, 255, 0)) ++found;
      }
    }
    return found;
  };
  EXPECT_EQ(green(), 0);
  now_ = now_.addSecs(2);  // 60 dots of the 96 + 24
  EXPECT_GT(green(), 50);
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

TEST_F(SchedulesTest, ScrollsAtTheSpeedThatIsSet) {
  Receive("<ID1A><L2>text\r\n");
  auto* timer = Find<QTimer>("scroll_timer");
  window_.SetScrollSpeed(1);
  EXPECT_EQ(timer->interval(), 1000);
  window_.SetScrollSpeed(10);
  EXPECT_EQ(timer->interval(), 100);
  window_.SetScrollSpeed(1000);
  EXPECT_EQ(timer->interval(), 20);
  EXPECT_EQ(Find<PanelView>("panel_26")->Picture().scroll_speed, 1000);
}

TEST_F(SchedulesTest, TakesAnySchedulesInANarrowWindow) {
  window_.resize(800, 600);
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    engine_.Receive(QByteArray("<ID00><T") + letter + ">*12**00105A,00205A,00305A\r\n");
  }
  WaitForRefresh();
  EXPECT_EQ(window_.width(), 800);
  const auto lies_in_the_window = [&](const QWidget* widget) {
    const int left = widget->mapTo(&window_, QPoint()).x();
    return left >= 0 && left + widget->width() <= window_.width();
  };
  EXPECT_TRUE(WaitUntil([&] { return HasItsPlace(Button(26, 'J')); }));
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    EXPECT_TRUE(lies_in_the_window(Button(26, letter))) << letter;
    EXPECT_TRUE(HasItsPlace(Button(26, letter))) << letter;
  }
  EXPECT_GT(Button(26, 'J')->y(), Button(26, 'A')->y());
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
