#include "dot_matrix.h"

#include <string>

#include <QTimeZone>

#include <gtest/gtest.h>

#include "dot_glyphs.h"

namespace {

using VirtualPanel::DotMatrix;
using VirtualPanel::ParseCells;
using VirtualPanel::PutCells;
using VirtualPanel::RowLook;
using VirtualPanel::Transition;

/// One line of text per row of dots: "." dark, "r" red, "g" green, "y" yellow.
std::string Shown(const DotMatrix& matrix) {
  std::string shown;
  for (int y = 0; y < matrix.Rows(); ++y) {
    for (int x = 0; x < matrix.Columns(); ++x) shown += ".rgy"[matrix.At(x, y)];
    shown += '\n';
  }
  return shown;
}

DotMatrix Matrix(const std::string& shown) {
  const auto columns = static_cast<int>(shown.find('\n'));
  const auto rows = static_cast<int>(shown.size()) / (columns + 1);
  DotMatrix matrix(columns, rows);
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < columns; ++x) {
      const char dot = shown[static_cast<std::size_t>(y * (columns + 1) + x)];
      matrix.Set(x, y, static_cast<VirtualPanel::Dot>(std::string(".rgy").find(dot)));
    }
  }
  return matrix;
}

RowLook Look() {
  return {true, true, QDateTime(QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc())};
}

std::string Row(const QByteArray& text, int columns, const RowLook& look = Look(), int left = 0) {
  DotMatrix matrix(columns, VirtualPanel::kRowDots);
  PutCells(&matrix, 0, left, ParseCells(text), look);
  return Shown(matrix);
}

// ---- characters ---------------------------------------------------------------------------------

TEST(DotCharacters, ANormalCharacterIsSixColumnsWideAndSevenDotsHigh) {
  EXPECT_EQ(Row("<SA><CA>AB", 12),
            "..r...rrrr..\n"
            ".r.r...r..r.\n"
            "r...r..r..r.\n"
            "r...r..rrr..\n"
            "rrrrr..r..r.\n"
            "r...r..r..r.\n"
            "r...r.rrrr..\n"
            "............\n");
}

TEST(DotCharacters, ACompressedCharacterIsFiveColumnsWide) {
  EXPECT_EQ(Row("<SB><CA>AB", 10),
            ".rr..rrr..\n"
            "r..r.r..r.\n"
            "r..r.rrr..\n"
            "rrrr.r..r.\n"
            "r..r.r..r.\n"
            "r..r.rrr..\n"
            "..........\n"
            "..........\n");
}

TEST(DotCharacters, BoldIsADoubledStrokeThatLeavesTheLastColumnDark) {
  EXPECT_EQ(Row("<SC><CA>L", 6),
            "rr....\n"
            "rr....\n"
            "rr....\n"
            "rr....\n"
            "rr....\n"
            "rr....\n"
            "rrrrr.\n"
            "......\n");
  EXPECT_EQ(Row("<SD><CA>L", 5),
            "rr...\n"
            "rr...\n"
            "rr...\n"
            "rr...\n"
            "rr...\n"
            "rrrr.\n"
            ".....\n"
            ".....\n");
}

TEST(DotCharacters, BoldDoesNotCloseTheGapWithinACharacter) {
  EXPECT_EQ(Row("<SD><CA>0", 5),
            "..rr.\n"
            "rr.r.\n"
            "rr.r.\n"
            "rr.r.\n"
            "rr.r.\n"
            "..rr.\n"
            ".....\n"
            ".....\n");
}

TEST(DotCharacters, WhatHangsBelowTheLineIsKept) {
  EXPECT_EQ(Row("<SA><CA>p", 6),
            "......\n"
            "r.rr..\n"
            "rr..r.\n"
            "r...r.\n"
            "rr..r.\n"
            "r.rr..\n"
            "r.....\n"
            "......\n");
}

TEST(DotCharacters, AnAccentIsKept) {
  EXPECT_EQ(Row("<SA><CA>\xC4", 6),
            ".r.r..\n"
            "......\n"
            ".rrr..\n"
            "r...r.\n"
            "rrrrr.\n"
            "r...r.\n"
            "r...r.\n"
            "......\n");
}

TEST(DotCharacters, EveryPrintableCharacterOfTheCodePageHasAGlyphOfItsOwnOrABlank) {
  const std::string box = Row("<SA><CA>\x7F", 6);
  const VirtualPanel::DotGlyph unknown = VirtualPanel::GlyphOf(QChar(0xE000), false, false);
  for (int byte = 0x20; byte < 0x100; ++byte) {
    const QString text =
        VirtualPanel::TextOf({VirtualPanel::Cell::Kind::kCharacter, static_cast<char>(byte)}, {});
    for (const bool compressed : {false, true}) {
      const auto glyph = VirtualPanel::GlyphOf(text.at(0), compressed, false);
      EXPECT_EQ(glyph.columns, compressed ? 5 : 6) << byte;
      EXPECT_NE(glyph.rows, unknown.rows) << byte;
      const bool is_blank = text == QStringLiteral(" ") || text == QString(QChar(0xA0));
      EXPECT_EQ(glyph.rows == decltype(glyph.rows){}, is_blank) << byte;
      for (const unsigned row : glyph.rows) EXPECT_EQ(row >> glyph.columns, 0U) << byte;
    }
  }
  EXPECT_EQ(box.find('r'), std::string::npos) << "a control character is a blank";
}

TEST(DotCharacters, ACharacterThatTheFontLacksIsAnEmptyBox) {
  const VirtualPanel::DotGlyph box = VirtualPanel::GlyphOf(QChar(0x4E2D), false, false);
  EXPECT_TRUE(box.IsLit(0, 0));
  EXPECT_FALSE(box.IsLit(2, 3));
  EXPECT_TRUE(box.IsLit(4, 6));
}

TEST(DotCharacters, EachGraphicHasASymbolOfItsOwn) {
  for (const bool compressed : {false, true}) {
    QList<std::array<quint8, 7>> seen;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const auto symbol = VirtualPanel::SymbolOf(letter, compressed, false);
      EXPECT_FALSE(seen.contains(symbol.rows)) << letter << compressed;
      EXPECT_NE(symbol.rows, (std::array<quint8, 7>{}));
      seen.append(symbol.rows);
    }
  }
}

TEST(DotCharacters, GraphicAIsAnArrow) {
  EXPECT_EQ(Row("<SA><CA><GA>", 6),
            "......\n"
            "......\n"
            "..r...\n"
            ".r....\n"
            "rrrrrr\n"
            ".r....\n"
            "..r...\n"
            "......\n");
}

TEST(DotCharacters, DateAndTimeAreThePanelsOwn) {
  EXPECT_EQ(Row("<SB><CA><DT>", 25), Row("<SB><CA>14:07", 25));
  EXPECT_EQ(Row("<SB><CA><DD>", 55), Row("<SB><CA>05 MAR 2026", 55));
  EXPECT_EQ(VirtualPanel::ColumnsOf(ParseCells("<SB><DT><SA>x<GB>"), Look().clock), 5 * 5 + 6 + 6);
}

TEST(DotCharacters, AMeasureOfDateAndTimeFitsWhatIsWritten) {
  const QList<VirtualPanel::Cell> cells = ParseCells("<DD><DT>");
  for (const QDateTime& clock :
       {QDateTime(), QDateTime(QDate(2000, 1, 1), QTime(0, 0), QTimeZone::utc()),
        QDateTime(QDate(2099, 12, 31), QTime(23, 59, 59), QTimeZone::utc())}) {
    const qsizetype characters =
        VirtualPanel::TextOf(cells[0], clock).size() + VirtualPanel::TextOf(cells[1], clock).size();
    EXPECT_EQ(VirtualPanel::ColumnsOf(cells, clock), 6 * characters);
  }
}

// ---- colours ------------------------------------------------------------------------------------

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

// ---- rows ---------------------------------------------------------------------------------------

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

// ---- entry effects ------------------------------------------------------------------------------

const std::string kOld =
    "rrrrrrrr\n"
    "r......r\n"
    "r......r\n"
    "rrrrrrrr\n";
const std::string kNew =
    "gy....yg\n"
    ".gy..yg.\n"
    "..gyyg..\n"
    "...gg...\n";

struct EffectCase {
  char code;
  double progress;
  std::string shown;
};

void PrintTo(const EffectCase& effect, std::ostream* out) {
  *out << effect.code << " at " << effect.progress;
}

class EntryEffects : public testing::TestWithParam<EffectCase> {};

TEST_P(EntryEffects, ShowWhatBelongsToTheirProgress) {
  const EffectCase& effect = GetParam();
  EXPECT_EQ(Shown(Transition(Matrix(kOld), Matrix(kNew), effect.code, effect.progress)),
            effect.shown);
}

INSTANTIATE_TEST_SUITE_P(Appear, EntryEffects,
                         testing::Values(EffectCase{'A', 0, kOld}, EffectCase{'A', 0.01, kNew},
                                         EffectCase{'A', 1, kNew}, EffectCase{'X', 0.5, kNew}));
INSTANTIATE_TEST_SUITE_P(Flip, EntryEffects,
                         testing::Values(EffectCase{'B', 0, kOld},
                                         EffectCase{'B', 0.25,
                                                    "........\n"
                                                    "r......r\n"
                                                    "rrrrrrrr\n"
                                                    "........\n"},
                                         EffectCase{'B', 0.5,
                                                    "........\n"
                                                    "........\n"
                                                    "........\n"
                                                    "........\n"},
                                         EffectCase{'B', 0.75,
                                                    "........\n"
                                                    ".gy..yg.\n"
                                                    "...gg...\n"
                                                    "........\n"},
                                         EffectCase{'B', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Open, EntryEffects,
                         testing::Values(EffectCase{'C', 0, kOld},
                                         EffectCase{'C', 0.5,
                                                    "rr....rr\n"
                                                    "r.y..y.r\n"
                                                    "r.gyyg.r\n"
                                                    "rr.gg.rr\n"},
                                         EffectCase{'C', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(WipeRight, EntryEffects,
                         testing::Values(EffectCase{'D', 0, kOld},
                                         EffectCase{'D', 0.5,
                                                    "gy..rrrr\n"
                                                    ".gy....r\n"
                                                    "..gy...r\n"
                                                    "...grrrr\n"},
                                         EffectCase{'D', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(WipeLeft, EntryEffects,
                         testing::Values(EffectCase{'E', 0, kOld},
                                         EffectCase{'E', 0.5,
                                                    "rrrr..yg\n"
                                                    "r....yg.\n"
                                                    "r...yg..\n"
                                                    "rrrrg...\n"},
                                         EffectCase{'E', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Fall, EntryEffects,
                         testing::Values(EffectCase{'F', 0, kOld},
                                         EffectCase{'F', 0.5,
                                                    "..gyyg..\n"
                                                    "...gg...\n"
                                                    "r......r\n"
                                                    "rrrrrrrr\n"},
                                         EffectCase{'F', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Slide, EntryEffects,
                         testing::Values(EffectCase{'G', 0, kOld},
                                         EffectCase{'G', 0.5,
                                                    "rrrrgy..\n"
                                                    "r....gy.\n"
                                                    "r.....gy\n"
                                                    "rrrr...g\n"},
                                         EffectCase{'G', 1, kNew}));
INSTANTIATE_TEST_SUITE_P(Shift, EntryEffects,
                         testing::Values(EffectCase{'H', 0, kOld},
                                         EffectCase{'H', 0.5,
                                                    "rrrrgy..\n"
                                                    "...r.gy.\n"
                                                    "...r..gy\n"
                                                    "rrrr...g\n"},
                                         EffectCase{'H', 1, kNew}));

}  // namespace
