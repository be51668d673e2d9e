#include <QTimeZone>

#include <gtest/gtest.h>

#include "dots_as_text.h"
#include "panel_dots/dot_glyphs.h"
#include "support/use_code_page.h"

using namespace Qt::StringLiterals;

namespace PanelDots {
namespace {

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
  const UseCodePage western(1252);
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

TEST(DotCharacters, AByteIsTheLetterOfTheCodePage) {
  const auto text = [](char byte) { return TextOf({Cell::Kind::kCharacter, byte}, {}); };
  const UseCodePage russian(1251);
  EXPECT_EQ(text('\xC6'), u"Ж"_s);
  EXPECT_EQ(Row("<SA><CA>\xC3", 6),  // Г
            "rrrrr.\n"
            "r.....\n"
            "r.....\n"
            "r.....\n"
            "r.....\n"
            "r.....\n"
            "r.....\n"
            "......\n");
  const UseCodePage greek(1253);
  EXPECT_EQ(text('\xD8'), u"Ψ"_s);
  EXPECT_EQ(text('\xD2'), u" "_s) << "undefined";
  EXPECT_EQ(text('\x81'), u" "_s) << "undefined";
}

TEST(DotCharacters, EveryPrintableCharacterOfTheCodePageHasAGlyphOfItsOwnOrABlank) {
  const UseCodePage western(1252);
  const std::string box = Row("<SA><CA>\x7F", 6);
  const DotGlyph unknown = GlyphOf(QChar(0xE000), false, false);
  for (int byte = 0x20; byte < 0x100; ++byte) {
    const QString text = TextOf({Cell::Kind::kCharacter, static_cast<char>(byte)}, {});
    for (const bool compressed : {false, true}) {
      const auto glyph = GlyphOf(text.at(0), compressed, false);
      EXPECT_EQ(glyph.columns, compressed ? 5 : 6) << byte;
      EXPECT_NE(glyph.rows, unknown.rows) << byte;
      const bool is_blank = text == u" "_s || text == QString(QChar(0xA0));
      EXPECT_EQ(glyph.rows == decltype(glyph.rows){}, is_blank) << byte;
      for (const unsigned row : glyph.rows) EXPECT_EQ(row >> glyph.columns, 0U) << byte;
    }
  }
  EXPECT_EQ(box.find('r'), std::string::npos) << "a control character is a blank";
}

TEST(DotCharacters, ACharacterThatTheFontLacksIsAnEmptyBox) {
  const DotGlyph box = GlyphOf(QChar(0x4E2D), false, false);
  EXPECT_TRUE(box.IsLit(0, 0));
  EXPECT_FALSE(box.IsLit(2, 3));
  EXPECT_TRUE(box.IsLit(4, 6));
}

TEST(DotCharacters, EachGraphicHasASymbolOfItsOwn) {
  for (const bool compressed : {false, true}) {
    QList<std::array<quint8, 7>> seen;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const auto symbol = SymbolOf(letter, compressed, false);
      EXPECT_FALSE(seen.contains(symbol.rows)) << letter << compressed;
      EXPECT_NE(symbol.rows, (std::array<quint8, 7>{}));
      seen.append(symbol.rows);
    }
  }
}

TEST(DotCharacters, ASymbolStandsApartFromWhatFollowsIt) {
  for (const char* size : {"<SA>", "<SB>", "<SC>", "<SD>"}) {
    const int columns = size[2] == 'A' || size[2] == 'C' ? 6 : 5;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const std::string row = Row(QByteArray(size) + "<G" + letter + '>', columns);
      for (int y = 0; y < kRowDots; ++y) {
        EXPECT_EQ(row[static_cast<std::size_t>(y * (columns + 1) + columns - 1)], '.')
            << size << letter << '\n'
            << row;
      }
    }
  }
}

TEST(DotCharacters, GraphicAIsAnArrow) {
  EXPECT_EQ(Row("<SA><CA><GA>", 6),
            "......\n"
            "......\n"
            "..r...\n"
            ".r....\n"
            "rrrrr.\n"
            ".r....\n"
            "..r...\n"
            "......\n");
}

TEST(DotCharacters, ASymbolTakesAsManyColumnsAsALetter) {
  EXPECT_EQ(Row("<SA><CA><GJ><GJ>H", 18),
            "............r...r.\n"
            "............r...r.\n"
            "....r.....r.r...r.\n"
            "..rrr...rrr.rrrrr.\n"
            "rrrrr.rrrrr.r...r.\n"
            "..rrr...rrr.r...r.\n"
            "....r.....r.r...r.\n"
            "..................\n");
  EXPECT_EQ(Row("<SB><CA><GL><GR>H", 15),
            "..........r..r.\n"
            ".rr..r..r.r..r.\n"
            "rrrr.rrrr.rrrr.\n"
            "rrrr.rrrr.r..r.\n"
            ".rr...rr..r..r.\n"
            "..........r..r.\n"
            "...............\n"
            "...............\n");
}

TEST(DotCharacters, DateAndTimeAreThePanelsOwn) {
  EXPECT_EQ(Row("<SB><CA><DT>", 25), Row("<SB><CA>14:07", 25));
  EXPECT_EQ(Row("<SB><CA><DD>", 55), Row("<SB><CA>05 MAR 2026", 55));
  EXPECT_EQ(ColumnsOf(ParseCells("<SB><DT><SA>x<GB>"), Look().clock), 5 * 5 + 6 + 6);
}

TEST(DotCharacters, AMeasureOfDateAndTimeFitsWhatIsWritten) {
  const QList<Cell> cells = ParseCells("<DD><DT>");
  for (const QDateTime& clock :
       {QDateTime(), QDateTime(QDate(2000, 1, 1), QTime(0, 0), QTimeZone::utc()),
        QDateTime(QDate(2099, 12, 31), QTime(23, 59, 59), QTimeZone::utc())}) {
    const qsizetype characters = TextOf(cells[0], clock).size() + TextOf(cells[1], clock).size();
    EXPECT_EQ(ColumnsOf(cells, clock), 6 * characters);
  }
}

}  // namespace
}  // namespace PanelDots
