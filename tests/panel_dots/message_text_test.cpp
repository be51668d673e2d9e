#include "panel_dots/message_text.h"

#include <gtest/gtest.h>

namespace PanelDots {
namespace {

TEST(ParseCells, CarriesSizeColourAndBlinking) {
  const QList<Cell> cells = ParseCells("a<SC><CB>b<SF>c<SA>d");
  ASSERT_EQ(cells.size(), 4);
  EXPECT_EQ(cells[0], (Cell{Cell::Kind::kCharacter, 'a', 'A', 'A', false}));
  EXPECT_EQ(cells[1], (Cell{Cell::Kind::kCharacter, 'b', 'C', 'B', false}));
  EXPECT_EQ(cells[2], (Cell{Cell::Kind::kCharacter, 'c', 'B', 'B', true}));
  EXPECT_EQ(cells[3], (Cell{Cell::Kind::kCharacter, 'd', 'A', 'B', false}));
}

TEST(ParseCells, ReadsEverySizeLetter) {
  const QList<Cell> cells = ParseCells("<SA>1<SB>2<SC>3<SD>4<SE>5<SF>6<SG>7<SH>8");
  ASSERT_EQ(cells.size(), 8);
  QByteArray sizes;
  QByteArray blinks;
  for (const Cell& cell : cells) {
    sizes += cell.size;
    blinks += cell.blinking ? 'B' : 'N';
  }
  EXPECT_EQ(sizes, "ABCDABCD");
  EXPECT_EQ(blinks, "NNNNBBBB");
}

TEST(ParseCells, ReadsGraphicsDateAndTime) {
  const QList<Cell> cells = ParseCells("<CC><GA><DD><DT>");
  ASSERT_EQ(cells.size(), 3);
  EXPECT_EQ(cells[0], (Cell{Cell::Kind::kGraphic, 'A', 'A', 'C', false}));
  EXPECT_EQ(cells[1].kind, Cell::Kind::kDate);
  EXPECT_EQ(cells[2].kind, Cell::Kind::kTime);
}

TEST(ParseCells, DropsASizeItDoesNotKnow) {
  const QList<Cell> cells = ParseCells("<SB><SZ>x");
  ASSERT_EQ(cells.size(), 1);
  EXPECT_EQ(cells[0], (Cell{Cell::Kind::kCharacter, 'x', 'B', 'A', false}));
}

TEST(ParseCells, ShowsWhatIsNoCode) {
  QByteArray shown;
  for (const Cell& cell : ParseCells("<<SA><X1><D1><S")) shown += cell.character;
  EXPECT_EQ(shown, "<<X1><D1><S");
}

}  // namespace
}  // namespace PanelDots
