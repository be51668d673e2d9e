// What the scrolling message editor does with keys and the mouse in its message and its span.
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

#include "scrolling/shift_msg.h"

namespace {

TEST_F(ShiftMsg, TheKeysEditTheMessage) {
  Keys("abcd");
  Key(Qt::Key_Home);
  EXPECT_EQ(CursorCell(), 0);
  Key(Qt::Key_Left);
  Key(Qt::Key_Right);
  EXPECT_EQ(CursorCell(), 1);
  Key(Qt::Key_Delete);
  Keys("X");
  Key(Qt::Key_Return);
  Key(Qt::Key_Enter);
  Key(Qt::Key_Up);
  Key(Qt::Key_Down);
  EXPECT_EQ(CursorCell(), 2);
  Key(Qt::Key_End);
  EXPECT_EQ(CursorCell(), 4);
  Key(Qt::Key_Right);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Position(), Text("3 of 3"));
  EXPECT_EQ(Body(), "<SA><CA>aXc\r\n");
}

TEST_F(ShiftMsg, TypingThe1001stCharacterDoesNothing) {
  Keys(QString(999, QLatin1Char('a')));
  EXPECT_EQ(Position(), Text("999 of 999"));
  Keys("b");
  EXPECT_EQ(Position(), Text("1000 of 1000 (full)"));
  const QByteArray full = "<SA><CA>" + QByteArray(999, 'a') + "b\r\n";
  EXPECT_EQ(Body(), full);
  Keys("c");
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Body(), full);
}

TEST_F(ShiftMsg, BackspaceAtTheStartAndDeleteAtTheEndDoNothing) {
  Keys("ab");
  EXPECT_EQ(Body(), "<SA><CA>ab\r\n");
  Key(Qt::Key_Delete);
  Key(Qt::Key_Home);
  Key(Qt::Key_Backspace);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Body(), "<SA><CA>ab\r\n");
}

TEST_F(ShiftMsg, EndOnA100CharacterMessageSetsTheFirstVisibleCharacterTo70) {
  Open(Write("a.srl", "<CJ>" + QByteArray(70, 'a') + "<CK>" + QByteArray(30, 'b')));
  Key(Qt::Key_Home);
  EXPECT_EQ(Position(), Text("0 of 100"));
  EXPECT_EQ(CursorCell(), 0);
  const QColor green(0, 255, 0);
  const QColor red(255, 0, 0);
  EXPECT_EQ(Image().pixelColor(29 * 12 + 1, 1), green);
  Key(Qt::Key_End);
  EXPECT_EQ(Position(), Text("100 of 100"));
  EXPECT_EQ(CursorCell(), 30);
  const QImage image = Image();
  EXPECT_EQ(image.pixelColor(1, 1), red);
  EXPECT_EQ(image.pixelColor(29 * 12 + 1, 1), red);
  Key(Qt::Key_Left);
  for (int step = 0; step < 30; ++step) Key(Qt::Key_Left);
  EXPECT_EQ(Position(), Text("69 of 100"));
  EXPECT_EQ(CursorCell(), 0);
  EXPECT_EQ(Image().pixelColor(2, 1), green);
  EXPECT_EQ(Image().pixelColor(13, 1), red);
}

TEST_F(ShiftMsg, TypingPastTheVisibleSpanTheFirstVisibleCharacterFollowsTheCursor) {
  Keys(QString(45, QLatin1Char('x')));
  EXPECT_EQ(CursorCell(), 30);
  Key(Qt::Key_Home);
  EXPECT_EQ(CursorCell(), 0);
  for (int step = 0; step < 31; ++step) Key(Qt::Key_Right);
  EXPECT_EQ(CursorCell(), 30);
  EXPECT_EQ(Position(), Text("31 of 45"));
}

TEST_F(ShiftMsg, CtrlWithLeftAndRightGoesByWordsAndTheVisibleSpanFollows) {
  Open(Write("a.srl", "one " + QByteArray(40, 'a') + " two"));
  ASSERT_EQ(Position(), Text("48 of 48"));
  ASSERT_EQ(CursorCell(), 30);
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 48"));
  EXPECT_EQ(CursorCell(), 27);
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("4 of 48"));
  EXPECT_EQ(CursorCell(), 0);
  Key(Qt::Key_Left, Qt::ControlModifier);
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("0 of 48"));
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("4 of 48"));
  EXPECT_EQ(CursorCell(), 4);
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 48"));
  EXPECT_EQ(CursorCell(), 30);
  Key(Qt::Key_Right, Qt::ControlModifier);
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("48 of 48"));
  EXPECT_EQ(CursorCell(), 30);
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, CtrlWithBackspaceAndDeleteTakeOutAWord) {
  Open(Write("a.srl", "one " + QByteArray(40, 'a') + " two"));
  Key(Qt::Key_Left, Qt::ControlModifier);
  Key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 45"));
  EXPECT_TRUE(Asks());
  Key(Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("4 of 4"));
  EXPECT_GT(CursorCell(), 0);  // what stands in front of it is in sight
  EXPECT_EQ(Body(), "<SA><CA>one \r\n");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 45"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 48"));
}

TEST_F(ShiftMsg, WhoeverRemovesCharactersSeesWhichOnesComeNext) {
  Open(Write("a.srl", QByteArray(100, 'a')));
  for (int step = 0; step < 99; ++step) {
    Key(Qt::Key_Backspace);
    EXPECT_GT(CursorCell(), 0) << step;
  }
  EXPECT_EQ(Position(), Text("1 of 1"));
}

TEST_F(ShiftMsg, AClickSetsTheCursorAsInThePageEditor) {
  Open(Write("a.srl", QByteArray(100, 'a')));
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(17, 10));
  EXPECT_EQ(Position(), Text("71 of 100"));
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(18, 10));
  EXPECT_EQ(Position(), Text("72 of 100"));
  EXPECT_EQ(CursorCell(), 2);
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(364, 10));
  EXPECT_EQ(Position(), Text("100 of 100"));
  QTest::mouseClick(Picture(), Qt::RightButton, {}, QPoint(18, 10));
  EXPECT_EQ(Position(), Text("100 of 100"));
  EXPECT_FALSE(Asks());
  Press("butNew");
  Keys("abcd");
  Button("butNew")->setFocus();
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(300, 10));
  EXPECT_EQ(Position(), Text("4 of 4"));
  EXPECT_EQ(window_.focusWidget(), Picture());
}

TEST_F(ShiftMsg, ATypedCharacterWithoutAByteInTheCodePageIsARefusedKey) {
  QTest::sendKeyEvent(QTest::Click, Picture(), Qt::Key_unknown, QString(QChar(0x4E2D)),
                      Qt::NoModifier);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Body(), "\r\n");
}

TEST_F(ShiftMsg, AnInputMethodFindsTheCursorInTheSpan) {
  Open(Write("a.srl", QByteArray(100, 'a')));
  EXPECT_EQ(Picture()->inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(360, 0, 1, 20));
  Key(Qt::Key_Left);
  EXPECT_EQ(Picture()->inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(348, 0, 1, 20));
}

TEST_F(ShiftMsg, APasteTypesTheFirstLineOfTheClipboard) {
  Keys("[]");
  Key(Qt::Key_Left);
  QGuiApplication::clipboard()->setText(Text("a\tb\bc\x1b\r\nsecond line"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(CursorCell(), 4);
  EXPECT_EQ(Position(), Text("4 of 5"));
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Body(), "<SA><CA>[abc]\r\n");
}

TEST_F(ShiftMsg, APasteFillsTheMessageAndNoMore) {
  Keys("xyz");
  QGuiApplication::clipboard()->setText(QString(5000000, QLatin1Char('p')));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("1000 of 1000 (full)"));
  EXPECT_EQ(CursorCell(), 30);
  EXPECT_EQ(Body(), "<SA><CA>xyz" + QByteArray(997, 'p') + "\r\n");
}

TEST_F(ShiftMsg, WhatAPasteLeavesOutIsSaid) {
  Keys(QString(999, QLatin1Char('a')));
  QGuiApplication::clipboard()->setText(Text("xyz\nsecond"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(QToolTip::text(),
            Text("The row is full: 2 characters were left out. There is no further row: 6 "
                 "characters were left out."));
  EXPECT_EQ(Find<QLabel>("lblRowStatus")->text(), QToolTip::text());
  EXPECT_EQ(Position(), Text("1000 of 1000 (full)"));
}

TEST_F(ShiftMsg, TheFrameOfASelectionStaysOpenWhereItGoesOnOutOfSight) {
  const QColor frame(120, 180, 255);
  Open(Write("a.srl", QByteArray(100, ' ')));
  const auto at = [this](int x) { return Image().pixelColor(x, 10); };
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("100 of 100"));
  EXPECT_NE(at(0), frame);
  EXPECT_EQ(at(359), frame);
  Key(Qt::Key_End);
  Key(Qt::Key_Home, Qt::ShiftModifier);
  EXPECT_NE(at(359), frame);
  EXPECT_NE(at(364), frame);
  EXPECT_EQ(Image().pixelColor(364, 0), frame);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(at(11), QColor(0, 0, 0));
}

TEST_F(ShiftMsg, UndoAndRedoKeysTakeEditsBackAndMakeThemAgain) {
  const MessageBoxReader boxes;
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_FALSE(Asks());
  Keys("ab");
  QGuiApplication::clipboard()->setText(QString(50, QLatin1Char('p')));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(CursorCell(), 30);
  Find<QComboBox>("ComboColor")->setFocus();
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Picture());
  EXPECT_EQ(Position(), Text("2 of 2"));
  EXPECT_EQ(CursorCell(), 2);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("1 of 1"));
  Key(Qt::Key_Y, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Position(), Text("52 of 52"));
  Press("butSave");
  Open(Write("other.srl", "xyz"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Position(), Text("3 of 3"));
}

TEST_F(ShiftMsg, AMessageOf600000CharactersCanBeEdited) {
  Open(Write("long.srl", QByteArray(600000, 'a')));
  EXPECT_EQ(Position(), Text("600000 of 600000 (full)"));
  EXPECT_EQ(CursorCell(), 30);
  QElapsedTimer timer;
  timer.start();
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  Keys("refused");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("0 of 599999 (full)"));
  Key(Qt::Key_Right);
  QMetaObject::invokeMethod(Find<QTimer>("Timer2"), "timeout");
  EXPECT_LT(timer.elapsed(), 5000);
  EXPECT_EQ(Body().size(), 8 + 599999 + 2);
}

TEST_F(ShiftMsg, TheLineBelowTheRowSaysItsPlaceAndHowTheCharacterLooks) {
  const auto status = [this] { return Find<QLabel>("lblRowStatus")->text(); };
  EXPECT_EQ(status(), Text("Place 1 of 1000, Red, Normal"));
  Find<QComboBox>("ComboColor")->setCurrentIndex(1);
  Keys("ab");
  EXPECT_EQ(status(), Text("Place 3 of 1000, Green, Normal"));
  Find<QComboBox>("ComboColor")->setCurrentIndex(2);
  EXPECT_EQ(status(), Text("Place 3 of 1000, Yellow, Normal"));
  Key(Qt::Key_Left);
  EXPECT_EQ(status(), Text("Place 2 of 1000, Green, Normal"));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(Picture())->text(QAccessible::Help), status());
}

TEST_F(ShiftMsg, ARefusedKeyIsSaidWithItsReason) {
  const auto status = [this] { return Find<QLabel>("lblRowStatus")->text(); };
  Open(Write("full.srl", "<SA><CA>" + QByteArray(1000, 'x')));
  EXPECT_EQ(status(), Text("Place 1000 of 1000, Red, Normal"));
  Keys("y");
  EXPECT_EQ(status(), Text("The row is full."));
  Key(Qt::Key_Backspace);
  EXPECT_EQ(status(), Text("Place 1000 of 1000, Red, Normal"));
  QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(0x65E5)));
  QCoreApplication::sendEvent(Picture(), &key);
  EXPECT_EQ(status(), Text("The panels have no character ") + QChar(0x65E5) + QLatin1Char('.'));
}

}  // namespace
