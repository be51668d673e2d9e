// Selecting in every editor's row by key and mouse, and what is done with what is selected.
#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>

#include "row/editor_driver.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QColor kFrame{120, 180, 255};

/// The cells of a surface that stand in the frame of a selection, as in "2-5"; "-" without one.
std::string Framed(QWidget* surface) {
  const QImage image = surface->grab().toImage();
  int first = -1;
  int behind = -1;
  for (int cell = 0; cell < image.width() / 12; ++cell) {
    const bool framed = image.pixelColor(cell * 12 + 6, 0) == kFrame &&
                        image.pixelColor(cell * 12 + 6, 19) == kFrame;
    if (framed && first < 0) first = cell;
    if (framed) behind = cell + 1;
  }
  if (first < 0) return "-";
  return std::to_string(first) + '-' + std::to_string(behind);
}

void Move(QWidget* surface, int x, Qt::MouseButtons buttons) {
  const QPointF place(x, 10);
  QMouseEvent event(QEvent::MouseMove, place, surface->mapToGlobal(place), Qt::NoButton, buttons,
                    Qt::NoModifier);
  QApplication::sendEvent(surface, &event);
}

TEST_P(RowEditor, ShiftWithTheMovingKeysSelectsAndTypingReplacesIt) {
  Keys("abcdef");
  Key(Qt::Key_Left, Qt::ShiftModifier);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Framed(Surface()), "4-6");
  Key(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Framed(Surface()), "5-6");
  Key(Qt::Key_Home, Qt::ShiftModifier);
  EXPECT_EQ(Framed(Surface()), "0-6");
  Key(Qt::Key_Home);
  EXPECT_EQ(Framed(Surface()), "-");
  Key(Qt::Key_Right);
  Key(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(Framed(Surface()), "1-6");
  Keys("X");
  EXPECT_EQ(Framed(Surface()), "-");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>aX"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Framed(Surface()), "-");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abcdef"));
}

TEST_P(RowEditor, ShiftAndCtrlSelectByWords) {
  Keys("one two three");
  Key(Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(Framed(Surface()), "8-13");
  Key(Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(Framed(Surface()), "4-13");
  Key(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(Framed(Surface()), "8-13");
}

TEST_P(RowEditor, AMoveWithoutShiftEndsTheSelection) {
  Keys("abcdef");
  const auto select = [this] {
    Key(Qt::Key_Home);
    Key(Qt::Key_Right);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    ASSERT_EQ(Framed(Surface()), "1-3");
  };
  const std::pair<Qt::Key, int> moves[] = {
      {Qt::Key_Left, 1}, {Qt::Key_Right, 3}, {Qt::Key_Home, 0}, {Qt::Key_End, 6}, {Qt::Key_Up, 3}};
  for (const auto& [key, column] : moves) {
    select();
    Key(key);
    EXPECT_EQ(Framed(Surface()), "-");
    ExpectCursor(column, 6);
  }
  select();
  QTest::mouseClick(Surface(), Qt::LeftButton, {}, QPoint(60, 10));
  EXPECT_EQ(Framed(Surface()), "-");
  ExpectCursor(5, 6);
}

TEST_P(RowEditor, BackspaceDeleteAndTheirWordsRemoveTheSelectionAsOneEdit) {
  for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete}) {
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
      kind_.begin(*this);
      Keys("ab cd ef");
      EXPECT_EQ(Saved(), FileOf("<SA><CA>ab cd ef"));
      Key(Qt::Key_Left);
      for (int step = 0; step < 3; ++step) Key(Qt::Key_Left, Qt::ShiftModifier);
      Key(key, modifier);
      ExpectCursor(4, 5);
      EXPECT_TRUE(Asks());
      EXPECT_EQ(Saved(), FileOf("<SA><CA>ab cf"));
      Key(Qt::Key_Z, Qt::ControlModifier);
      EXPECT_EQ(Saved(), FileOf("<SA><CA>ab cd ef"));
    }
  }
}

TEST_P(RowEditor, EnterAndARefusedCharacterLeaveTheSelection) {
  Keys("abc");
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Return);
  QTest::sendKeyEvent(QTest::Click, Surface(), Qt::Key_unknown, QString(QChar(0x4E2D)),
                      Qt::NoModifier);
  EXPECT_EQ(Framed(Surface()), "0-3");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abc"));
}

TEST_P(RowEditor, AMouseDraggedSelects) {
  Keys("abcdef");
  QTest::mousePress(Surface(), Qt::LeftButton, {}, QPoint(13, 10));
  Move(Surface(), 14, Qt::LeftButton);
  EXPECT_EQ(Framed(Surface()), "-");
  Move(Surface(), 49, Qt::LeftButton);
  EXPECT_EQ(Framed(Surface()), "1-4");
  Move(Surface(), -50, Qt::LeftButton);
  EXPECT_EQ(Framed(Surface()), "0-1");
  Move(Surface(), 500, Qt::LeftButton);
  EXPECT_EQ(Framed(Surface()), "1-6");
  QTest::mouseRelease(Surface(), Qt::LeftButton, {}, QPoint(72, 10));
  Move(Surface(), 20, Qt::NoButton);
  EXPECT_EQ(Framed(Surface()), "1-6");
  QTest::mouseClick(Surface(), Qt::LeftButton, Qt::ShiftModifier, QPoint(36, 10));
  EXPECT_EQ(Framed(Surface()), "1-3");
}

TEST_P(RowEditor, AMouseWhosePressOrReleaseWentElsewhereSelectsNothing) {
  Keys("abcdef");
  QTest::mouseRelease(Surface(), Qt::LeftButton, {}, QPoint(13, 10));
  EXPECT_EQ(CursorCell(Surface()), 6);
  QTest::mousePress(Surface(), Qt::LeftButton, {}, QPoint(13, 10));
  Move(Surface(), 49, Qt::RightButton);
  EXPECT_EQ(Framed(Surface()), "-");
  EXPECT_EQ(CursorCell(Surface()), 1);
}

TEST_P(RowEditor, ADoubleClickSelectsTheWordBelowIt) {
  Keys("ab, cde");
  QTest::mouseDClick(Surface(), Qt::LeftButton, {}, QPoint(71, 10));
  EXPECT_EQ(Framed(Surface()), "4-7");
  Move(Surface(), 50, Qt::LeftButton);
  EXPECT_EQ(Framed(Surface()), "4-7");
  QTest::mouseDClick(Surface(), Qt::LeftButton, {}, QPoint(23, 10));
  EXPECT_EQ(Framed(Surface()), "0-2");
  QTest::mouseDClick(Surface(), Qt::LeftButton, {}, QPoint(30, 10));
  EXPECT_EQ(Framed(Surface()), "2-3");
  QTest::mouseDClick(Surface(), Qt::LeftButton, {}, QPoint(120, 10));
  EXPECT_EQ(Framed(Surface()), "-");
}

TEST_P(RowEditor, TheFrameLeavesTheCharactersTheirColours) {
  Find<QComboBox>("ComboColor")->setCurrentIndex(9);  // red on green
  Keys("ab");
  Key(Qt::Key_Left);
  const QImage plain = Surface()->grab().toImage();
  Key(Qt::Key_Home);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  const QImage framed = Surface()->grab().toImage();
  // The cursor stands at x 12 in both.
  EXPECT_EQ(framed.copy(1, 1, 10, 18), plain.copy(1, 1, 10, 18));
  EXPECT_EQ(framed.copy(12, 0, 40, 20), plain.copy(12, 0, 40, 20));
  EXPECT_EQ(framed.pixelColor(5, 0), kFrame);
}

TEST_P(RowEditor, CopyAndPasteKeepSizesColoursAndBlinking) {
  Keys("a");
  Find<QComboBox>("ComboColor")->setCurrentIndex(15);
  Find<QComboBox>("ComboSize")->setCurrentIndex(3);
  Find<QCheckBox>("chkBlink")->setChecked(true);
  Keys("b");
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"ab"_s);
  Key(Qt::Key_End);
  Find<QComboBox>("ComboColor")->setCurrentIndex(1);
  Key(Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>a<SH><CP>b<SA><CA>a<SH><CP>b"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>a<SH><CP>b"));
}

TEST_P(RowEditor, CutRemovesAsOneEditWithEitherKey) {
  for (const auto& [key, modifier] :
       {std::pair(Qt::Key_X, Qt::ControlModifier), std::pair(Qt::Key_Delete, Qt::ShiftModifier)}) {
    kind_.begin(*this);
    Keys("abc");
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(key, modifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"c"_s);
    EXPECT_EQ(Saved(), FileOf("<SA><CA>ab"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Saved(), FileOf("<SA><CA>abc"));
  }
}

TEST_P(RowEditor, WithoutASelectionCopyAndCutLeaveTheClipboard) {
  QGuiApplication::clipboard()->setText(u"kept"_s);
  Keys("abc");
  Key(Qt::Key_C, Qt::ControlModifier);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"kept"_s);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abc"));
}

TEST_P(RowEditor, APasteTakesThePlaceOfTheSelectionAsOneEdit) {
  Keys("abcd");
  Key(Qt::Key_Left);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  QGuiApplication::clipboard()->setText(u"XYZ"_s);
  Key(Qt::Key_V, Qt::ControlModifier);
  ExpectCursor(4, 5);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>aXYZd"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abcd"));
}

TEST_P(RowEditor, BytesOnTheClipboardThatAreNoCharactersCountAsNotThere) {
  auto* data = new QMimeData;
  data->setData(u"application/x-brivon-row"_s, "Brivon row 1 1252\nxA\nN");
  data->setText(u"text"_s);
  QGuiApplication::clipboard()->setMimeData(data);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>text"));
}

TEST_P(RowEditor, AChoiceWithASelectionIsForItAndForWhatIsTypedNext) {
  Keys("abcd");
  Key(Qt::Key_Home);
  Key(Qt::Key_Right);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  auto* colours = Find<QComboBox>("ComboColor");
  colours->setFocus();
  Key(Qt::Key_Down);
  Find<QComboBox>("ComboSize")->setFocus();
  Key(Qt::Key_Down);
  Find<QCheckBox>("chkBlink")->click();
  EXPECT_EQ(window_.focusWidget(), Surface());
  EXPECT_EQ(Framed(Surface()), "1-3");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>a<SF><CB>bc<SA><CA>d"));
  for (int edit = 0; edit < 3; ++edit) Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abcd"));
  Key(Qt::Key_End);
  Keys("x");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abcd<SF><CB>x"));
}

TEST_P(RowEditor, StepsThroughAClosedListAreOneEditOfTheSelection) {
  Keys("abcd");
  Key(Qt::Key_A, Qt::ControlModifier);
  auto* colours = Find<QComboBox>("ComboColor");
  colours->setFocus();
  for (int step = 0; step < 5; ++step) QTest::keyClick(colours, Qt::Key_Down);
  Surface()->setFocus();
  EXPECT_EQ(Saved(), FileOf("<SA><CF>abcd"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abcd"));
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CF>abcd"));
  // Another selection is another edit.
  Key(Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(colours, Qt::Key_Down);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(colours, Qt::Key_Down);
  EXPECT_EQ(Saved(), FileOf("<SA><CH>abc<CG>d"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), FileOf("<SA><CG>abcd"));
}

TEST_P(RowEditor, TheEntryThatStandsInTheListCanBeChosenForTheSelection) {
  auto* colours = Find<QComboBox>("ComboColor");
  colours->setCurrentIndex(2);
  Keys("a");
  colours->setCurrentIndex(4);
  Keys("b");
  Key(Qt::Key_A, Qt::ControlModifier);
  colours->showPopup();
  QTest::keyClick(colours->view(), Qt::Key_Return);
  EXPECT_EQ(Saved(), FileOf("<SA><CE>ab"));
}

TEST_P(RowEditor, EnterInAClosedListReturnsToTheRow) {
  Keys("ab");
  Key(Qt::Key_Left);
  for (const QString& name : kind_.lists) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      window_.findChild<QWidget*>(name)->setFocus();
      Key(key);
      EXPECT_EQ(window_.focusWidget(), Surface()) << name.toStdString();
      ExpectCursor(1, 2);
    }
  }
  EXPECT_EQ(Saved(), FileOf("<SA><CA>ab"));
}

}  // namespace
