// What every editor of rows does with keys, the clipboard, an input method and the mouse.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "row/editor_driver.h"
#include "support/use_code_page.h"
#include "support/window_keys.h"

using namespace Qt::StringLiterals;

namespace {

TEST_P(RowEditor, KeysWithAltOrMetaNeitherMoveNorTypeAndGoOnToTheWindow) {
  Keys("ab cd");
  Key(Qt::Key_Left);
  WindowKeys window_keys(&window_);
  for (const Qt::KeyboardModifiers modifiers :
       {Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(Qt::MetaModifier),
        Qt::AltModifier | Qt::ControlModifier, Qt::MetaModifier | Qt::ShiftModifier}) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
                              Qt::Key_End, Qt::Key_Delete, Qt::Key_Backspace}) {
      SCOPED_TRACE(testing::Message() << key << " with " << modifiers.toInt());
      Key(key, modifiers);
      ExpectCursor(4, 5);
      EXPECT_EQ(window_keys.TakeLast(), key);
    }
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return CursorCell(Surface()) == 4; }));
  EXPECT_EQ(Saved(), FileOf("<SA><CA>ab cd"));
}

TEST_P(RowEditor, ShiftWithDeleteIsNoDelete) {
  Keys("ab");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>ab"));
  Key(Qt::Key_Home);
  for (const auto modifiers :
       {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::ShiftModifier | Qt::ControlModifier}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, modifiers, Text("\x7f"));
    QApplication::sendEvent(window_.focusWidget(), &press);
    Key(Qt::Key_Delete, modifiers);
  }
  ExpectCursor(0, 2);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Saved(), FileOf("<SA><CA>ab"));
}

TEST_P(RowEditor, ControlCharactersTypedInAnEditorAreIgnoredAndNoEdit) {
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_J, Qt::Key_X, Qt::Key_BracketLeft}) {
    Key(key, Qt::ControlModifier);
  }
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, u"\t"_s);
  QApplication::sendEvent(Surface(), &tab);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Saved(), FileOf(""));
}

TEST_P(RowEditor, LettersBeyondAsciiAreStoredInTheCodePage) {
  QTest::sendKeyEvent(QTest::Click, Surface(), Qt::Key_unknown, Text("ä"), Qt::NoModifier);
  QTest::sendKeyEvent(QTest::Click, Surface(), Qt::Key_E, Text("€"),
                      Qt::ControlModifier | Qt::AltModifier);
  QInputMethodEvent committed;
  committed.setCommitString(Text("é"));
  QApplication::sendEvent(Surface(), &committed);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>\xE4\x80\xE9"));
}

TEST_P(RowEditor, AnInputMethodIsToldWhereTheCursorGoes) {
  ASSERT_TRUE(QTest::qWaitFor([this] { return QGuiApplication::focusObject() == Surface(); }));
  Keys("abc");
  const QSignalSpy told(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged);
  Key(Qt::Key_Left);
  EXPECT_GE(told.count(), 1);
}

TEST_P(RowEditor, TheRowIsNamedAndReadOutToWhoCannotSeeIt) {
  EXPECT_EQ(Surface()->accessibleName(), Text(kind_.label));
  Keys("Road works");
  EXPECT_EQ(ReadOut(Surface()), Text("Road works"));
}

TEST_P(RowEditor, APasteTypesALineOfTheClipboard) {
  Keys("[]");
  Key(Qt::Key_Left);
  QGuiApplication::clipboard()->setText(Text("a\tb\bc\x1b\r\n"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(CursorCell(Surface()), 4);
  ExpectCursor(4, 5);
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Saved(), FileOf("<SA><CA>[abc]"));
}

TEST_P(RowEditor, APastedTextMayEndInAnyLineEnd) {
  QByteArray typed;
  for (const char* line_end : {"\n", "\r", "\r\n", "\u2028", "\u2029"}) {
    QGuiApplication::clipboard()->setText(Text("ab") + Text(line_end));
    Key(Qt::Key_V, Qt::ControlModifier);
    typed += "ab";
    EXPECT_EQ(Saved(), FileOf("<SA><CA>" + typed)) << line_end;
    ExpectCursor(static_cast<int>(typed.size()), static_cast<int>(typed.size()));
  }
}

TEST_P(RowEditor, APastedLetterBeyondLatin1IsStoredWhereTheCodePageHasIt) {
  const auto paste = [this](int number, const char* text) {
    const UseCodePage code_page(number);
    QGuiApplication::clipboard()->setText(Text(text));
    Key(Qt::Key_V, Qt::ControlModifier);
  };
  paste(1252, "\u20AC\u0152");
  paste(1251, "\u20AC\u0416");
  paste(1253, "\u03A9");
  paste(874, "\u0E01");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>\x80\x8C\x88\xC6\xD9\xA1"));
}

TEST_P(RowEditor, ShiftAndInsertPasteToo) {
  QGuiApplication::clipboard()->setText(Text("abc"));
  Key(Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abc"));
}

TEST_P(RowEditor, APasteGoesOnBehindCharactersWithoutAByte) {
  QGuiApplication::clipboard()->setText(QString(100, QChar(0x4E2D)) + Text("abc"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abc"));
}

TEST_P(RowEditor, ChangingColourSizeOrBlinkChangesOnlyCharactersTypedAfterwards) {
  Keys("a");
  Find<QComboBox>("ComboColor")->setCurrentIndex(15);
  Keys("b");
  Find<QComboBox>("ComboSize")->setCurrentIndex(1);
  Keys("c");
  QTest::mouseClick(Find<QCheckBox>("chkBlink"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_TRUE(Find<QCheckBox>("chkBlink")->isChecked());
  EXPECT_EQ(window_.focusWidget(), Surface());
  Keys("d");
  QTest::mouseClick(Find<QCheckBox>("chkBlink"), Qt::LeftButton, {}, QPoint(8, 8));
  Keys("e");
  Find<QCheckBox>("chkBlink")->setChecked(true);
  Keys("f");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>a<CP>b<SB>c<SF>d<SB>e<SF>f"));
  Find<QComboBox>("ComboColor")->setCurrentIndex(0);
  Find<QComboBox>("ComboSize")->setCurrentIndex(0);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Saved(), FileOf("<SA><CA>a<CP>b<SB>c<SF>d<SB>e<SF>f"));
}

TEST_P(RowEditor, EveryColourAndSizeHasItsLetter) {
  QByteArray expected;
  for (int index = 0; index < 16; ++index) {
    Find<QComboBox>("ComboColor")->setCurrentIndex(index);
    Find<QComboBox>("ComboSize")->setCurrentIndex(index % 4);
    Keys("x");
    expected += QByteArray("<S") + "ABCD"[index % 4] + "><C" + "ABCDEFGHIJKLMNOP"[index] + ">x";
  }
  EXPECT_EQ(Saved(), FileOf(expected));
}

TEST_P(RowEditor, OpenLeavesTheAttributesOfWhatIsTypedNext) {
  Find<QComboBox>("ComboColor")->setCurrentIndex(2);
  Find<QComboBox>("ComboSize")->setCurrentIndex(3);
  Find<QCheckBox>("chkBlink")->setChecked(true);
  Open(WriteWork("a", "<SB><CP>a"));
  Keys("x");
  EXPECT_EQ(Saved(), FileOf("<SB><CP>a<SH><CC>x"));
  EXPECT_EQ(Find<QComboBox>("ComboColor")->currentIndex(), 2);
  EXPECT_EQ(Find<QComboBox>("ComboSize")->currentIndex(), 3);
  EXPECT_TRUE(Find<QCheckBox>("chkBlink")->isChecked());
}

TEST_P(RowEditor, OnlyTheLeftButtonMovesTheCursor) {
  Keys("abcd");
  Find<QTimer>("Timer1")->stop();
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(Surface(), button, {}, QPoint(12, 10));
    EXPECT_EQ(CursorCell(Surface()), 4);
    ExpectCursor(4, 4);
    QTest::mouseDClick(Surface(), button, {}, QPoint(12, 10));
    EXPECT_EQ(CursorCell(Surface()), 4);
    ExpectCursor(4, 4);
  }
  QMetaObject::invokeMethod(Find<QTimer>("Timer1"), "timeout");
  EXPECT_EQ(CursorCell(Surface()), -1);
  QTest::mouseClick(Surface(), Qt::LeftButton, {}, QPoint(12, 10));
  EXPECT_EQ(CursorCell(Surface()), 1);  // seen at once
  QMetaObject::invokeMethod(Find<QTimer>("Timer1"), "timeout");
  EXPECT_EQ(CursorCell(Surface()), -1);
  QTest::mouseDClick(Surface(), Qt::LeftButton, {}, QPoint(12, 10));
  EXPECT_EQ(CursorCell(Surface()), 4);  // behind the word
}

TEST_P(RowEditor, TimersOfThePreviewCursor500MsBlinkingCharacters500Ms) {
  EXPECT_EQ(Find<QTimer>("Timer1")->interval(), 500);
  EXPECT_EQ(Find<QTimer>("Timer2")->interval(), 500);
  EXPECT_TRUE(Find<QTimer>("Timer1")->isActive());
  EXPECT_TRUE(Find<QTimer>("Timer2")->isActive());
}

TEST_P(RowEditor, TheCursorBlinks) {
  EXPECT_EQ(CursorCell(Surface()), 0);
  EXPECT_TRUE(QTest::qWaitFor([this] {
    return CursorCell(Surface()) == -1 && IsLine(Surface()->grab().toImage(), 0, Qt::black);
  }));
  EXPECT_TRUE(QTest::qWaitFor([this] { return CursorCell(Surface()) == 0; }));
}

TEST_P(RowEditor, TheCursorBlinksAnewFromEveryEdit) {
  auto* timer = Find<QTimer>("Timer1");
  ASSERT_TRUE(QTest::qWaitFor([&] { return timer->remainingTime() < 250; }));
  const int before = timer->remainingTime();
  Key(Qt::Key_Left);
  EXPECT_GT(timer->remainingTime(), before);
}

TEST_P(RowEditor, OfATypedTextEveryReasonWhyItIsCutIsSaid) {
  QInputMethodEvent commit;
  commit.setCommitString(u"\u65e5"_s + QString(1002, u'x'));
  QCoreApplication::sendEvent(Surface(), &commit);
  const QString status = Find<QLabel>("lblRowStatus")->text();
  const qsizetype left_out = 1002 - ReadOut(Surface()).size();
  EXPECT_GT(left_out, 1);
  EXPECT_EQ(status,
            u"The row is full: %1 characters were left out. "
            "The panels have no character \u65e5."_s.arg(left_out));
}

}  // namespace
