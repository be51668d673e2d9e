#include "page/page_message.h"

#include <array>
#include <random>

#include <gtest/gtest.h>

#include "page/page_of.h"

namespace {

using Brivon1::kMaxRows;
using Brivon1::MoveKey;
using Brivon1::PageMessage;
using Brivon1::PageRows;

TEST(PageMessage, StartsWithoutAPageAndWithTheFirstAttributes) {
  const PageMessage page;
  EXPECT_EQ(page.CurrentRow(), 1);
  EXPECT_EQ(page.Rows(), 0);
  EXPECT_EQ(page.Columns(), 0);
  EXPECT_EQ(page.MaxCharsPerRow(), 0);
  EXPECT_EQ(page.CurrentAttributes(), (Brivon1::Attributes{'A', 'A', 'N'}));
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, MaxCharsIsTheColumnsDividedBy5WithoutTheRemainder) {
  EXPECT_EQ(PageOf(1, 80).MaxCharsPerRow(), 16);
  EXPECT_EQ(PageOf(1, 96).MaxCharsPerRow(), 19);
  EXPECT_EQ(PageOf(1, 4).MaxCharsPerRow(), 0);
  EXPECT_EQ(PageOf(1, 3000).MaxCharsPerRow(), 600);
  EXPECT_EQ(PageOf(1, 32767).MaxCharsPerRow(), 6553);
}

TEST(PageMessage, WithCol80ARowTakes16CharactersThe17thKeyPressIsIgnoredButStillMarksThePage) {
  PageMessage page = PageOf(4, 80);
  Type(page, "1234567890123456");
  page.SetModified(false);
  page.TypeKey('7');
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
    page.TypeKey(key);
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

/// Where `key` takes the cursor in a row of `text`, press by press, from where `first` has put it
/// until it moves no more.
std::string WordColumns(QByteArrayView text, MoveKey first, MoveKey key) {
  PageMessage page = PageOf(1, 320);
  Type(page, text);
  page.PressMoveKey(first);
  QByteArrayList columns;
  for (qsizetype before = -1; before != page.Row(1).Cursor();) {
    before = page.Row(1).Cursor();
    page.PressMoveKey(key);
    columns.append(QByteArray::number(page.Row(1).Cursor()));
  }
  return columns.join(' ').toStdString();
}

TEST(PageMessage, AWordIsLettersAndDigitsOrTheOtherCharactersBetweenThem) {
  const auto forth = [](QByteArrayView text) {
    return WordColumns(text, MoveKey::kHome, MoveKey::kWordRight);
  };
  const auto back = [](QByteArrayView text) {
    return WordColumns(text, MoveKey::kEnd, MoveKey::kWordLeft);
  };
  EXPECT_EQ(forth(""), "0");
  EXPECT_EQ(back(""), "0");
  EXPECT_EQ(forth("   "), "3 3");
  EXPECT_EQ(back("   "), "0 0");
  EXPECT_EQ(forth(" one  two "), "1 6 10 10");
  EXPECT_EQ(back(" one  two "), "6 1 0 0");
  EXPECT_EQ(forth("No. 5: 7,50!!"), "2 4 5 7 8 9 11 13 13");
  EXPECT_EQ(back("No. 5: 7,50!!"), "11 9 8 7 5 4 2 0 0");
  EXPECT_EQ(forth("Gr\xF6\xDF"
                  "e 4"),
            "6 7 7");  // a letter beyond ASCII is one
  EXPECT_EQ(back("Gr\xF6\xDF"
                 "e 4"),
            "6 0 0");
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

TEST(PageMessage, UpOnRow1AndDownOnRowROrRow12DoNothing) {
  for (const qint16 rows : {qint16{1}, qint16{4}, qint16{12}}) {
    PageMessage page = PageOf(rows, 80);
    page.PressMoveKey(MoveKey::kUp);
    EXPECT_EQ(page.CurrentRow(), 1);
    page.SetCurrentRow(rows);
    page.PressMoveKey(MoveKey::kDown);
    EXPECT_EQ(page.CurrentRow(), rows);
  }
}

TEST(PageMessage, UpAndDownTakeTheOtherRowsOwnColumn) {
  PageMessage page = PageOf(2, 80);
  Type(page, "abc");
  page.PressMoveKey(MoveKey::kDown);
  EXPECT_EQ(page.CurrentRow(), 2);
  EXPECT_EQ(page.Row(2).Cursor(), 0);
  Type(page, "x");
  page.PressMoveKey(MoveKey::kUp);
  EXPECT_EQ(page.CurrentRow(), 1);
  EXPECT_EQ(page.Row(1).Cursor(), 3);
}

TEST(PageMessage, AClickRightOfTheLastCharacterPutsTheCursorAtTheEndOfTheRow) {
  PageMessage page = PageOf(2, 80);
  page.SetCurrentRow(2);
  Type(page, "abc");
  page.SetCurrentRow(1);
  page.Click(2, 150);
  EXPECT_EQ(page.CurrentRow(), 2);
  EXPECT_EQ(page.Row(2).Cursor(), 3);
}

TEST(PageMessage, AClickPutsTheCursorToTheNearestCellBoundary) {
  struct Case {
    double x;
    int column;
  };
  const Case cases[] = {{0, 0},  {5, 0},    {5.4, 0},  {5.5, 1}, {6, 1},
                        {12, 1}, {17, 1},   {17.5, 2}, {18, 2},  {29, 2},
                        {30, 3}, {41.4, 3}, {41.5, 4}, {60, 4},  {-20, 0}};
  for (const Case& c : cases) {
    PageMessage page = PageOf(1, 80);
    Type(page, "abcd");
    page.Click(1, c.x);
    EXPECT_EQ(page.Row(1).Cursor(), c.column) << "at " << c.x;
  }
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
    if (code != 8 && code != 13) page.TypeKey(static_cast<char>(code));
  }
  page.TypeKey('\x7f');
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, ATypedCharacterWithoutAByteIsARefusedKey) {
  PageMessage page = PageOf(1, 80);
  page.RefuseKey();
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

TEST(PageMessage, ANewPageIsEmptyAndLeavesTheModifiedFlagAndTheAttributes) {
  PageMessage page = PageOf(3, 80);
  page.ChooseColour(2);
  page.SetCurrentRow(3);
  Type(page, "abc");
  page.Begin({2, 40});
  EXPECT_TRUE(page.IsModified());
  EXPECT_EQ(page.CurrentRow(), 1);
  EXPECT_EQ(page.CurrentAttributes().colour, 'C');
  for (int row = 1; row <= kMaxRows; ++row) {
    EXPECT_EQ(page.Row(row).Length(), 0);
    EXPECT_EQ(page.Row(row).Cursor(), 0);
  }
}

TEST(PageMessage, APageTakenOverHasItsCursorsAtTheEndsAndIsNotModified) {
  PageMessage page = PageOf(1, 80);
  Type(page, "old");
  PageRows rows;
  rows[1].Append('x', {});
  rows[1].Append('y', {});
  page.TakeOver({2, 40}, rows);
  EXPECT_EQ(page.Rows(), 2);
  EXPECT_EQ(page.Columns(), 40);
  EXPECT_EQ(page.CurrentRow(), 1);
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_EQ(page.Row(2).Text(), "xy");
  EXPECT_EQ(page.Row(2).Cursor(), 2);
  EXPECT_FALSE(page.IsModified());
}

TEST(PageMessage, APageOfNoRowsTakesNoCharacter) {
  PageMessage page = PageOf(0, 80);
  page.TypeKey('a');
  page.InsertDate();
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_TRUE(page.IsModified());
}

TEST(PageMessage, OnlyAShownRowBecomesTheCurrentOne) {
  PageMessage page = PageOf(3, 80);
  for (const int row : {0, -1, 4, 13, 30000}) {
    page.SetCurrentRow(row);
    page.Click(row, 0);
    EXPECT_EQ(page.CurrentRow(), 1);
  }
}

TEST(PageMessage, UndoTakesEditsBackAndRedoMakesThemAgain) {
  PageMessage page = PageOf(2, 200);
  page.TypeKey('a');
  page.ChooseColour(1);
  page.InsertDate();
  page.PressMoveKey(MoveKey::kDown);
  Type(page, "xy");
  page.TypeKey(Brivon1::kBackspace);
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
  page.TypeKey('c');
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
  page.TypeKey(Brivon1::kEnter);
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
        page.TypeKey(static_cast<char>(below(256)));
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
