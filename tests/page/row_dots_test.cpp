// How the characters of a page's row use up the dots of a panel.
#include "page/row_dots.h"

#include <random>
#include <utility>

#include <QTimeZone>

#include <gtest/gtest.h>

#include "page/page_dots.h"
#include "page/page_of.h"
#include "page/page_picture.h"
#include "panel_dots/panel_picture.h"
#include "store/configuration_store.h"

namespace Brivon1 {
namespace {

constexpr Attributes kNormal{'A', 'A', kSteady};
constexpr Attributes kCompressed{'B', 'A', kSteady};
constexpr Attributes kOnGreen{'A', 'J', kSteady};

const QDateTime kClock(QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc());

RowPanel PanelOf(int columns, qint16 colour_type = kTri) { return {columns, colour_type, kClock}; }

PageRow RowOf(QByteArrayView text, const Attributes& attributes = kNormal) {
  PageRow row;
  for (const char character : text) row.Append(character, attributes);
  return row;
}

TEST(RowDots, ANormalCharacterTakesSixDotsACompressedOneFive) {
  PageRow row = RowOf("abc");
  for (const char character : QByteArrayView("de")) row.Append(character, kCompressed);
  EXPECT_EQ(DotsOfCharacters(row, 0, PanelOf(96)), 0);
  EXPECT_EQ(DotsOfCharacters(row, 3, PanelOf(96)), 18);
  EXPECT_EQ(DotsOfCharacters(row, 4, PanelOf(96)), 23);
  EXPECT_EQ(DotsOfCharacters(row, 99, PanelOf(96)), 28);
}

TEST(RowDots, ASymbolTakesOneCellADateElevenATimeFive) {
  EXPECT_EQ(DotsOfCharacters(RowOf("~A"), 2, PanelOf(96)), 6);
  EXPECT_EQ(DotsOfCharacters(RowOf("DD MMM YYYY"), 11, PanelOf(96)), 66);
  EXPECT_EQ(DotsOfCharacters(RowOf("HH:MM"), 5, PanelOf(96)), 30);
}

TEST(RowDots, OfNineteenNormalCharactersA96DotPanelShowsSixteen) {
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmnopqrs"), PanelOf(96)), 16);
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmnop"), PanelOf(96)), 16);
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmnopqrs", kCompressed), PanelOf(96)), 19);
  EXPECT_EQ(SeenCharacters(PageRow(), PanelOf(96)), 0);
  EXPECT_EQ(SeenCharacters(RowOf("a"), PanelOf(3)), 0);
}

TEST(RowDots, ABlankIsNeverCutUnlessItsGroundIsLit) {
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmnop   "), PanelOf(96)), 19);
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmno   s"), PanelOf(96)), 18);
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmnop   ", kOnGreen), PanelOf(96)), 16);
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmnop   ", kOnGreen), PanelOf(96, kMono)), 19);
  EXPECT_EQ(SeenCharacters(RowOf("abcdefghijklmno   s"), PanelOf(96, kMono)), 18);
}

TEST(RowDots, ADateThatIsCutIsNotSeenAsAWhole) {
  EXPECT_EQ(SeenCharacters(RowOf("Today DD MMM YYYY"), PanelOf(96)), 6);
  EXPECT_EQ(SeenCharacters(RowOf("~A~A~A~A"), PanelOf(12)), 4);
}

TEST(RowDots, WhatIsTypedLikeACodeIsSeenWithTheCharacterBehindIt) {
  EXPECT_EQ(SeenCharacters(RowOf("<SA>ab"), PanelOf(3)), 0);
  EXPECT_EQ(SeenCharacters(RowOf("<SA>ab"), PanelOf(6)), 5);
  // Four symbols of two characters, and a code of four that gives no cell.
  EXPECT_EQ(SeenCharacters(RowOf("<SA>~A~A~A~A"), PanelOf(12)), 8);
}

TEST(RowDots, ACharacterFarBehindBlanksIsCut) {
  const PageRow row = RowOf("a" + QByteArray(400, ' ') + "b");
  EXPECT_EQ(SeenCharacters(row, PanelOf(96)), 401);
  EXPECT_EQ(UseOf(row, PanelOf(96)).dots, 402 * 6);
  EXPECT_EQ(UseOf(row, PanelOf(96)).seen, 401);
}

TEST(RowDots, TheCellsOfAnyRowShowThePanelWhatTheWholeRowDoes) {
  std::mt19937 random(5);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  for (int n = 0; n < 300; ++n) {
    SCOPED_TRACE(n);
    PageRow row;
    const int length = below(600);
    const bool is_blank_tail = below(2) == 0;
    for (int at = 0; at < length; ++at) {
      const bool is_blank = is_blank_tail && at > 40 && below(200) != 0;
      row.Append(is_blank ? ' ' : "ab~<>CA DHM:Y" [below(13)], {
        static_cast<char>('A' + below(4)), static_cast<char>('A' + below(16)),
            below(3) == 0 ? kBlinking : kSteady
      });
    }
    const RowPanel panel = PanelOf(10 + below(120), below(2) == 0 ? kTri : kMono);
    PanelDots::PanelPicture seen;
    seen.shape = {1, panel.columns, panel.colour_type == kTri};
    seen.clock = kClock;
    PanelDots::PanelPicture whole = seen;
    seen.rows.insert(1, SeenCells(row, panel));
    PageRows rows;
    rows[0] = row;
    whole.rows =
        PagePicture(rows, {1, static_cast<qint16>(panel.columns)}, panel.colour_type, kClock).rows;
    EXPECT_EQ(PanelDots::DotsOf(seen, 0), PanelDots::DotsOf(whole, 0));
    EXPECT_EQ(PanelDots::IsCut(seen, 1), PanelDots::IsCut(whole, 1));
    // The characters that are not seen make no difference.
    const qsizetype characters = SeenCharacters(row, panel);
    EXPECT_EQ(characters < row.Length(), PanelDots::IsCut(whole, 1));
    EXPECT_LE(characters, row.Length());
    if (testing::Test::HasFailure()) return;
  }
}

TEST(RowDots, OfAnEndlessRowNoMoreIsWorkedOutThanIsSeen) {
  const PageRow row = RowOf(QByteArray(5'000'000, 'x'));
  EXPECT_LT(SeenCells(row, PanelOf(96)).size(), 200);
  EXPECT_EQ(SeenCharacters(row, PanelOf(96)), 16);
}

TEST(PageDots, TheDotsEndWhereTheNextCharacterWouldBeCut) {
  PageMessage page = PageOf(3, 96);
  Type(page, "abc");
  PageDots dots;
  dots.Refresh(page, PanelOf(96));
  EXPECT_EQ(dots.EndOf(1, 'A'), 16);
  EXPECT_EQ(dots.EndOf(1, 'C'), 16);
  EXPECT_EQ(dots.EndOf(1, 'B'), 3 + 78 / 5);
  EXPECT_EQ(dots.EndOf(2, 'A'), 16);
  EXPECT_EQ(dots.EndOf(2, 'B'), std::nullopt) << "nineteen of them fit";
  Type(page, "defghijklmnopqrs");
  dots.Refresh(page, PanelOf(96));
  EXPECT_EQ(dots.EndOf(1, 'A'), 16);
  EXPECT_EQ(dots.EndOf(1, 'B'), 16) << "what is cut already stays so";
  EXPECT_EQ(dots.Of(1).dots, 19 * 6);
  EXPECT_EQ(dots.Of(1).seen, 16);
}

TEST(PageDots, AnotherPanelHasOtherEndsForTheSameRows) {
  PageMessage page = PageOf(1, 96);
  Type(page, "abcdefghij   klm");
  PageDots dots;
  // The blanks behind the tenth character may lie beyond 60 dots.
  for (const auto& [columns, end] : {std::pair(96, 16), std::pair(48, 8), std::pair(60, 13)}) {
    dots.Refresh(page, PanelOf(columns));
    EXPECT_EQ(dots.EndOf(1, 'A'), end) << columns;
    EXPECT_EQ(dots.Of(1).dots, 16 * 6);
  }
  // Of a panel of one colour the ground of a blank is dark, and it is never cut.
  PageMessage green = PageOf(1, 60);
  green.ChooseColour(9);
  Type(green, "abcdefghi   ");
  dots.Refresh(green, PanelOf(60));
  EXPECT_EQ(dots.Of(1).seen, 10);
  dots.Refresh(green, PanelOf(60, kMono));
  EXPECT_EQ(dots.Of(1).seen, 12);
}

TEST(PageDots, BlanksMayStandBehindTheLastDot) {
  PageMessage page = PageOf(1, 96);
  Type(page, QByteArray(18, ' '));
  PageDots dots;
  dots.Refresh(page, PanelOf(96));
  EXPECT_EQ(dots.Of(1).seen, 18);
  EXPECT_EQ(dots.EndOf(1, 'A'), 16);
}

}  // namespace
}  // namespace Brivon1
