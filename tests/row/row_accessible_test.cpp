// What a screen reader finds and hears of a row, while it is typed into by key.
#include "row/row_accessible.h"

#include <functional>
#include <random>

#include <QAccessible>
#include <QRegularExpression>
#include <QTest>

#include <gtest/gtest.h>

#include "row/edit_history.h"
#include "row/row_surface.h"
#include "support/accessible_events.h"
#include "support/use_code_page.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::Attributes;
using Brivon1::PageRow;

constexpr qsizetype kPlaces = 40;
constexpr Attributes kPlain{'A', 'A', Brivon1::kSteady};
constexpr Attributes kLoud{'C', 'B', Brivon1::kBlinking};

// An editor of one row, of which a span may be in sight.
class RowAccessible : public testing::Test {
 protected:
  RowAccessible() {
    surface_.setAccessibleName(u"Row 1"_s);
    surface_.setFixedSize(RowWidth(kPlaces), kCellHeight);
    QObject::connect(&surface_, &RowSurface::Typed, &surface_, [this](const QString& text) {
      Edit([&] { TypeAllInto(row_, Brivon1::BytesOf(text).bytes, attributes_, kPlaces); });
    });
    QObject::connect(&surface_, &RowSurface::MoveKeyPressed, &surface_,
                     [this](Brivon1::MoveKey key) { Edit([&] { PressKeyIn(row_, key); }); });
    QObject::connect(&surface_, &RowSurface::Clicked, &surface_, [this](double x) {
      Edit([&] { row_.SetCursor(span_.first + Brivon1::NearestBoundary(x)); });
    });
    QObject::connect(&surface_, &RowSurface::SelectKeyPressed, &surface_,
                     [this](Brivon1::MoveKey key) { Edit([&] { SelectByKeyIn(row_, key); }); });
    QObject::connect(
        &surface_, &RowSurface::SelectionAsked, &surface_,
        [this](qsizetype anchor, qsizetype cursor) { Edit([&] { row_.Select(anchor, cursor); }); });
    surface_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&surface_));
  }

  void Edit(const std::function<void()>& edit) {
    const PageRow before = row_;
    edit();
    if (!row_.ShowsTheSameAs(before)) history_.Record({1, before});
    surface_.RedrawRow(span_);
  }

  void Undo() {
    history_.Undo(row_);
    surface_.RedrawRow(span_);
  }
  void Redo() {
    history_.Redo(row_);
    surface_.RedrawRow(span_);
  }

  void Keys(const QString& text) { QTest::keyClicks(&surface_, text); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&surface_, key, modifiers);
  }

  void ShowSpan(RowSpan span) {
    span_ = span;
    surface_.RedrawRow(span_);
  }

  QAccessibleInterface& Accessible() { return *QAccessible::queryAccessibleInterface(&surface_); }
  QAccessibleTextInterface& Text() {
    EXPECT_NE(Accessible().textInterface(), nullptr);
    return *Accessible().textInterface();
  }

  // How many selections there are, and the place of the first: "1: 2-5".
  QString Selections() {
    int start = 9;
    int end = 9;
    Text().selection(0, &start, &end);
    return u"%1: %2-%3"_s.arg(Text().selectionCount()).arg(start).arg(end);
  }

  // The words for one character, and the characters that they hold for: "Red, Normal 0-3".
  QString Attributed(int offset) {
    int start = 99;
    int end = 99;
    const QString attributes = Text().attributes(offset, &start, &end);
    return u"%1 %2-%3"_s.arg(attributes).arg(start).arg(end);
  }

  PageRow row_;
  Attributes attributes_ = kPlain;
  Brivon1::EditHistory history_;
  RowSpan span_;
  RowSurface surface_{row_, nullptr};
  AccessibleEvents events_;
};

TEST_F(RowAccessible, IsAnEditableTextThatHasItsNameAndItsText) {
  Keys(u"Road works"_s);
  EXPECT_EQ(Accessible().role(), QAccessible::EditableText);
  EXPECT_EQ(Accessible().text(QAccessible::Name), u"Row 1"_s);
  EXPECT_EQ(Accessible().text(QAccessible::Value), u"Road works"_s);
  EXPECT_TRUE(Accessible().state().editable);
  EXPECT_TRUE(Accessible().state().selectableText);
  EXPECT_TRUE(Accessible().state().focusable);
  EXPECT_FALSE(Accessible().state().multiLine);
  EXPECT_EQ(Text().characterCount(), 10);
  EXPECT_EQ(Text().text(0, 10), u"Road works"_s);
  EXPECT_EQ(Text().text(2, 6), u"ad w"_s);
  EXPECT_EQ(Text().text(-3, 99), u"Road works"_s);
  EXPECT_EQ(Text().text(6, 2), QString());
  EXPECT_EQ(Accessible().valueInterface(), nullptr);
}

TEST_F(RowAccessible, EachByteIsTheLetterThatTheOperatorSees) {
  {
    const UseCodePage russian(1251);
    EXPECT_EQ(Brivon1::CodePage::System().Number(), 1251);
    QTest::sendKeyEvent(QTest::Click, &surface_, Qt::Key_unknown, u"ж"_s, Qt::NoModifier);
    EXPECT_EQ(events_.TakeAll(), "Row 1: insert 0 'ж', cursor 1; Row 1: cursor 1");
    EXPECT_EQ(Text().text(0, 1), u"ж"_s);
  }
  EXPECT_EQ(Text().text(0, 1), u"æ"_s);
}

TEST_F(RowAccessible, WithoutASelectionThereIsNone) {
  Keys(u"abc"_s);
  EXPECT_EQ(Selections(), u"0: 0-0"_s);
  Text().removeSelection(0);
  Text().setSelection(1, 0, 2);
  EXPECT_EQ(Selections(), u"0: 0-0"_s);
}

TEST_F(RowAccessible, AReaderFindsSelectsAndEndsTheSelection) {
  Keys(u"abcdef"_s);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Selections(), u"1: 5-6"_s);
  events_.TakeAll();
  Text().addSelection(1, 4);
  EXPECT_EQ(Selections(), u"1: 1-4"_s);
  EXPECT_EQ(Text().cursorPosition(), 4);
  EXPECT_EQ(events_.TakeAll(), "Row 1: cursor 4; Row 1: select 1-4, cursor 4");
  Text().setSelection(0, 3, -9);
  EXPECT_EQ(Selections(), u"1: 0-3"_s);
  int start = 9;
  int end = 9;
  Text().selection(1, &start, &end);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(end, 0);
  Text().removeSelection(1);
  EXPECT_EQ(Selections(), u"1: 0-3"_s);
  events_.TakeAll();
  Text().removeSelection(0);
  EXPECT_EQ(Selections(), u"0: 0-0"_s);
  EXPECT_EQ(events_.TakeAll(), "Row 1: select 0-0, cursor 0");
}

TEST_F(RowAccessible, SelectingByKeyTellsWhatIsSelectedAndTypingThatNothingIs) {
  Keys(u"abc"_s);
  events_.TakeAll();
  Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(events_.TakeAll(), "Row 1: cursor 2; Row 1: select 2-3, cursor 2");
  Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(events_.TakeAll(), "Row 1: cursor 1; Row 1: select 1-3, cursor 1");
  Keys(u"x"_s);
  EXPECT_EQ(events_.TakeAll(),
            "Row 1: replace 1 'bc' by 'x', cursor 2; Row 1: cursor 2; Row 1: select 2-2, cursor 2");
}

TEST_F(RowAccessible, IsReadByCharactersWordsAndAsAWhole) {
  Keys(u"Road works"_s);
  int start = 0;
  int end = 0;
  EXPECT_EQ(Text().textAtOffset(5, QAccessible::CharBoundary, &start, &end), u"w"_s);
  EXPECT_EQ(start, 5);
  EXPECT_EQ(end, 6);
  EXPECT_EQ(Text().textAtOffset(6, QAccessible::WordBoundary, &start, &end), u"works"_s);
  EXPECT_EQ(start, 5);
  EXPECT_EQ(end, 10);
  EXPECT_EQ(Text().textBeforeOffset(5, QAccessible::CharBoundary, &start, &end), u" "_s);
  EXPECT_EQ(Text().textAfterOffset(5, QAccessible::CharBoundary, &start, &end), u"o"_s);
  for (const int offset : {0, 4, 10}) {
    EXPECT_EQ(Text().textAtOffset(offset, QAccessible::LineBoundary, &start, &end), u"Road works"_s)
        << offset;
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 10);
  }
}

TEST_F(RowAccessible, TypingTellsWhatIsInsertedWhere) {
  Keys(u"ab"_s);
  EXPECT_EQ(events_.TakeAll(),
            "Row 1: insert 0 'a', cursor 1; Row 1: cursor 1; Row 1: insert 1 'b', cursor 2; Row 1: "
            "cursor 2");
  EXPECT_EQ(Text().cursorPosition(), 2);
}

TEST_F(RowAccessible, OfEqualLettersTheOneAtTheCursorIsTold) {
  Keys(u"aaaa"_s);
  Key(Qt::Key_Left);
  Key(Qt::Key_Left);
  events_.TakeAll();
  Keys(u"a"_s);
  EXPECT_EQ(events_.TakeAll(), "Row 1: insert 2 'a', cursor 3; Row 1: cursor 3");
  Key(Qt::Key_Backspace);
  EXPECT_EQ(events_.TakeAll(), "Row 1: remove 2 'a', cursor 2; Row 1: cursor 2");
  Key(Qt::Key_Delete);
  EXPECT_EQ(events_.TakeAll(), "Row 1: remove 2 'a', cursor 2");
}

TEST_F(RowAccessible, DeletingAWordTellsTheWord) {
  Keys(u"Road works"_s);
  events_.TakeAll();
  Key(Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_EQ(events_.TakeAll(), "Row 1: remove 5 'works', cursor 5; Row 1: cursor 5");
  Key(Qt::Key_Home);
  EXPECT_EQ(events_.TakeAll(), "Row 1: cursor 0");
  Key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(events_.TakeAll(), "Row 1: remove 0 'Road ', cursor 0");
}

TEST_F(RowAccessible, UndoAndRedoTellTheDifference) {
  Keys(u"abc"_s);
  Key(Qt::Key_Home);
  events_.TakeAll();
  Undo();
  EXPECT_EQ(events_.TakeAll(), "Row 1: remove 2 'c', cursor 2; Row 1: cursor 2");
  Redo();
  EXPECT_EQ(events_.TakeAll(), "Row 1: insert 2 'c', cursor 0; Row 1: cursor 0");
  EXPECT_EQ(Text().text(0, 3), u"abc"_s);
}

TEST_F(RowAccessible, AnotherTextTellsWhatItReplaces) {
  Keys(u"platform 7"_s);
  events_.TakeAll();
  PageRow other;
  for (const char c : QByteArrayView("place 7")) other.Append(c, kPlain);
  row_ = other;
  surface_.RedrawRow();
  EXPECT_EQ(events_.TakeAll(), "Row 1: replace 3 'tform' by 'ce', cursor 0; Row 1: cursor 0");
}

TEST_F(RowAccessible, WhoFollowsWhatIsToldKnowsTheRow) {
  std::mt19937 random(20240521);
  static const QRegularExpression change(
      u"(insert|remove) (\\d+) '(\\w+)'|replace (\\d+) '(\\w+)' by '(\\w+)'"_s);
  QString followed;
  for (int step = 0; step < 3000; ++step) {
    switch (random() % 9) {
      case 0:
        Key(Qt::Key_Left);
        break;
      case 1:
        Key(Qt::Key_Home);
        break;
      case 2:
        Key(Qt::Key_Backspace);
        break;
      case 3:
        Key(Qt::Key_Delete);
        break;
      case 4:
        if (history_.CanUndo()) Undo();
        break;
      case 5:
        if (history_.CanRedo()) Redo();
        break;
      default:
        Keys(random() % 2 == 0 ? u"a"_s : u"bab"_s);
    }
    const QString told = QString::fromStdString(events_.TakeAll());
    for (const QRegularExpressionMatch& match : change.globalMatch(told)) {
      if (match.captured(1) == "insert"_L1) {
        followed.insert(match.captured(2).toInt(), match.captured(3));
        continue;
      }
      const bool replaced = match.captured(1).isEmpty();
      const int position = match.captured(replaced ? 4 : 2).toInt();
      const QString removed = match.captured(replaced ? 5 : 3);
      ASSERT_EQ(followed.mid(position, removed.size()), removed);
      followed.replace(position, removed.size(), match.captured(6));
    }
    ASSERT_EQ(followed, QString::fromLatin1(row_.Text())) << step;
  }
}

TEST_F(RowAccessible, WhereNothingChangesNothingIsTold) {
  Keys(u"a"_s);
  events_.TakeAll();
  Key(Qt::Key_Right);
  Key(Qt::Key_Delete);
  surface_.SetBlinkingHidden(true);
  surface_.SetCursorLine(RowSurface::CursorLine::kErased);
  surface_.RedrawRow();
  EXPECT_EQ(events_.TakeAll(), "");
}

TEST_F(RowAccessible, EachCharacterNamesItsColourItsSizeAndWhetherItBlinks) {
  Keys(u"ab"_s);
  attributes_ = kLoud;
  Keys(u"cde"_s);
  attributes_ = {'D', 'D', Brivon1::kSteady};
  Keys(u"f"_s);
  EXPECT_EQ(Attributed(0), u"font-family:Red, Normal; 0-2"_s);
  EXPECT_EQ(Attributed(1), u"font-family:Red, Normal; 0-2"_s);
  EXPECT_EQ(Attributed(3), u"font-family:Green, Normal Bold, Blinking; 2-5"_s);
  EXPECT_EQ(Attributed(5), u"font-family:3D Red/Green, Compressed Bold; 5-6"_s);
  EXPECT_EQ(Attributed(6), u" -1--1"_s);
  EXPECT_EQ(Attributed(-1), u" -1--1"_s);
}

TEST_F(RowAccessible, ALetterThatIsNoColourHasNoNameAndAnOtherLanguageItsOwn) {
  attributes_ = {'A', 'z', Brivon1::kBlinking};
  Keys(u"a"_s);
  RowWords words;
  words.sizes[0] = u"Normal; fett"_s;
  words.blinking = u"Blinkend"_s;
  surface_.SetWords(words);
  EXPECT_EQ(Attributed(0), u"font-family:Normal  fett, Blinkend; 0-1"_s);
}

TEST_F(RowAccessible, ACharacterAndAPointFindEachOther) {
  Keys(u"abc"_s);
  const QPoint corner = surface_.mapToGlobal(QPoint(0, 0));
  EXPECT_EQ(Text().characterRect(0), QRect(corner, QSize(12, 20)));
  EXPECT_EQ(Text().characterRect(2), QRect(corner + QPoint(24, 0), QSize(12, 20)));
  EXPECT_EQ(Text().characterRect(3), QRect(corner + QPoint(36, 0), QSize(12, 20)));
  EXPECT_EQ(Text().characterRect(4), QRect());
  EXPECT_EQ(Text().characterRect(-1), QRect());
  for (int offset = 0; offset < 3; ++offset) {
    EXPECT_EQ(Text().offsetAtPoint(Text().characterRect(offset).center()), offset);
  }
  EXPECT_EQ(Text().offsetAtPoint(corner + QPoint(36, 5)), -1) << "behind the last character";
  EXPECT_EQ(Text().offsetAtPoint(corner + QPoint(5, 25)), -1) << "below the row";
}

TEST_F(RowAccessible, OnlyWhatIsInSightHasAPlace) {
  Keys(u"abcdefghij"_s);
  ShowSpan({4, 3});
  const QPoint corner = surface_.mapToGlobal(QPoint(0, 0));
  EXPECT_EQ(Text().characterRect(3), QRect());
  EXPECT_EQ(Text().characterRect(4), QRect(corner, QSize(12, 20)));
  EXPECT_EQ(Text().characterRect(8), QRect());
  EXPECT_EQ(Text().offsetAtPoint(corner + QPoint(25, 5)), 6);
  EXPECT_EQ(Text().offsetAtPoint(corner + QPoint(37, 5)), -1);
  EXPECT_EQ(Text().text(0, Text().characterCount()), u"abcdefghij"_s);
}

TEST_F(RowAccessible, AReaderPutsTheCursorAsAClickDoes) {
  Keys(u"abcdef"_s);
  events_.TakeAll();
  Text().setCursorPosition(2);
  EXPECT_EQ(row_.Cursor(), 2);
  EXPECT_EQ(events_.TakeAll(), "Row 1: cursor 2");
  EXPECT_TRUE(surface_.hasFocus());
  Text().setCursorPosition(99);
  EXPECT_EQ(row_.Cursor(), 6);
  Text().setCursorPosition(-5);
  EXPECT_EQ(row_.Cursor(), 0);
  ShowSpan({2, 2});
  Text().setCursorPosition(6);
  EXPECT_EQ(row_.Cursor(), 6) << "out of sight";
  Text().setCursorPosition(1);
  EXPECT_EQ(row_.Cursor(), 1) << "out of sight";
}

TEST_F(RowAccessible, WhatAPanelReplacesIsDescribedInWords) {
  RowWords words;
  words.placeholders = {{"HH:MM", u"Time"_s}, {"~A", u"Symbol A"_s}};
  surface_.SetWords(words);
  Keys(u"at HH:MM~A ~B"_s);
  EXPECT_EQ(Accessible().text(QAccessible::Description), u"at Time Symbol A ~B"_s);
  EXPECT_EQ(Text().text(0, Text().characterCount()), u"at HH:MM~A ~B"_s);
  while (row_.Length() > 0) Key(Qt::Key_Backspace);
  Keys(u"plain"_s);
  EXPECT_EQ(Accessible().text(QAccessible::Description), QString()) << "the text says it";
}

}  // namespace
