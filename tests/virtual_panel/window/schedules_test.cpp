// The buttons of the schedules that a panel holds.

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "support/wheel.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

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

  // Whether the list is narrower than its buttons, can be scrolled to all of them, and has its
  // place.
  static bool IsLaidOut(const ScheduleButtons* list) {
    const int hidden = list->WidthOfButtons() - list->viewport()->width();
    return hidden > 0 && list->horizontalScrollBar()->maximum() == hidden &&
           list->parentWidget()->rect().contains(list->geometry());
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
  EXPECT_EQ(Schedules(26), (QStringList{u"B  \u00B7  daily 22:**  \u00B7  1 entry"_s,
                                        u"J  \u00B7  Mon 08:30  \u00B7  2 entries"_s}));
  EXPECT_EQ(Schedules(3), QStringList{u"A  \u00B7  Sat **:15  \u00B7  1 entry"_s});
  EXPECT_EQ(Button(26, 'J')->toolTip(), u"1. page 1, 5 s, Appear\n2. page 12, 7 s, Wipe Right"_s);
  EXPECT_EQ(Button(26, 'J')->accessibleDescription(), u"Plays schedule J of panel 26"_s);
  EXPECT_EQ(PlayingLine(26), u"no schedule is playing"_s);
  Receive("<ID1A><D*>\r\n");
  EXPECT_TRUE(Schedules(26).isEmpty());
  EXPECT_FALSE(Find<QLabel>("playing_26")->isVisible());
  EXPECT_EQ(Schedules(3).size(), 1);
}

TEST_F(SchedulesTest, OfManyEntriesTheFirstTwentyAreInTheToolTip) {
  QByteArray entries = "00105A";
  for (int entry = 2; entry <= 20; ++entry) entries += ",00105A";
  Receive("<ID1A><TB>10830" + entries + "\r\n<ID1A><TC>10830" + entries + ",00205B\r\n");
  const QStringList twenty = Button(26, 'B')->toolTip().split(QLatin1Char('\n'));
  EXPECT_EQ(twenty.size(), 20);
  EXPECT_EQ(twenty.last(), u"20. page 1, 5 s, Appear"_s);
  EXPECT_EQ(Button(26, 'C')->toolTip().split(QLatin1Char('\n')),
            twenty + QStringList{QString(QChar(0x2026))});
}

TEST_F(SchedulesTest, SaysWhatIsPlaying) {
  Receive("<ID1A><TB>*10**01305A,01407D,01503H\r\n");
  EXPECT_EQ(PlayingLine(26),
            u"playing schedule B   \u00B7   entry 1 of 3   \u00B7   "
            "page 13   \u00B7   Appear"_s);
  EXPECT_TRUE(Facts("facts_26").contains(u"showing page 13   \u00B7   0 pages"_s));
  EXPECT_EQ(PressedDown(26), "B");
  now_ = now_.addSecs(6);
  Receive("<ID1A><L01><P014><CK>HH \r\n");
  EXPECT_EQ(PlayingLine(26),
            u"playing schedule B   \u00B7   entry 2 of 3   \u00B7   "
            "page 14   \u00B7   Wipe Right"_s);
  EXPECT_EQ(Find<PanelView>("panel_26")->accessibleDescription(), u"HH"_s);
  Receive("<ID1A><RP014>\r\n");
  EXPECT_EQ(PlayingLine(26), u"no schedule is playing"_s);
  EXPECT_EQ(PressedDown(26), "");
}

TEST_F(SchedulesTest, PlaysAScheduleByAClick) {
  Receive("<ID1A><TB>1083001305A\r\n<ID1A><TC>1083001405E\r\n<ID03><TC>1083001505E\r\n");
  EXPECT_EQ(PressedDown(26), "");
  ASSERT_TRUE(WaitUntil([&] { return HasItsPlace(Button(26, 'C')); }));
  QTest::mouseClick(Button(26, 'C'), Qt::LeftButton);
  WaitForRefresh();
  EXPECT_EQ(engine_.PlayingAt(26, now_), (Playing{'C', 1, 1, 14, 'E'}));
  EXPECT_TRUE(PlayingLine(26).startsWith(u"playing schedule C"_s));
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
  Find<QTableView>("traffic")->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Find<QTableView>("traffic")->hasFocus(); }));
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
  auto* play_timer = Find<QTimer>("play_timer_26");
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
  EXPECT_TRUE(PlayingLine(26).contains(u"page 1 "_s));
  now_ = now_.addSecs(1);
  // The timer runs in real time: within a second it asks for the page of now.
  EXPECT_TRUE(WaitUntil([&] { return PlayingLine(26).contains(u"page 2 "_s); }));
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
  const auto* list = Find<ScheduleButtons>("schedules_26");
  EXPECT_TRUE(WaitUntil([&] { return HasItsPlace(Button(26, 'J')) && IsLaidOut(list); }));
  window_.activateWindow();
  Button(26, 'A')->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Button(26, 'A')->hasFocus(); }));
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    EXPECT_TRUE(Button(26, letter)->hasFocus()) << letter;
    EXPECT_TRUE(lies_in_the_window(Button(26, letter))) << letter;
    EXPECT_TRUE(HasItsPlace(Button(26, letter))) << letter;
    EXPECT_EQ(Button(26, letter)->visibleRegion().boundingRect(), Button(26, letter)->rect())
        << letter;
    QTest::keyClick(&window_, Qt::Key_Tab);
  }
  // The scroll bar lies below them.
  EXPECT_TRUE(list->horizontalScrollBar()->isVisible());
  EXPECT_GE(list->height(), Button(26, 'A')->height() + list->horizontalScrollBar()->height());
  // The wheel moves them, as it moves the pages.
  list->horizontalScrollBar()->setValue(0);
  TurnWheel(list->viewport());
  EXPECT_GT(list->horizontalScrollBar()->value(), 0);
}

TEST_F(SchedulesTest, TheOneThatPlaysCanBeSeenAmongTheOthers) {
  window_.resize(800, 600);
  QByteArray frames;
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    frames += QByteArray("<ID1A><T") + letter + ">6120000105A\r\n";
  }
  Receive(frames);
  ASSERT_TRUE(WaitUntil([&] { return IsLaidOut(Find<ScheduleButtons>("schedules_26")); }));
  EXPECT_TRUE(Button(26, 'J')->visibleRegion().isEmpty());
  engine_.Play(26, 'J');
  WaitForRefresh();
  EXPECT_EQ(Button(26, 'J')->visibleRegion().boundingRect(), Button(26, 'J')->rect());
  engine_.Play(26, 'A');
  WaitForRefresh();
  EXPECT_EQ(Button(26, 'A')->visibleRegion().boundingRect(), Button(26, 'A')->rect());
}

}  // namespace
}  // namespace VirtualPanel
