#include "panel_dots/dot_matrix.h"

#include <utility>

#include <gtest/gtest.h>

#include "dots_as_text.h"
#include "panel_dots/seen_cells.h"

namespace PanelDots {
namespace {

TEST(DotMatrixTest, OutsideEverythingIsDarkAndNothingCanBeSet) {
  DotMatrix matrix(2, 3);
  for (const auto& [x, y] : {std::pair(-1, 0), {2, 0}, {0, -1}, {0, 3}}) {
    matrix.Set(x, y, kRedDot);
    EXPECT_EQ(matrix.At(x, y), kDarkDot) << x << ' ' << y;
  }
  EXPECT_EQ(matrix, DotMatrix(2, 3));
  matrix.Set(1, 2, kGreenDot);
  EXPECT_EQ(matrix.At(1, 2), kGreenDot);
  EXPECT_NE(matrix, DotMatrix(2, 3));
}

TEST(SeenCells, SoManyAreTakenInThatTheFirstCutOneIsAmongThem) {
  const RowLook without_a_clock;
  for (const char* begin : {" ", "<DD>"}) {  // what is dark, and what takes no column
    const QList<Cell> whole = ParseCells(QByteArray(begin).repeated(400) + "HHH");
    ASSERT_EQ(whole.size(), 403);
    const QList<Cell> taken =
        BeginningOf(whole.size(), 12, without_a_clock,
                    [&](qsizetype characters) { return whole.first(characters); });
    EXPECT_EQ(FirstCut(taken, 12, without_a_clock), FirstCut(whole, 12, without_a_clock)) << begin;
    EXPECT_LT(FirstCut(taken, 12, without_a_clock), taken.size()) << begin;
  }
  const QList<Cell> letters = ParseCells(QByteArray(400, 'H'));
  EXPECT_EQ(BeginningOf(letters.size(), 12, without_a_clock,
                        [&](qsizetype characters) { return letters.first(characters); })
                .size(),
            130);  // 2 characters of the narrowest kind in 12 columns, and 128
}

TEST(DotColours, RedGreenAndYellow) {
  EXPECT_EQ(Row("<SB><CA>-<CB>-<CC>-", 15),
            "...............\n"
            "...............\n"
            "...............\n"
            "rrrr.gggg.yyyy.\n"
            "...............\n"
            "...............\n"
            "...............\n"
            "...............\n");
}

TEST(DotColours, ThreeDHasAnEdgeBelowAndToTheRight) {
  EXPECT_EQ(Row("<SA><CD>-", 6),
            "......\n"
            "......\n"
            "......\n"
            "rrrrr.\n"
            ".ggggg\n"
            "......\n"
            "......\n"
            "......\n");
}

TEST(DotColours, OnHasALitGround) {
  EXPECT_EQ(Row("<SA><CK>-", 7),
            "rrrrrr.\n"
            "rrrrrr.\n"
            "rrrrrr.\n"
            "gggggr.\n"
            "rrrrrr.\n"
            "rrrrrr.\n"
            "rrrrrr.\n"
            "rrrrrr.\n");
}

TEST(DotColours, ShadowIsDarkOnALitGround) {
  EXPECT_EQ(Row("<SA><CN>-", 7),
            "rrrrrr.\n"
            "rrrrrr.\n"
            "rrrrrr.\n"
            "yyyyyr.\n"
            "r......\n"
            "rrrrrr.\n"
            "rrrrrr.\n"
            "rrrrrr.\n");
}

TEST(DotColours, RainbowRunsThroughTheColoursAlongTheRow) {
  EXPECT_EQ(Row("<SA><CP>---", 18).substr(19 * 3, 18), "rrrry.yyggg.yyyyr.");
}

TEST(DotColours, EachColourLooksDifferent) {
  QList<QByteArray> seen;
  for (char colour = 'A'; colour <= 'P'; ++colour) {
    const std::string row = Row(QByteArray("<SA><C") + colour + ">AB", 12);
    EXPECT_FALSE(seen.contains(QByteArray::fromStdString(row))) << colour;
    seen.append(QByteArray::fromStdString(row));
  }
}

TEST(DotColours, AnUnknownColourIsRed) {
  EXPECT_EQ(Row("<SA><CQ>A", 6), Row("<SA><CA>A", 6));
  EXPECT_EQ(Row("<SA><C\xFF>A", 6), Row("<SA><CA>A", 6));
}

TEST(DotColours, OnASingleColourPanelEverythingIsRed) {
  RowLook look = Look();
  look.tri_colour = false;
  for (char colour = 'A'; colour <= 'P'; ++colour) {
    EXPECT_EQ(Row(QByteArray("<SA><C") + colour + ">AB", 12, look), Row("<SA><CA>AB", 12));
  }
}

TEST(DotRows, BlinkingCharactersAreDarkInTheirDarkHalfAndTheOthersAreNot) {
  RowLook look = Look();
  look.blinking_lit = false;
  EXPECT_EQ(Row("<SA><CA>A<SE>B<SA>A", 18, look), Row("<SA><CA>A A", 18));
  EXPECT_EQ(Row("<SA><CA>A<SE>B<SA>A", 18), Row("<SA><CA>ABA", 18));
}

TEST(DotRows, WhatDoesNotFitIsCut) {
  EXPECT_EQ(Row("<SA><CA>LL", 8),
            "r.....r.\n"
            "r.....r.\n"
            "r.....r.\n"
            "r.....r.\n"
            "r.....r.\n"
            "r.....r.\n"
            "rrrrr.rr\n"
            "........\n");
  EXPECT_EQ(Row("<SA><CA>LL", 8, Look(), -4),
            "..r.....\n"
            "..r.....\n"
            "..r.....\n"
            "..r.....\n"
            "..r.....\n"
            "..r.....\n"
            "r.rrrrr.\n"
            "........\n");
}

TEST(DotRows, AnEndlessRowIsShownAsFarAsItFits) {
  EXPECT_EQ(Row("<SA><CA>" + QByteArray(60000, 'L'), 6), Row("<SA><CA>L", 6));
}

TEST(DotRows, TheFirstCutCellIsTheFirstOneWithLightBehindTheLastColumn) {
  const auto first_cut = [](const QByteArray& text, int columns) {
    return FirstCut(ParseCells(text), columns, Look());
  };
  EXPECT_EQ(first_cut("abc", 18), 3);
  EXPECT_EQ(first_cut("abc", 17), 3) << "a letter's last column is dark";
  EXPECT_EQ(first_cut("abc", 16), 2);
  EXPECT_EQ(first_cut("abc", 10), 1);
  EXPECT_EQ(first_cut("a  c ", 6), 3) << "blanks have no light";
  EXPECT_EQ(first_cut("a   ", 6), 4);
  EXPECT_EQ(first_cut("a<CJ>  ", 6), 1) << "these have";
  EXPECT_EQ(first_cut("a<DD>b", 60), 1);
  EXPECT_EQ(first_cut("", 0), 0);
}

}  // namespace
}  // namespace PanelDots
