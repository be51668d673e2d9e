// The page as a whole: its size, its current row and where the cursor goes.
#include "page/page_message.h"

#include <gtest/gtest.h>

#include "page/page_of.h"
#include "support/use_code_page.h"

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

TEST(PageMessage, OfMoreThanTwelveRowsTheFirstTwelveAreThePage) {
  for (const qint16 rows : {qint16{12}, qint16{13}, qint16{16}, qint16{32767}}) {
    PageMessage page = PageOf(rows, 128);
    EXPECT_EQ(page.Rows(), 12) << rows;
    page.SetCurrentRow(12);
    EXPECT_EQ(page.CurrentRow(), 12);
    page.SetCurrentRow(13);
    EXPECT_EQ(page.CurrentRow(), 12);
    page.TakeOver({rows, 128}, {});
    EXPECT_EQ(page.Rows(), 12) << rows;
  }
  EXPECT_EQ(PageOf(-1, -5).Rows(), 0);
  EXPECT_EQ(PageOf(-1, -5).Columns(), 0);
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
  const UseCodePage vietnamese(1258);
  EXPECT_EQ(forth("Vi\xEA\xF2t Nam"), "6 9 9");  // its mark is a character of its own
  EXPECT_EQ(back("Vi\xEA\xF2t Nam"), "6 0 0");
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

TEST(PageMessage, OnlyAShownRowBecomesTheCurrentOne) {
  PageMessage page = PageOf(3, 80);
  for (const int row : {0, -1, 4, 13, 30000}) {
    page.SetCurrentRow(row);
    page.Click(row, 0);
    EXPECT_EQ(page.CurrentRow(), 1);
  }
}

}  // namespace
