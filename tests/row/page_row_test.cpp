#include "row/page_row.h"

#include <random>

#include <gtest/gtest.h>

#include "row/shown_row.h"

namespace {

using Brivon1::Attributes;
using Brivon1::PageRow;

constexpr Attributes kRedNormal{'A', 'A', 'N'};
constexpr Attributes kGreenBoldBlinking{'C', 'B', 'B'};

TEST(PageRow, InsertsAtTheCursorInAllFourTextsAndMovesBehind) {
  PageRow row;
  row.Insert('a', kRedNormal);
  row.Insert('c', kRedNormal);
  row.Left();
  row.Insert('b', kGreenBoldBlinking);
  EXPECT_EQ(Shown(row), "abc|ACA|ABA|NBN");
  EXPECT_EQ(row.Cursor(), 2);
}

TEST(PageRow, BackspaceRemovesLeftOfTheCursorAndDeleteRightOfIt) {
  PageRow row;
  row.Append('a', kRedNormal);
  row.Append('b', kGreenBoldBlinking);
  row.Append('c', {'D', 'P', 'N'});
  EXPECT_EQ(row.Cursor(), 0);
  row.Backspace();
  EXPECT_EQ(Shown(row), "abc|ACD|ABP|NBN");
  row.Right();
  row.Right();
  row.Backspace();
  EXPECT_EQ(Shown(row), "ac|AD|AP|NN");
  EXPECT_EQ(row.Cursor(), 1);
  row.Delete();
  EXPECT_EQ(Shown(row), "a|A|A|N");
  row.Delete();
  EXPECT_EQ(Shown(row), "a|A|A|N");
}

TEST(PageRow, DeletesAsManyCharactersAsThereAre) {
  PageRow row;
  for (const char c : {'a', 'b', 'c', 'd'}) row.Append(c, kRedNormal);
  row.Right();
  row.Delete(2);
  EXPECT_EQ(Shown(row), "ad|AA|AA|NN");
  row.Delete(0);
  EXPECT_EQ(Shown(row), "ad|AA|AA|NN");
  row.Delete(9);
  EXPECT_EQ(Shown(row), "a|A|A|N");
  EXPECT_EQ(row.Cursor(), 1);
}

TEST(PageRow, TheCursorStaysWithinTheText) {
  PageRow row;
  for (const char c : {'a', 'b', 'c'}) row.Append(c, kRedNormal);
  row.Left();
  EXPECT_EQ(row.Cursor(), 0);
  row.End();
  EXPECT_EQ(row.Cursor(), 3);
  row.Right();
  EXPECT_EQ(row.Cursor(), 3);
  row.Home();
  EXPECT_EQ(row.Cursor(), 0);
  row.SetCursor(-1);
  EXPECT_EQ(row.Cursor(), 0);
  row.SetCursor(100);
  EXPECT_EQ(row.Cursor(), 3);
}

TEST(PageRow, ACursorIsHeldIn16BitsEvenInALongerRow) {
  PageRow row;
  for (int i = 0; i < 40000; ++i) row.Append('x', kRedNormal);
  row.End();
  EXPECT_EQ(row.Cursor(), 32767);
  row.Right();
  EXPECT_EQ(row.Cursor(), 32767);
  row.Backspace();
  EXPECT_EQ(row.Length(), 39999);
  EXPECT_EQ(row.Cursor(), 32766);
}

TEST(PageRow, ARowOfItsOwnLimitLetsItsCursorReachEveryColumn) {
  PageRow row(PageRow::kEveryColumn);
  for (int i = 0; i < 40000; ++i) row.Append('x', kRedNormal);
  row.End();
  EXPECT_EQ(row.Cursor(), 40000);
  row.Insert('y', kRedNormal);
  EXPECT_EQ(row.Cursor(), 40001);
}

TEST(PageRow, RandomEditsKeepTheFourTextsEqualInLength) {
  std::mt19937 random(20240521);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  PageRow row;
  for (int edit = 0; edit < 20000; ++edit) {
    const qsizetype length = row.Length();
    const qsizetype cursor = row.Cursor();
    const Attributes attributes{static_cast<char>('A' + below(4)),
                                static_cast<char>('A' + below(16)), below(2) == 0 ? 'N' : 'B'};
    switch (below(8)) {
      case 0:
      case 1:
        row.Insert(static_cast<char>(below(256)), attributes);
        ASSERT_EQ(row.Length(), length + 1);
        ASSERT_EQ(row.AttributesAt(cursor), attributes);
        break;
      case 2:
        row.Backspace();
        ASSERT_EQ(row.Length(), cursor > 0 ? length - 1 : length);
        break;
      case 3:
        row.Delete();
        ASSERT_EQ(row.Length(), cursor < length ? length - 1 : length);
        break;
      case 4:
        row.Left();
        break;
      case 5:
        row.Right();
        break;
      case 6:
        row.SetCursor(below(50) - 10);
        break;
      default:
        below(2) == 0 ? row.Home() : row.End();
    }
    ExpectEqualLengths(row);
  }
}

}  // namespace
