#include "scrolling/scrolling_message.h"

#include <iterator>
#include <random>

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

/// A message of this many characters as it is when a file with it was opened.
ScrollingMessage Opened(int length) {
  PageRow row(PageRow::kEveryColumn);
  for (int at = 0; at < length; ++at) {
    row.Append(static_cast<char>('a' + at % 26), {'A', 'A', kSteady});
  }
  ScrollingMessage message;
  message.TakeOver(row);
  return message;
}

void TypeKey(ScrollingMessage& message, char character) { message.TypeAll({&character, 1}); }

void Press(ScrollingMessage& message, MoveKey key, int times = 1) {
  for (int time = 0; time < times; ++time) message.PressMoveKey(key);
}

TEST(ScrollingMessage, StartsEmptyRedNormalAndSteady) {
  const ScrollingMessage message;
  EXPECT_EQ(message.Row().Length(), 0);
  EXPECT_EQ(message.Row().Cursor(), 0);
  EXPECT_EQ(message.FirstVisible(), 0);
  EXPECT_EQ(message.CurrentAttributes(), (Attributes{'A', 'A', 'N'}));
  EXPECT_FALSE(message.IsModified());
}

TEST(ScrollingMessage, TypingThe1001stCharacterDoesNothing) {
  ScrollingMessage message = Opened(999);
  TypeKey(message, '!');
  EXPECT_TRUE(message.IsFull());
  message.SetModified(false);
  TypeKey(message, '?');
  EXPECT_EQ(message.Row().Length(), 1000);
  EXPECT_EQ(message.Row().Cursor(), 1000);
  EXPECT_EQ(message.Row().Text().right(1), "!");
  EXPECT_FALSE(message.IsModified());
  TypeKey(message, kBackspace);
  TypeKey(message, '?');
  EXPECT_EQ(message.Row().Text().right(1), "?");
}

TEST(ScrollingMessage, BackspaceAtTheStartAndDeleteAtTheEndDoNothing) {
  ScrollingMessage message = Opened(3);
  Press(message, MoveKey::kDelete);
  EXPECT_EQ(message.Row().Text(), "abc");
  Press(message, MoveKey::kHome);
  TypeKey(message, kBackspace);
  EXPECT_EQ(message.Row().Text(), "abc");
  EXPECT_EQ(message.Row().Cursor(), 0);
  EXPECT_FALSE(message.IsModified());
}

TEST(ScrollingMessage, EndOnA100CharacterMessageSetsTheFirstVisibleCharacterTo70) {
  ScrollingMessage message = Opened(100);
  Press(message, MoveKey::kHome);
  EXPECT_EQ(message.FirstVisible(), 0);
  Press(message, MoveKey::kEnd);
  EXPECT_EQ(message.Row().Cursor(), 100);
  EXPECT_EQ(message.FirstVisible(), 70);
}

TEST(ScrollingMessage, ChangingColourSizeOrBlinkChangesOnlyCharactersTypedAfterwards) {
  ScrollingMessage message;
  TypeKey(message, 'a');
  message.ChooseColour(15);
  TypeKey(message, 'b');
  message.ChooseSize(3);
  TypeKey(message, 'c');
  message.ChooseBlink(true);
  TypeKey(message, 'd');
  message.ChooseBlink(false);
  TypeKey(message, 'e');
  EXPECT_EQ(message.Row().Text(), "abcde");
  EXPECT_EQ(message.Row().Colour(), "APPPP");
  EXPECT_EQ(message.Row().Size(), "AADDD");
  EXPECT_EQ(message.Row().Blink(), "NNNBN");
}

TEST(ScrollingMessage, AColourOrSizeThatIsNoneIsIgnored) {
  ScrollingMessage message;
  for (const int index : {-1, 16, 100}) message.ChooseColour(index);
  for (const int index : {-1, 4, 100}) message.ChooseSize(index);
  EXPECT_EQ(message.CurrentAttributes(), (Attributes{'A', 'A', 'N'}));
}

TEST(ScrollingMessage, EnterIsIgnored) {
  ScrollingMessage message;
  TypeKey(message, kEnter);
  EXPECT_EQ(message.Row().Length(), 0);
  EXPECT_FALSE(message.IsModified());
}

TEST(ScrollingMessage, ControlCharactersAreIgnoredAndNoEdit) {
  ScrollingMessage message;
  for (const char key : {'\0', '\t', '\n', '\x1B', '\x7F'}) TypeKey(message, key);
  EXPECT_EQ(message.Row().Length(), 0);
  EXPECT_FALSE(message.IsModified());
}

TEST(ScrollingMessage, EveryEditSetsTheModifiedFlag) {
  ScrollingMessage message = Opened(3);
  TypeKey(message, 'x');
  EXPECT_TRUE(message.IsModified());
  message.SetModified(false);
  TypeKey(message, kBackspace);
  EXPECT_TRUE(message.IsModified());
  message.SetModified(false);
  Press(message, MoveKey::kHome);
  EXPECT_FALSE(message.IsModified());
  Press(message, MoveKey::kDelete);
  EXPECT_TRUE(message.IsModified());
}

TEST(ScrollingMessage, ACharacterThatIsReplacedByItselfInAnotherColourIsAnEdit) {
  ScrollingMessage message = Opened(1);
  message.ChooseColour(3);
  message.TypeAll("\ba");
  EXPECT_TRUE(message.IsModified());
  EXPECT_EQ(message.Row().Colour(), "D");
  EXPECT_TRUE(message.Undo());
  EXPECT_EQ(message.Row().Colour(), "A");
}

TEST(ScrollingMessage, KeysInsertAndRemoveAtTheCursorInAllFourTexts) {
  ScrollingMessage message;
  message.TypeAll("ad");
  Press(message, MoveKey::kLeft);
  message.ChooseColour(1);
  message.ChooseSize(2);
  message.ChooseBlink(true);
  message.TypeAll("bc");
  EXPECT_EQ(message.Row().Text(), "abcd");
  EXPECT_EQ(message.Row().Cursor(), 3);
  TypeKey(message, kBackspace);
  Press(message, MoveKey::kLeft);
  Press(message, MoveKey::kLeft);
  Press(message, MoveKey::kDelete);
  EXPECT_EQ(message.Row().Text(), "bd");
  EXPECT_EQ(message.Row().Colour(), "BA");
  EXPECT_EQ(message.Row().Size(), "CA");
  EXPECT_EQ(message.Row().Blink(), "BN");
  EXPECT_EQ(message.Row().Cursor(), 0);
}

TEST(ScrollingMessage, LeftMovesTheSpanOnlyWhenTheCursorComesBeforeIt) {
  ScrollingMessage message = Opened(100);
  Press(message, MoveKey::kLeft, 30);
  EXPECT_EQ(message.Row().Cursor(), 70);
  EXPECT_EQ(message.FirstVisible(), 70);
  Press(message, MoveKey::kLeft);
  EXPECT_EQ(message.Row().Cursor(), 69);
  EXPECT_EQ(message.FirstVisible(), 69);
  Press(message, MoveKey::kHome);
  Press(message, MoveKey::kLeft);
  EXPECT_EQ(message.Row().Cursor(), 0);
  EXPECT_EQ(message.FirstVisible(), 0);
}

TEST(ScrollingMessage, RightMovesTheSpanByOneWhenTheCursorIsMoreThan30PastIt) {
  ScrollingMessage message = Opened(100);
  Press(message, MoveKey::kHome);
  Press(message, MoveKey::kRight, 30);
  EXPECT_EQ(message.FirstVisible(), 0);
  Press(message, MoveKey::kRight);
  EXPECT_EQ(message.Row().Cursor(), 31);
  EXPECT_EQ(message.FirstVisible(), 1);
  Press(message, MoveKey::kRight, 200);
  EXPECT_EQ(message.Row().Cursor(), 100);
  EXPECT_EQ(message.FirstVisible(), 70);
}

TEST(ScrollingMessage, UpAndDownDoNothing) {
  ScrollingMessage message = Opened(3);
  Press(message, MoveKey::kLeft);
  Press(message, MoveKey::kUp);
  Press(message, MoveKey::kDown);
  EXPECT_EQ(message.Row().Cursor(), 2);
}

TEST(ScrollingMessage, TypingPastTheVisibleSpanTheFirstVisibleCharacterFollowsTheCursor) {
  ScrollingMessage message;
  for (int typed = 1; typed <= 100; ++typed) {
    TypeKey(message, 'x');
    EXPECT_EQ(message.FirstVisible(), typed <= 30 ? 0 : typed - 30);
  }
}

TEST(ScrollingMessage, WhoeverRemovesCharactersSeesWhichOnesComeNext) {
  ScrollingMessage message = Opened(100);
  for (int left = 99; left > 0; --left) {
    TypeKey(message, kBackspace);
    EXPECT_EQ(message.Row().Cursor(), left);
    EXPECT_LT(message.FirstVisible(), left);
    EXPECT_LE(left - message.FirstVisible(), 30);
  }
  TypeKey(message, kBackspace);
  EXPECT_EQ(message.FirstVisible(), 0);
}

TEST(ScrollingMessage, BackspaceAtTheLeftEdgeShowsTheFifteenCharactersBeforeTheCursor) {
  ScrollingMessage message = Opened(100);
  for (int time = 0; time < 29; ++time) TypeKey(message, kBackspace);
  EXPECT_EQ(message.Row().Cursor(), 71);
  EXPECT_EQ(message.FirstVisible(), 70);
  TypeKey(message, kBackspace);
  EXPECT_EQ(message.Row().Cursor(), 70);
  EXPECT_EQ(message.FirstVisible(), 55);
}

TEST(ScrollingMessage, DeleteLeavesTheCursorAndTheSpan) {
  ScrollingMessage message = Opened(100);
  Press(message, MoveKey::kLeft, 5);
  Press(message, MoveKey::kDelete, 3);
  EXPECT_EQ(message.Row().Length(), 97);
  EXPECT_EQ(message.Row().Cursor(), 95);
  EXPECT_EQ(message.FirstVisible(), 70);
}

TEST(ScrollingMessage, AClickSetsTheCursorToTheNearestCellBoundaryOfTheSpan) {
  ScrollingMessage message = Opened(100);
  message.Click(17);
  EXPECT_EQ(message.Row().Cursor(), 71);
  message.Click(18);
  EXPECT_EQ(message.Row().Cursor(), 72);
  message.Click(0);
  EXPECT_EQ(message.Row().Cursor(), 70);
  message.Click(364);
  EXPECT_EQ(message.Row().Cursor(), 100);
  message.Click(100000);
  EXPECT_EQ(message.Row().Cursor(), 100);
  message.Click(-100);
  EXPECT_GE(message.Row().Cursor(), message.FirstVisible());
  EXPECT_FALSE(message.IsModified());

  Press(message, MoveKey::kHome);
  message.Click(100000);
  EXPECT_EQ(message.Row().Cursor(), 30);
  EXPECT_EQ(message.FirstVisible(), 0);

  ScrollingMessage small = Opened(4);
  small.Click(200);
  EXPECT_EQ(small.Row().Cursor(), 4);
}

TEST(ScrollingMessage, AfterOpenTheCursorStandsBehindTheLastCharacterTheSpanAsEndSetsIt) {
  EXPECT_EQ(Opened(100).Row().Cursor(), 100);
  EXPECT_EQ(Opened(100).FirstVisible(), 70);
  EXPECT_EQ(Opened(30).FirstVisible(), 0);
  EXPECT_EQ(Opened(0).FirstVisible(), 0);
}

TEST(ScrollingMessage, BeginEmptiesTheMessageAndKeepsTheAttributes) {
  ScrollingMessage message = Opened(100);
  message.ChooseColour(4);
  TypeKey(message, 'x');
  message.Begin();
  EXPECT_EQ(message.Row().Length(), 0);
  EXPECT_EQ(message.Row().Cursor(), 0);
  EXPECT_EQ(message.FirstVisible(), 0);
  EXPECT_FALSE(message.IsModified());
  EXPECT_EQ(message.CurrentAttributes(), (Attributes{'A', 'E', 'N'}));
  EXPECT_FALSE(message.Undo());
}

TEST(ScrollingMessage, UndoAndRedoBringBackTextCursorAndSpan) {
  ScrollingMessage message = Opened(50);
  EXPECT_FALSE(message.Undo());
  EXPECT_FALSE(message.Redo());
  EXPECT_FALSE(message.IsModified());
  message.TypeAll("a long paste of 40 characters is so long");
  Press(message, MoveKey::kHome);
  Press(message, MoveKey::kDelete);
  EXPECT_TRUE(message.Undo());
  EXPECT_EQ(message.Row().Length(), 90);
  EXPECT_EQ(message.Row().Cursor(), 0);
  message.SetModified(false);
  EXPECT_TRUE(message.Undo());
  EXPECT_EQ(message.Row().Length(), 50);
  EXPECT_EQ(message.Row().Cursor(), 50);
  EXPECT_EQ(message.FirstVisible(), 20);
  EXPECT_TRUE(message.IsModified());
  EXPECT_FALSE(message.Undo());
  EXPECT_TRUE(message.Redo());
  EXPECT_EQ(message.Row().Length(), 90);
  EXPECT_TRUE(message.Redo());
  EXPECT_EQ(message.Row().Length(), 89);
  EXPECT_FALSE(message.Redo());
}

TEST(ScrollingMessage, UndoAndRedoAreEditsThatAreToBeSaved) {
  ScrollingMessage message = Opened(3);
  TypeKey(message, 'x');
  message.SetModified(false);
  EXPECT_TRUE(message.Undo());
  EXPECT_TRUE(message.IsModified());
  message.SetModified(false);
  EXPECT_TRUE(message.Redo());
  EXPECT_TRUE(message.IsModified());
}

TEST(ScrollingMessage, WhatStandsInFrontOfAnEditThatIsTakenBackOrMadeAgainIsInSight) {
  ScrollingMessage message = Opened(100);
  Press(message, MoveKey::kLeft, 50);
  Press(message, MoveKey::kDelete);
  EXPECT_EQ(message.FirstVisible(), 50);
  EXPECT_TRUE(message.Undo());
  EXPECT_EQ(message.Row().Cursor(), 50);
  EXPECT_LT(message.FirstVisible(), 50);
  Press(message, MoveKey::kEnd);
  EXPECT_EQ(message.FirstVisible(), 70);
  EXPECT_TRUE(message.Redo());
  EXPECT_EQ(message.Row().Cursor(), 50);
  EXPECT_LT(message.FirstVisible(), 50);
}

TEST(ScrollingMessage, AFileOfMoreThan1000CharactersStaysWholeAndTakesNoFurtherOne) {
  ScrollingMessage message = Opened(600000);
  EXPECT_EQ(message.Row().Cursor(), 600000);
  EXPECT_EQ(message.FirstVisible(), 599970);
  TypeKey(message, 'x');
  EXPECT_EQ(message.Row().Length(), 600000);
  EXPECT_FALSE(message.IsModified());
  TypeKey(message, kBackspace);
  Press(message, MoveKey::kHome);
  Press(message, MoveKey::kDelete);
  EXPECT_EQ(message.Row().Length(), 599998);
  EXPECT_TRUE(message.IsModified());
}

TEST(ScrollingMessage, RandomKeysKeepTheCursorWithinTheSpanAndTheTextsEqualInLength) {
  std::mt19937 random(20240613);
  ScrollingMessage message;
  constexpr MoveKey kKeys[] = {
      MoveKey::kEnd,       MoveKey::kHome,          MoveKey::kLeft,      MoveKey::kUp,
      MoveKey::kRight,     MoveKey::kDown,          MoveKey::kDelete,    MoveKey::kWordLeft,
      MoveKey::kWordRight, MoveKey::kBackspaceWord, MoveKey::kDeleteWord};
  for (int step = 0; step < 30000; ++step) {
    switch (random() % 8) {
      case 0:
        TypeKey(message, kBackspace);
        break;
      case 1:
        message.PressMoveKey(kKeys[random() % std::size(kKeys)]);
        break;
      case 2:
        message.Click(static_cast<double>(random() % 500) - 50);
        break;
      case 3:
        random() % 2 == 0 ? message.Undo() : message.Redo();
        break;
      case 4:
        message.TypeAll(QByteArray(static_cast<qsizetype>(random() % 70), 'p'));
        break;
      default:
        TypeKey(message, static_cast<char>(random() % 256));
    }
    const PageRow& row = message.Row();
    ASSERT_LE(row.Length(), 1000);
    ASSERT_LE(row.Cursor(), row.Length());
    ASSERT_GE(message.FirstVisible(), 0);
    ASSERT_LE(message.FirstVisible(), row.Cursor());
    ASSERT_LE(row.Cursor() - message.FirstVisible(), 30);
    ASSERT_EQ(row.Size().size(), row.Length());
    ASSERT_EQ(row.Colour().size(), row.Length());
    ASSERT_EQ(row.Blink().size(), row.Length());
  }
}

}  // namespace
}  // namespace Brivon1
