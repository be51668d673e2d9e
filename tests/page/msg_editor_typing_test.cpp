// What the page editor does with keys, insertions and the mouse in the rows of its page.
#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/msg_editor.h"

namespace {

TEST_F(MsgEditor, WithCol80ARowTakes16CharactersThe17thKeyPressIsIgnoredButStillMarksThePage) {
  New(1, 80);
  Keys("1234567890123456");
  EXPECT_EQ(RowLines(), "<L01><SA><CA>1234567890123456\r\n");
  EXPECT_FALSE(Asks());
  Keys("7");
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>1234567890123456\r\n");
}

TEST_F(MsgEditor, BackspaceAtColumn0AndEnterChangeNothingButMarkThePageModified) {
  New(2, 80);
  for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Enter}) {
    EXPECT_FALSE(Asks());
    Row(1)->setFocus();
    Key(key);
    EXPECT_TRUE(Asks());
    EXPECT_EQ(window_.isVisible(), true);
    EXPECT_EQ(RowLines(), "<L01>\r\n<L02>\r\n");
  }
}

TEST_F(MsgEditor, DeleteAtTheEndOfARowDoesNothing) {
  New(1, 80);
  Keys("ab");
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
  Key(Qt::Key_Delete);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
}

TEST_F(MsgEditor, UpOnRow1AndDownOnRowROrRow12DoNothing) {
  New(3, 80);
  Key(Qt::Key_Up);
  EXPECT_EQ(window_.focusWidget(), Row(1));
  for (int step = 0; step < 5; ++step) Key(Qt::Key_Down);
  EXPECT_EQ(window_.focusWidget(), Row(3));
  New(12, 80);
  for (int step = 0; step < 15; ++step) Key(Qt::Key_Down);
  EXPECT_EQ(window_.focusWidget(), Row(12));
}

TEST_F(MsgEditor, TheMoveKeysMoveTheCursorOfTheirRow) {
  New(2, 80);
  Keys("abcd");
  EXPECT_EQ(Cursor(1), 4);
  Key(Qt::Key_Home);
  EXPECT_EQ(Cursor(1), 0);
  Key(Qt::Key_Left);
  EXPECT_EQ(Cursor(1), 0);
  Key(Qt::Key_Right);
  EXPECT_EQ(Cursor(1), 1);
  Key(Qt::Key_Delete);
  Keys("X");
  EXPECT_EQ(Cursor(1), 2);
  Key(Qt::Key_End);
  EXPECT_EQ(Cursor(1), 4);
  Key(Qt::Key_Right);
  EXPECT_EQ(Cursor(1), 4);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Cursor(1), 3);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>aXc\r\n<L02>\r\n");
}

TEST_F(MsgEditor, CtrlWithLeftAndRightGoesToTheStartOfTheNextAndPreviousWord) {
  New(1, 120);
  Keys("Shop:  open 9-17");
  const auto steps = [this](Qt::Key key) {
    QList<int> columns;
    for (int step = 0; step < 8; ++step) {
      Key(key, Qt::ControlModifier);
      columns.append(Cursor(1));
    }
    return columns;
  };
  EXPECT_EQ(steps(Qt::Key_Left), QList<int>({14, 13, 12, 7, 4, 0, 0, 0}));
  EXPECT_EQ(steps(Qt::Key_Right), QList<int>({4, 7, 12, 13, 14, 16, 16, 16}));
  for (int step = 0; step < 7; ++step) Key(Qt::Key_Left);  // into "open"
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Cursor(1), 7);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>Shop:  open 9-17\r\n");
}

TEST_F(MsgEditor, CtrlWithHomeAndEndGoesToTheEndsOfTheRow) {
  New(2, 80);
  Key(Qt::Key_Down);
  Keys("ab cd");
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(Cursor(2), 0);
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Cursor(2), 5);
}

TEST_F(MsgEditor, CtrlWithBackspaceAndDeleteTakeOutAWord) {
  New(1, 120);
  Keys("one two three");
  RowLines();  // saves
  for (int step = 0; step < 7; ++step) Key(Qt::Key_Left);
  Key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(Cursor(1), 6);
  EXPECT_FALSE(Asks());  // as Delete alone
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one twthree\r\n");
  Key(Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_EQ(Cursor(1), 4);
  EXPECT_TRUE(Asks());  // as Backspace alone
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one three\r\n");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one twthree\r\n");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one two three\r\n");
  Key(Qt::Key_Home);
  Key(Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_TRUE(Asks());  // typing without an effect
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one two three\r\n");
}

TEST_F(MsgEditor, AClickRightOfTheLastCharacterPutsTheCursorAtTheEndOfTheRow) {
  New(2, 80);
  Key(Qt::Key_Down);
  Keys("abcd");
  Key(Qt::Key_Up);
  QTest::mouseClick(Row(2), Qt::LeftButton, {}, QPoint(150, 10));
  EXPECT_EQ(window_.focusWidget(), Row(2));
  EXPECT_EQ(Cursor(2), 4);
  EXPECT_EQ(Cursor(1), -1);
  QTest::mouseClick(Row(2), Qt::LeftButton, {}, QPoint(17, 10));
  EXPECT_EQ(Cursor(2), 1);
  QTest::mouseClick(Row(2), Qt::LeftButton, {}, QPoint(18, 10));
  EXPECT_EQ(Cursor(2), 2);
  EXPECT_FALSE(IsLine(Picture(2), 12, Qt::white));
}

TEST_F(MsgEditor, AGraphicInsertedWhenTheRowHasOneFreePlaceStoresOnlyTheTilde) {
  New(1, 15);
  Keys("ab");
  auto* graphics = Find<QComboBox>("ComboGraphic");
  graphics->setFocus();
  Key(Qt::Key_K);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab~\r\n");
}

TEST_F(MsgEditor, ChoosingTheSameGraphicAgainInsertsItAgainAndMarksThePage) {
  New(1, 80);
  auto* graphics = Find<QComboBox>("ComboGraphic");
  for (int time = 0; time < 2; ++time) {
    graphics->setFocus();
    Key(Qt::Key_Down);  // opens the list
    ASSERT_TRUE(graphics->view()->isVisible());
    QTest::keyClick(graphics->view(), Qt::Key_Return);
    EXPECT_EQ(window_.focusWidget(), Row(1));
    EXPECT_TRUE(Asks());
  }
  EXPECT_EQ(RowLines(), "<L01><SA><CA>~A~A\r\n");
}

TEST_F(MsgEditor, StepsInTheClosedGraphicListOpenItAndInsertNothing) {
  New(1, 80);
  auto* graphics = Find<QComboBox>("ComboGraphic");
  for (const Qt::Key key :
       {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}) {
    graphics->setCurrentIndex(10);
    graphics->setFocus();
    Key(key);
    EXPECT_TRUE(graphics->view()->isVisible()) << key;
    graphics->hidePopup();
    EXPECT_EQ(graphics->currentIndex(), 10) << key;
  }
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, DateAndTimeAreInsertedAtTheCursorAndMarkThePage) {
  New(1, 120);
  Keys("ab");
  Key(Qt::Key_Left);
  Press("cmdAddDate");
  EXPECT_EQ(window_.focusWidget(), Row(1));
  Press("cmdAddTime");
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>aDD MMM YYYYHH:MMb\r\n");
}

TEST_F(MsgEditor, ATypedCharacterWithoutAByteInTheCodePageIsARefusedKey) {
  New(1, 80);
  QTest::sendKeyEvent(QTest::Click, Row(1), Qt::Key_unknown, QString(QChar(0x4E2D)),
                      Qt::NoModifier);
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, AnInputMethodsTextGoesThroughTheTypingRule) {
  New(1, 15);
  QInputMethodEvent dead_key(Text("´"), {});
  QApplication::sendEvent(Row(1), &dead_key);
  EXPECT_FALSE(Asks());
  QInputMethodEvent committed;
  committed.setCommitString(Text("éabc"));
  QApplication::sendEvent(Row(1), &committed);
  EXPECT_EQ(RowLines(),
            "<L01><SA><CA>\xE9"
            "ab\r\n");
  EXPECT_EQ(Row(1)->inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(36, 0, 1, 20));
  QInputMethodQueryEvent enabled(Qt::ImEnabled);
  QApplication::sendEvent(Row(1), &enabled);
  EXPECT_TRUE(enabled.value(Qt::ImEnabled).toBool());
}

TEST_F(MsgEditor, AnInputMethodIsToldWhatIsSelected) {
  New(1, 80);
  Keys("abcd");
  Key(Qt::Key_Left, Qt::ShiftModifier);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Row(1)->inputMethodQuery(Qt::ImCursorPosition).toInt(), 2);
  EXPECT_EQ(Row(1)->inputMethodQuery(Qt::ImAnchorPosition).toInt(), 4);
}

TEST_F(MsgEditor, APasteFillsTheRowAndNoMore) {
  New(2, 80);
  Keys("xyz");
  QGuiApplication::clipboard()->setText(QString(5000000, QLatin1Char('p')));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>xyzppppppppppppp\r\n<L02>\r\n");
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, UndoAndRedoKeysTakeEditsBackAndMakeThemAgain) {
  New(2, 80);
  Keys("abc");
  Key(Qt::Key_Down);
  QGuiApplication::clipboard()->setText(Text("paste"));
  Key(Qt::Key_V, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(ReadOut(Row(2)), QString());
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Row(1));
  EXPECT_EQ(Cursor(1), 2);
  EXPECT_EQ(Cursor(2), -1);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n<L02>\r\n");
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Row(2));
  EXPECT_EQ(RowLines(), "<L01><SA><CA>abc\r\n<L02><SA><CA>paste\r\n");
}

TEST_F(MsgEditor, UndoWithNothingToTakeBackTouchesNothing) {
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_FALSE(Find<QTimer>("Timer1")->isActive());
  EXPECT_EQ(window_.focusWidget(), Button("butNew"));
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, WhatWasTypedIntoAnotherPageIsNotTakenBack) {
  New(1, 80);
  Keys("abc");
  Press("butSave");
  Open(WriteMessage("other.msg", "<L01>xyz\r\n<L02>\r\n"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>xyz\r\n<L02>\r\n");
  New(1, 80);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, OfARowThatIsTooLongToKeepItsAttributesTheTextIsCopied) {
  constexpr int kLength = 1'000'001;
  Open(folder_.Write(Text("long.msg"),
                     "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01>" +
                         QByteArray(kLength, 'a') + "\r\n"));
  Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  const QMimeData& copied = *QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(copied.text() == QString(kLength, QLatin1Char('a')));
  EXPECT_EQ(copied.formats(), QStringList(Text("text/plain")));
}

TEST_F(MsgEditor, AFileOfVeryLongRowsCanBeEdited) {
  QByteArray content = "*** Brivon Message File ***\r\nRow = 12\r\nCol = 80\r\n";
  for (int row = 0; row < 12; ++row) content += QByteArray(100000, 'a') + "\r\n";
  Open(folder_.Write(Text("long.msg"), content));
  EXPECT_EQ(Row(1)->width(), 16 * 12 + 5);
  Key(Qt::Key_Home);
  EXPECT_EQ(Cursor(1), 0);
  Keys("x");
  Key(Qt::Key_Delete);
  EXPECT_EQ(RowLines().indexOf("\r\n"), 13 + 99999);
}

}  // namespace
