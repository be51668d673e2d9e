// What typing, insertions and undo make of a page, and whether they mark it modified.
#include <array>
#include <random>

#include <gtest/gtest.h>

#include "page/page_message.h"
#include "page/page_of.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kMaxRows;
using Brivon1::MoveKey;
using Brivon1::PageMessage;

TEST(PageMessage, WithCol80ARowTakes16CharactersThe17thKeyPressIsIgnoredButStillMarksThePage) {
  PageMessage page = PageOf(4, 80);
  Type(page, "1234567890123456");
  page.SetModified(false);
  TypeKey(page, '7');
  EXPECT_EQ(page.Row(1).Text(), "1234567890123456");
  EXPECT_EQ(page.Row(1).Cursor(), 16);
  EXPECT_TRUE(page.IsModified());
}

TEST(PageMessage, AGraphicInsertedWhenTheRowHasOneFreePlaceStoresOnlyTheTilde) {
  PageMessage page = PageOf(1, 15);
  Type(page, "ab");
  page.InsertGraphic('K');
  EXPECT_EQ(page.Row(1).Text(), "ab~");
}

TEST(PageMessage, BackspaceAtColumn0AndEnterChangeNothingButMarkThePageModified) {
  PageMessage page = PageOf(2, 80);
  Type(page, "ab");
  page.PressMoveKey(MoveKey::kHome);
  for (const char key : {Brivon1::kBackspace, Brivon1::kEnter}) {
    page.SetModified(false);
    TypeKey(page, key);
    EXPECT_EQ(page.Row(1).Text(), "ab");
    EXPECT_EQ(page.Row(1).Cursor(), 0);
    EXPECT_EQ(page.CurrentRow(), 1);
    EXPECT_TRUE(page.IsModified());
  }
}

TEST(PageMessage, DeleteAtTheEndOfARowDoesNothing) {
  PageMessage page = PageOf(1, 80);
  Type(page, "ab");
  page.SetModified(false);
  page.PressMoveKey(MoveKey::kDelete);
  EXPECT_EQ(page.Row(1).Text(), "ab");
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, DeleteDoesNotMarkThePageModified) {
  PageMessage page = PageOf(1, 80);
  Type(page, "ab");
  page.SetModified(false);
  page.PressMoveKey(MoveKey::kHome);
  page.PressMoveKey(MoveKey::kDelete);
  EXPECT_EQ(page.Row(1).Text(), "b");
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, AWordTakenOutTowardsTheCursorIsTypingAndOneEdit) {
  PageMessage page = PageOf(1, 80);
  Type(page, "one two");
  page.SetModified(false);
  page.PressMoveKey(MoveKey::kBackspaceWord);
  EXPECT_EQ(page.Row(1).Text(), "one ");
  EXPECT_EQ(page.Row(1).Cursor(), 4);
  EXPECT_TRUE(page.IsModified());
  page.Undo();
  EXPECT_EQ(page.Row(1).Text(), "one two");
  page.PressMoveKey(MoveKey::kHome);
  page.SetModified(false);
  page.PressMoveKey(MoveKey::kBackspaceWord);
  EXPECT_TRUE(page.IsModified());
  page.SetModified(false);
  page.PressMoveKey(MoveKey::kDeleteWord);
  EXPECT_EQ(page.Row(1).Text(), "two");
  EXPECT_EQ(page.Row(1).Cursor(), 0);
  EXPECT_FALSE(page.IsModified());  // as Delete
  page.PressMoveKey(MoveKey::kDeleteWord);
  page.PressMoveKey(MoveKey::kDeleteWord);
  EXPECT_EQ(page.Row(1).Text(), "");
}

TEST(PageMessage, ChangingTheColourListDoesNotRecolourCharactersAlreadyTyped) {
  PageMessage page = PageOf(1, 80);
  Type(page, "a");
  page.ChooseColour(15);
  page.ChooseSize(3);
  page.ChooseBlink(true);
  EXPECT_EQ(Shown(page.Row(1)), "a|A|A|N");
  Type(page, "b");
  EXPECT_EQ(Shown(page.Row(1)), "ab|AD|AP|NB");
}

TEST(PageMessage, AChoiceOutsideTheListsIsIgnored) {
  PageMessage page;
  for (const int index : {-1, 16}) page.ChooseColour(index);
  for (const int index : {-1, 4}) page.ChooseSize(index);
  EXPECT_EQ(page.CurrentAttributes(), (Brivon1::Attributes{'A', 'A', 'N'}));
}

TEST(PageMessage, ControlCharactersTypedAreIgnoredAndNoEdit) {
  PageMessage page = PageOf(1, 80);
  for (int code = 0; code < 0x20; ++code) {
    if (code != 8 && code != 13) TypeKey(page, static_cast<char>(code));
  }
  TypeKey(page, '\x7f');
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, WithoutATextNothingIsTyped) {
  PageMessage page = PageOf(1, 80);
  EXPECT_EQ(page.Type(1, QString()), Brivon1::LeftOut());
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, WhatIsTypedGoesToTheRowThatIsNamed) {
  PageMessage page = PageOf(3, 80);
  page.Type(2, u"x"_s);
  EXPECT_EQ(page.EditedNumber(), 2);
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_EQ(page.Row(2).Text(), "x");
}

TEST(PageMessage, OneLetterIsAKeyAndMoreAreNone) {
  PageMessage page = PageOf(1, 80);
  EXPECT_TRUE(page.Type(1, u"x"_s).is_key);
  // One letter of two parts.
  EXPECT_TRUE(page.Type(1, u"e\u0301"_s).is_key);
  EXPECT_FALSE(page.Type(1, u"xy"_s).is_key);
  EXPECT_FALSE(page.Type(1, QString()).is_key);
}

TEST(PageMessage, ATypedCharacterWithoutAByteIsARefusedKey) {
  PageMessage page = PageOf(1, 80);
  page.Type(1, u"\u4e2d"_s);
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_TRUE(page.IsModified());
}

TEST(PageMessage, AllOtherByteValuesCanBeTyped) {
  PageMessage page = PageOf(1, 2000);
  QByteArray all;
  for (int code = 0x20; code < 0x100; ++code) {
    if (code != 0x7F) all.append(static_cast<char>(code));
  }
  Type(page, all);
  EXPECT_EQ(page.Row(1).Text(), all);
}

TEST(PageMessage, GraphicsDateAndTimeMarkThePageModifiedAsTypingDoes) {
  PageMessage page = PageOf(1, 200);
  page.ChooseColour(1);
  page.ChooseBlink(true);
  page.InsertGraphic('Z');
  EXPECT_EQ(Shown(page.Row(1)), "~Z|AA|BB|BB");
  EXPECT_TRUE(page.IsModified());
  page.SetModified(false);
  page.InsertDate();
  EXPECT_EQ(page.Row(1).Text(), "~ZDD MMM YYYY");
  EXPECT_TRUE(page.IsModified());
  page.SetModified(false);
  page.InsertTime();
  EXPECT_EQ(page.Row(1).Text(), "~ZDD MMM YYYYHH:MM");
  EXPECT_TRUE(page.IsModified());
}

TEST(PageMessage, ADateInsertedIntoALittleRoomIsCutThere) {
  PageMessage page = PageOf(1, 30);
  page.InsertDate();
  EXPECT_EQ(page.Row(1).Text(), "DD MMM");
}

TEST(PageMessage, APageOfNoRowsTakesNoCharacter) {
  PageMessage page = PageOf(0, 80);
  TypeKey(page, 'a');
  page.InsertDate();
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_TRUE(page.IsModified());
}

TEST(PageMessage, UndoTakesEditsBackAndRedoMakesThemAgain) {
  PageMessage page = PageOf(2, 200);
  TypeKey(page, 'a');
  page.ChooseColour(1);
  page.InsertDate();
  page.PressMoveKey(MoveKey::kDown);
  Type(page, "xy");
  TypeKey(page, Brivon1::kBackspace);
  page.PressMoveKey(MoveKey::kHome);
  page.PressMoveKey(MoveKey::kDelete);
  page.PressMoveKey(MoveKey::kUp);
  page.SetModified(false);

  page.Undo();
  EXPECT_EQ(Shown(page.Row(2)), "x|A|B|N");
  EXPECT_EQ(page.CurrentRow(), 2);
  EXPECT_EQ(page.Row(2).Cursor(), 0);
  EXPECT_TRUE(page.IsModified());
  page.Undo();
  EXPECT_EQ(page.Row(2).Text(), "xy");
  page.Undo();
  page.Undo();
  EXPECT_EQ(page.Row(2).Text(), "");
  page.Undo();
  EXPECT_EQ(Shown(page.Row(1)), "a|A|A|N");
  EXPECT_EQ(page.CurrentRow(), 1);
  page.Undo();
  EXPECT_EQ(page.Row(1).Text(), "");

  page.Redo();
  page.Redo();
  EXPECT_EQ(Shown(page.Row(1)), "aDD MMM YYYY|AAAAAAAAAAAA|ABBBBBBBBBBB|NNNNNNNNNNNN");
  for (int edit = 0; edit < 4; ++edit) page.Redo();
  EXPECT_EQ(page.Row(2).Text(), "");
  page.SetModified(false);
  page.Redo();
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, AnotherEditForgetsWhatCouldBeMadeAgainAndAnotherPageForgetsAll) {
  PageMessage page = PageOf(1, 200);
  Type(page, "ab");
  page.Undo();
  TypeKey(page, 'c');
  page.Redo();
  EXPECT_EQ(page.Row(1).Text(), "ac");
  page.Begin({1, 200});
  page.SetModified(false);
  page.Undo();
  page.Redo();
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, ARefusedKeyIsNoEditToTakeBack) {
  PageMessage page = PageOf(1, 10);
  Type(page, "abc");
  TypeKey(page, Brivon1::kEnter);
  page.Undo();
  EXPECT_EQ(page.Row(1).Text(), "a");
}

TEST(PageMessage, TheOldestEditsAreForgotten) {
  PageMessage page = PageOf(1, 32000);
  Type(page, QByteArray(1500, 'x'));
  for (int edit = 0; edit < 2000; ++edit) page.Undo();
  EXPECT_EQ(page.Row(1).Length(), 500);
}

TEST(PageMessage, RandomKeysKeepEveryRowWithinItsRoom) {
  std::mt19937 random(7);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  constexpr std::array kMoves = {
      MoveKey::kEnd,       MoveKey::kHome,          MoveKey::kLeft,      MoveKey::kUp,
      MoveKey::kRight,     MoveKey::kDown,          MoveKey::kDelete,    MoveKey::kWordLeft,
      MoveKey::kWordRight, MoveKey::kBackspaceWord, MoveKey::kDeleteWord};
  PageMessage page = PageOf(5, 48);
  for (int key = 0; key < 20000; ++key) {
    switch (below(7)) {
      case 6:
        below(2) == 0 ? page.Undo() : page.Redo();
        break;
      case 0:
        page.PressMoveKey(kMoves[static_cast<std::size_t>(below(kMoves.size()))]);
        break;
      case 1:
        page.Click(below(14) - 1, below(200) - 20);
        break;
      case 2:
        page.ChooseColour(below(16));
        page.ChooseSize(below(4));
        page.ChooseBlink(below(2) == 0);
        break;
      case 3:
        page.InsertGraphic(static_cast<char>('A' + below(26)));
        break;
      default:
        TypeKey(page, static_cast<char>(below(256)));
    }
    ASSERT_GE(page.CurrentRow(), 1);
    ASSERT_LE(page.CurrentRow(), 5);
    for (int row = 1; row <= kMaxRows; ++row) {
      ExpectEqualLengths(page.Row(row));
      ASSERT_LE(page.Row(row).Length(), row <= 5 ? 9 : 0);
    }
  }
}

}  // namespace
