// The selection, the clipboard and the menu of the page editor, where a page has several rows.
#include <QAbstractItemView>
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include "page/msg_editor.h"
#include "row/row_commands.h"
#include "row/row_surface.h"

using namespace Qt::StringLiterals;

namespace {

class MsgEditorSelection : public MsgEditor {
 protected:
  bool IsAnySelected() {
    const QImage image = Picture(1);
    for (int x = 6; x < image.width(); x += 12) {
      if (image.pixelColor(x, 0) == QColor(120, 180, 255)) return true;
    }
    return false;
  }
  bool IsFramed(int row) { return Picture(row).pixelColor(6, 0) == QColor(120, 180, 255); }
};

TEST_F(MsgEditorSelection, TheFocusOfAnotherRowEndsItAndThatOfAListDoesNot) {
  New(2, 80);
  Keys("abc");
  Key(Qt::Key_A, Qt::ControlModifier);
  Find<QComboBox>("ComboColor")->setFocus();
  EXPECT_TRUE(IsFramed(1));
  Row(2)->setFocus();
  EXPECT_FALSE(IsFramed(1));
  QTest::mouseClick(Row(1), Qt::LeftButton, Qt::NoModifier, QPoint(30, 10));
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(window_.focusWidget(), Row(2));
  EXPECT_FALSE(IsFramed(1));
}

TEST_F(MsgEditorSelection, SeveralPastedLinesGoOnIntoTheFollowingRows) {
  New(3, 80);
  Key(Qt::Key_Down);
  QGuiApplication::clipboard()->setText(u"a\tb\nsecond\n"_s);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Row(3));
  EXPECT_EQ(Cursor(3), 6);
  EXPECT_EQ(RowLines(), "<L01>\r\n<L02><SA><CA>ab\r\n<L03><SA><CA>second\r\n");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Row(2));
  EXPECT_EQ(ReadOut(Row(3)), QString());
  EXPECT_EQ(RowLines(), "<L01>\r\n<L02>\r\n<L03>\r\n");
}

TEST_F(MsgEditorSelection, WhatAPasteLeavesOutIsSaid) {
  New(1, 25);
  auto* commands = window_.findChild<RowCommands*>();
  ASSERT_NE(commands, nullptr);
  const QSignalSpy said(commands, &RowCommands::Said);
  const auto status = [this] { return Find<QLabel>("lblRowStatus")->text(); };
  QGuiApplication::clipboard()->setText(u"abc\u9053"_s);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(said.value(0), QVariantList({u"The panels have no character \u9053."_s}));
  EXPECT_EQ(QToolTip::text(), u"The panels have no character \u9053."_s);
  EXPECT_EQ(status(), QToolTip::text());
  QGuiApplication::clipboard()->setText(u"defg\u9053\nhij"_s);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(QToolTip::text(),
            u"The row is full: 2 characters were left out. There is no further row: 3 characters "
            "were left out. The panels have no character \u9053."_s);
  EXPECT_EQ(said.value(1), QVariantList({QToolTip::text()}));
  EXPECT_EQ(status(), QToolTip::text());
  QGuiApplication::clipboard()->setText(QString());
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(said.size(), 2);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>abcde\r\n");
}

TEST_F(MsgEditorSelection, ASizeThatIsRefusedIsSaidAndTheListGoesBack) {
  New(1, 40);
  auto* sizes = Find<QComboBox>("ComboSize");
  sizes->setCurrentIndex(3);
  Keys("12345678");
  Key(Qt::Key_A, Qt::ControlModifier);
  RowLines();  // saves
  const QSignalSpy said(window_.findChild<RowCommands*>(), &RowCommands::Said);
  sizes->showPopup();
  QTest::keyClick(sizes->view(), Qt::Key_Up);
  QTest::keyClick(sizes->view(), Qt::Key_Return);
  EXPECT_EQ(sizes->currentIndex(), 3);
  EXPECT_EQ(said.size(), 1);
  EXPECT_EQ(QToolTip::text(), u"The size stays: the row would be wider than the panel."_s);
  EXPECT_FALSE(Asks());
  EXPECT_TRUE(IsFramed(1));
  EXPECT_EQ(RowLines(), "<L01><SD><CA>12345678\r\n");
}

TEST_F(MsgEditorSelection, ARefusedSizeLeavesOtherSizesOfTheSelectionAndTheLineSaysSo) {
  for (const bool by_list : {true, false}) {
    New(1, 40);
    auto* sizes = Find<QComboBox>("ComboSize");
    sizes->setCurrentIndex(1);
    Keys("123456");
    sizes->setCurrentIndex(3);
    Keys("78");
    Key(Qt::Key_A, Qt::ControlModifier);
    const QByteArray before = RowLines();
    ASSERT_EQ(before, "<L01><SB><CA>123456<SD>78\r\n");
    sizes->setFocus();
    if (by_list) {
      sizes->showPopup();
      QTest::keyClick(sizes->view(), Qt::Key_Up);
      QTest::keyClick(sizes->view(), Qt::Key_Return);
    } else {
      QTest::keyClick(sizes, Qt::Key_Home);
    }
    EXPECT_EQ(sizes->currentIndex(), 3);
    EXPECT_EQ(Find<QLabel>("lblRowStatus")->text(),
              u"The size stays: the row would be wider than the panel."_s);
    EXPECT_TRUE(IsFramed(1));
    EXPECT_FALSE(Asks());
    EXPECT_EQ(RowLines(), before);
    // The next choice counts again.
    QTest::qWait(0);
    Q_EMIT sizes->activated(3);
    EXPECT_EQ(RowLines(), "<L01><SD><CA>12345678\r\n");
  }
}

TEST_F(MsgEditorSelection, AClickAtTheEdgeOfAWidePageSelectsNothingAndScrollsWhenItIsOver) {
  New(2, 3000);
  Keys(QByteArray(200, 'x').constData());
  Key(Qt::Key_Down);
  Key(Qt::Key_Up);
  Key(Qt::Key_Home);
  const int left = Row(1)->x();
  const int edge = Row(1)->parentWidget()->width() - left - 2;
  const auto move = [this](int x, const QPointF& on_screen) {
    QMouseEvent event(QEvent::MouseMove, QPointF(x, 10), on_screen, Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(Row(1), &event);
  };
  const QPointF place = Row(1)->mapToGlobal(QPointF(edge, 10));
  QTest::mousePress(Row(1), Qt::LeftButton, {}, QPoint(edge, 10));
  EXPECT_EQ(Row(1)->x(), left);
  move(edge + 24, place + QPointF(1, 0));
  EXPECT_FALSE(IsAnySelected());
  QTest::mouseRelease(Row(1), Qt::LeftButton, {}, QPoint(edge, 10));
  EXPECT_LT(Row(1)->x(), left);
  EXPECT_FALSE(IsAnySelected());
  QTest::mousePress(Row(1), Qt::LeftButton, {}, QPoint(edge, 10));
  move(edge - 60, Row(1)->mapToGlobal(QPointF(edge - 60, 10)));
  EXPECT_TRUE(IsAnySelected());
}

TEST_F(MsgEditorSelection, CentreRowAndCopyRowHaveKeys) {
  New(1, 60);
  Keys("ab");
  Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"ab"_s);
  Key(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>    ab\r\n");
  EXPECT_EQ(Cursor(1), 6);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
}

TEST_F(MsgEditorSelection, TheContextMenuPastesIntoItsRow) {
  New(2, 80);
  QGuiApplication::clipboard()->setText(Text("abc"));
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(Row(2), &event);
  auto* menu = Row(2)->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  QAction* paste = menu->actions().value(5);
  EXPECT_EQ(paste->text(), Text("Paste"));
  EXPECT_TRUE(paste->isEnabled());
  paste->trigger();
  menu->close();
  EXPECT_EQ(RowLines(), "<L01>\r\n<L02><SA><CA>abc\r\n");
}

TEST_F(MsgEditorSelection, ADoubleClickAtTheEdgeSelectsWhatWasPressedFirst) {
  New(1, 960);
  QString words;  // each of one character
  for (int n = 0; n < 90; ++n) words += u"a."_s;
  Keys(words);
  Key(Qt::Key_Home);
  QCoreApplication::processEvents();
  QWidget* row = Row(1);
  const QPoint place =
      row->parentWidget()->mapToGlobal(QPoint(row->parentWidget()->width() - 3, row->y() + 10));
  const qsizetype pressed = row->mapFromGlobal(place).x() / 12;
  const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
    QMouseEvent event(type, row->mapFromGlobal(place), place, Qt::LeftButton, buttons, {});
    QCoreApplication::sendEvent(row, &event);
  };
  send(QEvent::MouseButtonPress, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, Qt::NoButton);
  const int left = row->x();
  send(QEvent::MouseButtonDblClick, Qt::LeftButton);
  EXPECT_EQ(row->x(), left) << "the row stays below a mouse that is pressed";
  QMouseEvent move(QEvent::MouseMove, row->mapFromGlobal(place - QPoint(60, 0)),
                   place - QPoint(60, 0), Qt::NoButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(row, &move);
  send(QEvent::MouseButtonRelease, Qt::NoButton);
  int begin = 0;
  int end = 0;
  QAccessible::queryAccessibleInterface(row)->textInterface()->selection(0, &begin, &end);
  EXPECT_EQ(begin, pressed);
  EXPECT_EQ(end, pressed + 1);
}

}  // namespace
