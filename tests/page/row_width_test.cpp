// How many of a panel's dots a row takes.
#include "page/row_width.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include "page/page_of.h"
#include "panel_dots/dot_matrix.h"

namespace {

using Brivon1::PageMessage;

TEST(RowWidth, IsThatOfThePanelsCharacters) {
  PageMessage page = PageOf(1, 500);
  Type(page, "ab~C");
  page.InsertTime();
  page.ChooseSize(3);
  page.ChooseColour(0);
  page.InsertDate();
  Type(page, "~Z~");
  const QDateTime clock(QDate(2024, 5, 21), QTime(7, 30));
  EXPECT_EQ(DotsOf(page.Row(1)),
            ColumnsOf(PanelDots::ParseCells("<SA><CA>ab<GC><DT><SD><DD><GZ>~"), clock));
}

TEST(RowWidth, ASymbolIsOneCharacterAndCompressedOnesAreNarrower) {
  PageMessage page = PageOf(1, 200);
  Type(page, "ab~C");
  EXPECT_EQ(DotsOf(page.Row(1)), 18);
  page.ChooseSize(1);
  page.ChooseColour(0);
  Type(page, "d~");
  EXPECT_EQ(DotsOf(page.Row(1)), 28);
  page.ChooseSize(1);
  page.ChooseColour(1);
  // Of another colour: its code breaks the symbol. The panel is sent "<G<>" and "CB>E".
  Type(page, "E");
  EXPECT_EQ(DotsOf(page.Row(1)), 48);
}

}  // namespace
