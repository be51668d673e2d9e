#include "row/draw_cell.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include "row/page_row.h"
#include "support/use_code_page.h"

namespace {

constexpr QColor kRed{255, 0, 0};
constexpr QColor kGreen{0, 255, 0};
constexpr QColor kYellow{255, 255, 0};
constexpr QColor kBlue{0, 0, 255};
constexpr QColor kBlack{0, 0, 0};
constexpr QColor kGrey{100, 100, 100};

constexpr int kX = 5;
constexpr int kY = 4;

/// A cell at (kX, kY) on a picture of one colour.
QImage Cell(char character, char size, char colour, const QColor& ground = kBlack) {
  QImage image(30, 30, QImage::Format_RGB32);
  image.fill(ground);
  QPainter painter(&image);
  DrawCell(painter, character, size, colour, kX, kY);
  return image;
}

/// How much of the pixel at (x, y) of a cell the letter covers, 0 to 255.
int Coverage(const QImage& red_letter, int x, int y) {
  if (!red_letter.rect().contains(kX + x, kY + y)) return 0;
  return red_letter.pixelColor(kX + x, kY + y).red();
}

int Ink(const QImage& red_letter) {
  int ink = 0;
  for (int y = 0; y < red_letter.height(); ++y) {
    for (int x = 0; x < red_letter.width(); ++x) ink += red_letter.pixelColor(x, y).red();
  }
  return ink;
}

/// The middle of the letter's ink in one line of its cell.
double Middle(const QImage& red_letter, int y) {
  double sum = 0;
  double weights = 0;
  for (int x = -2; x < 16; ++x) {
    sum += x * Coverage(red_letter, x, y);
    weights += Coverage(red_letter, x, y);
  }
  return sum / weights;
}

TEST(DrawCell, PlainColoursAreShadesOfTheirOwnColourAlone) {
  const QImage red = Cell('H', 'A', 'A');
  const QImage green = Cell('H', 'A', 'B');
  const QImage yellow = Cell('H', 'A', 'C');
  const QImage rainbow = Cell('H', 'A', 'P');
  int full = 0;
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 30; ++x) {
      const int level = red.pixelColor(x, y).red();
      ASSERT_EQ(red.pixelColor(x, y), QColor(level, 0, 0));
      ASSERT_EQ(green.pixelColor(x, y), QColor(0, level, 0));
      ASSERT_EQ(yellow.pixelColor(x, y), QColor(level, level, 0));
      ASSERT_EQ(rainbow.pixelColor(x, y), QColor(0, 0, level));
      if (level == 255) ++full;
      if (level > 0) {
        EXPECT_TRUE(QRect(kX, kY, 12, 20).contains(x, y)) << x << ',' << y;
      }
    }
  }
  EXPECT_GT(full, 15);
}

TEST(DrawCell, ACharacterFillsItsCell) {
  const QImage letter = Cell('M', 'A', 'A');
  int first = 30;
  int last = 0;
  for (int x = 0; x < 12; ++x) {
    for (int y = 0; y < 20; ++y) {
      if (Coverage(letter, x, y) < 64) continue;
      first = std::min(first, x);
      last = std::max(last, x);
    }
  }
  EXPECT_LE(first, 2);
  EXPECT_GE(last, 9);
}

TEST(DrawCell, ThreeDimensionalColoursHaveAnEdgeOfTheSecondColourBelowAndToTheRight) {
  struct Case {
    char colour;
    QColor first;
    QColor second;
  };
  const Case cases[] = {{'D', kRed, kGreen},    {'E', kRed, kYellow}, {'F', kGreen, kRed},
                        {'G', kGreen, kYellow}, {'H', kYellow, kRed}, {'I', kYellow, kGreen}};
  const QImage letter = Cell('H', 'C', 'A');
  for (const Case& c : cases) {
    const QImage cell = Cell('H', 'C', c.colour);
    int in_front = 0;
    int edge = 0;
    for (int y = 0; y < 21; ++y) {
      for (int x = 0; x < 13; ++x) {
        const QColor pixel = cell.pixelColor(kX + x, kY + y);
        const int front = Coverage(letter, x, y);
        const int behind = Coverage(letter, x - 1, y - 1);
        if (front == 255) {
          ASSERT_EQ(pixel, c.first) << c.colour;
          ++in_front;
        } else if (front == 0 && behind == 255) {
          ASSERT_EQ(pixel, c.second) << c.colour;
          ++edge;
        } else if (front == 0 && behind == 0) {
          ASSERT_EQ(pixel, kBlack) << c.colour;
        }
      }
    }
    EXPECT_GT(in_front, 15);
    EXPECT_GT(edge, 5);
  }
}

TEST(DrawCell, OnColoursStandInABoxOf11By20InTheSecondColour) {
  struct Case {
    char colour;
    QColor first;
    QColor second;
  };
  const QImage letter = Cell('H', 'A', 'A');
  for (const Case& c : {Case{'J', kRed, kGreen}, Case{'K', kGreen, kRed}}) {
    const QImage cell = Cell('H', 'A', c.colour, kGrey);
    int box = 0;
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 11; ++x) {
        const int front = Coverage(letter, x, y);
        if (front == 255) {
          ASSERT_EQ(cell.pixelColor(kX + x, kY + y), c.first);
        } else if (front == 0) {
          ASSERT_EQ(cell.pixelColor(kX + x, kY + y), c.second);
          ++box;
        }
      }
    }
    EXPECT_GT(box, 100);
    EXPECT_EQ(cell.pixelColor(kX, kY), c.second);
    EXPECT_EQ(cell.pixelColor(kX + 10, kY + 19), c.second);
    EXPECT_EQ(cell.pixelColor(kX + 11, kY + 19), kGrey);
    EXPECT_EQ(cell.pixelColor(kX + 10, kY + 20), kGrey);
    EXPECT_EQ(cell.pixelColor(kX - 1, kY), kGrey);
    EXPECT_EQ(cell.pixelColor(kX, kY - 1), kGrey);
  }
}

TEST(DrawCell, ShadowColoursStandInABoxWithABlackCopyBelowAndToTheRight) {
  struct Case {
    char colour;
    QColor first;
    QColor second;
  };
  const QImage letter = Cell('H', 'C', 'A');
  for (const Case& c : {Case{'L', kRed, kGreen}, Case{'M', kGreen, kRed}, Case{'N', kYellow, kRed},
                        Case{'O', kYellow, kGreen}}) {
    const QImage cell = Cell('H', 'C', c.colour, kGrey);
    int shadow = 0;
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 11; ++x) {
        const QColor pixel = cell.pixelColor(kX + x, kY + y);
        const int front = Coverage(letter, x, y);
        const int behind = Coverage(letter, x - 1, y - 1);
        if (front == 255) {
          ASSERT_EQ(pixel, c.first) << c.colour;
        } else if (front == 0 && behind == 255) {
          ASSERT_EQ(pixel, kBlack) << c.colour;
          ++shadow;
        } else if (front == 0 && behind == 0) {
          ASSERT_EQ(pixel, c.second) << c.colour;
        }
      }
    }
    EXPECT_GT(shadow, 5);
    EXPECT_EQ(cell.pixelColor(kX + 10, kY + 19), c.second);
    EXPECT_EQ(cell.pixelColor(kX + 11, kY + 19), kGrey);
  }
}

TEST(DrawCell, AnyOtherColourLetterBlanksACellOf12By20) {
  for (const char colour : {'Q', 'Z', '9', 'a', '\0'}) {
    const QImage cell = Cell('H', 'A', colour, kGrey);
    for (int y = -2; y < 23; ++y) {
      for (int x = -2; x < 15; ++x) {
        const bool inside = x >= 0 && x < 12 && y >= 0 && y < 20;
        ASSERT_EQ(cell.pixelColor(kX + x, kY + y), inside ? kBlack : kGrey) << x << ',' << y;
      }
    }
  }
}

TEST(DrawCell, ALetterThatIsNoSizeDrawsTheFirstOne) {
  for (const char size : {'@', 'E', 'a', '\0'})
    EXPECT_EQ(Cell('H', size, 'A'), Cell('H', 'A', 'A'));
}

TEST(DrawCell, ABlankCharacterPaintsItsBoxAndNothingElse) {
  for (const char colour : {'A', 'B', 'C', 'D', 'I', 'P'}) {
    QImage empty(30, 30, QImage::Format_RGB32);
    empty.fill(kGrey);
    EXPECT_EQ(Cell(' ', 'A', colour, kGrey), empty) << colour;
  }
  EXPECT_EQ(Cell(' ', 'A', 'J', kGrey).pixelColor(kX + 5, kY + 10), kGreen);
  EXPECT_EQ(Cell(' ', 'A', 'M', kGrey).pixelColor(kX + 5, kY + 10), kRed);
}

TEST(DrawCell, BoldSizesHaveMoreInkAndCompressedOnesLean) {
  const QImage normal = Cell('H', 'A', 'A');
  const QImage compressed = Cell('H', 'B', 'A');
  const QImage normal_bold = Cell('H', 'C', 'A');
  const QImage compressed_bold = Cell('H', 'D', 'A');
  EXPECT_GT(Ink(normal_bold), Ink(normal) * 5 / 4);
  EXPECT_GT(Ink(compressed_bold), Ink(compressed) * 5 / 4);
  EXPECT_NEAR(Middle(normal, 5), Middle(normal, 14), 0.1);
  EXPECT_NEAR(Middle(normal_bold, 5), Middle(normal_bold, 14), 0.1);
  EXPECT_GT(Middle(compressed, 5), Middle(compressed, 14) + 1);
  EXPECT_GT(Middle(compressed_bold, 5), Middle(compressed_bold, 14) + 1);
  EXPECT_EQ(Cell('H', 'x', 'A'), normal);
}

TEST(DrawCell, BytesAreCharactersOfTheCodePage) {
  // Two dots above the letter, in the upper part of the cell.
  const QImage umlaut = Cell('\xC4', 'A', 'A');
  const QImage letter = Cell('A', 'A', 'A');
  EXPECT_GT(Ink(umlaut.copy(kX, kY, 12, 5)), Ink(letter.copy(kX, kY, 12, 5)));
}

TEST(DrawCell, AMarkOfTheCodePageIsSeenInItsOwnCell) {
  const UseCodePage vietnamese(1258);
  const QImage acute = Cell('\xEC', 'A', 'A');
  EXPECT_GT(Ink(acute.copy(kX, kY, 12, 10)), 100) << "above";
  EXPECT_EQ(Ink(acute), Ink(acute.copy(kX, kY, 12, 10))) << "nowhere else";
  const QImage dot_below = Cell('\xF2', 'A', 'A');
  EXPECT_GT(Ink(dot_below.copy(kX, kY + 14, 12, 6)), 100) << "below";
  EXPECT_EQ(Ink(dot_below), Ink(dot_below.copy(kX, kY + 14, 12, 6))) << "nowhere else";
}

TEST(DrawCell, IsSharpOnAHighResolutionScreen) {
  QImage image(60, 60, QImage::Format_RGB32);
  image.setDevicePixelRatio(2);
  image.fill(kGrey);
  {
    QPainter painter(&image);
    DrawCell(painter, 'H', 'A', 'J', kX, kY);
  }
  EXPECT_EQ(image.pixelColor(2 * kX, 2 * kY), kGreen);
  EXPECT_EQ(image.pixelColor(2 * kX + 21, 2 * kY + 39), kGreen);
  EXPECT_EQ(image.pixelColor(2 * kX + 22, 2 * kY + 39), kGrey);
  EXPECT_EQ(image.pixelColor(2 * kX + 21, 2 * kY + 40), kGrey);
  // Twice as fine is more than each pixel doubled.
  const QImage fine = image.copy(2 * kX, 2 * kY, 24, 40);
  const QImage doubled =
      Cell('H', 'A', 'J').copy(kX, kY, 12, 20).scaled(24, 40).convertToFormat(fine.format());
  int differing = 0;
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 22; ++x) differing += fine.pixel(x, y) != doubled.pixel(x, y);
  }
  EXPECT_GT(differing, 20);
  // And the resolution may change back, as a window does that moves to another screen.
  EXPECT_EQ(Cell('H', 'A', 'J').pixelColor(kX + 10, kY + 19), kGreen);
}

class DrawRowTest : public testing::Test {
 protected:
  DrawRowTest() {
    for (const char blink : {'N', 'B', 'N', 'B', 'N', 'N', 'N', 'N'}) {
      row_.Append('H', {'A', 'J', blink});
    }
  }

  QImage Draw(const QRect& exposed, bool blinking_hidden) const {
    QImage image(8 * 12, 20, QImage::Format_RGB32);
    image.fill(kGrey);
    QPainter painter(&image);
    DrawRow(painter, row_, exposed, blinking_hidden);
    return image;
  }

  Brivon1::PageRow row_;
};

TEST_F(DrawRowTest, CharactersStand12PixelsApart) {
  const QImage image = Draw(QRect(0, 0, 96, 20), false);
  const QImage cell = Cell('H', 'A', 'J', kGrey).copy(kX, kY, 12, 20);
  for (int at = 0; at < 8; ++at) EXPECT_EQ(image.copy(at * 12, 0, 12, 20), cell) << at;
}

TEST_F(DrawRowTest, OnlyBlinkingCharactersAreBlankedWhileHidden) {
  const QImage image = Draw(QRect(0, 0, 96, 20), true);
  const QImage cell = Cell('H', 'A', 'J', kGrey).copy(kX, kY, 12, 20);
  QImage blank(12, 20, QImage::Format_RGB32);
  blank.fill(kBlack);
  for (int at = 0; at < 8; ++at) {
    EXPECT_EQ(image.copy(at * 12, 0, 12, 20), at == 1 || at == 3 ? blank : cell) << at;
  }
}

TEST_F(DrawRowTest, OnlyWhatIsExposedIsDrawn) {
  const QImage image = Draw(QRect(36, 0, 12, 20), false);
  EXPECT_EQ(image.pixelColor(36, 0), kGreen);
  EXPECT_EQ(image.pixelColor(0, 0), kGrey);
  EXPECT_EQ(image.pixelColor(72, 0), kGrey);
}

TEST(DrawRow, OfASpanNothingElseIsDrawnWhateverIsExposed) {
  Brivon1::PageRow row;
  for (int at = 0; at < 20; ++at) {
    row.Append(static_cast<char>('a' + at), {'D', 'D', at == 6 ? 'B' : 'N'});
  }
  // Characters 5 to 8 alone, as a row of their own.
  Brivon1::PageRow part;
  for (int at = 5; at < 9; ++at) part.Append(row.Text()[at], row.AttributesAt(at));
  const auto draw = [](const Brivon1::PageRow& drawn, RowSpan span, const QRect& exposed) {
    QImage image(10 * 12, 20, QImage::Format_RGB32);
    image.fill(kGrey);
    QPainter painter(&image);
    painter.setClipRect(exposed);
    DrawRow(painter, drawn, exposed, true, span);
    return image;
  };
  for (const QRect& exposed : {QRect(0, 0, 120, 20), QRect(0, 0, 12, 20), QRect(30, 0, 20, 20)}) {
    EXPECT_EQ(draw(row, {5, 4}, exposed), draw(part, {}, exposed));
  }
  EXPECT_EQ(draw(row, {20, 4}, QRect(0, 0, 120, 20)), draw(Brivon1::PageRow(), {}, QRect()));
}

TEST(DrawRow, APartDrawnAloneLooksAsItDoesInTheWhole) {
  Brivon1::PageRow row;
  for (int at = 0; at < 8; ++at) row.Append('M', {'D', 'D', Brivon1::kSteady});
  const auto draw = [&](const QRect& exposed) {
    QImage image(8 * 12, 20, QImage::Format_RGB32);
    image.fill(kBlack);
    QPainter painter(&image);
    painter.setClipRect(exposed);
    DrawRow(painter, row, exposed, false);
    painter.end();
    return image.copy(exposed);
  };
  const QImage whole = draw(QRect(0, 0, 96, 20));
  for (int x = 0; x + 6 <= 96; ++x) {
    const QRect part(x, 0, 6, 20);
    EXPECT_EQ(draw(part), whole.copy(part)) << x;
  }
}

TEST(DrawCursorLine, IsAWhiteOrBlackLineInFrontOfItsColumn) {
  for (const bool shown : {true, false}) {
    QImage image(60, 20, QImage::Format_RGB32);
    image.fill(kBlue);
    QPainter painter(&image);
    DrawCursorLine(painter, 3, shown);
    for (int y = 0; y < 20; ++y) {
      EXPECT_EQ(image.pixelColor(35, y), kBlue);
      EXPECT_EQ(image.pixelColor(36, y), shown ? QColor(255, 255, 255) : kBlack);
      EXPECT_EQ(image.pixelColor(37, y), kBlue);
    }
  }
}

}  // namespace
