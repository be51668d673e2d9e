#include <QImage>

#include <gtest/gtest.h>

#include "panel_drawing.h"

namespace VirtualPanel {
namespace {

const QColor kRed(255, 0, 0);
const QColor kGreen(0, 255, 0);
const QColor kYellow(255, 255, 0);

// A panel of two rows and 60 dot columns, ten pixels a dot: a frame of 2 dots, rows of 8 with 1
// between.
constexpr QSize kSize(640, 210);

// Where the rows of that panel are.
constexpr QRect kRowOne(20, 20, 600, 80);
constexpr QRect kRowTwo(20, 110, 600, 80);

class DrawingTest : public testing::Test {
 protected:
  void SetRow(int row, QByteArrayView text) {
    picture_.rows.insert(row, {text.toByteArray(), ParseCells(text)});
  }

  // Blinking characters are lit at 0.
  void Draw(qint64 now_ms = 0) {
    image_ = QImage(kSize, QImage::Format_RGB32);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    DrawPanel(&painter, kSize, picture_, now_ms);
  }

  int Count(const QRect& area, const QColor& colour) const {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (image_.pixelColor(x, y) == colour) ++count;
      }
    }
    return count;
  }

  // Cell `index` of a row whose cells are all of normal size.
  static QRect CellOf(const QRect& row, int index) {
    return {row.left() + index * 60, row.top(), 60, row.height()};
  }

  PanelPicture picture_{{1, 2, 60, true}, {}, QDateTime(QDate(2026, 11, 21), QTime(9, 5))};
  QImage image_;
};

TEST_F(DrawingTest, PlacesTheRowsInTheFrame) {
  EXPECT_EQ(SizeInDots(picture_.description), QSizeF(64, 21));
  EXPECT_EQ(RowRect(kSize, picture_.description, 1), QRectF(kRowOne));
  EXPECT_EQ(RowRect(kSize, picture_.description, 2), QRectF(kRowTwo));
  // In a wider place the panel keeps its shape and is centred.
  EXPECT_EQ(RowRect(QSizeF(840, 210), picture_.description, 1), QRectF(kRowOne).translated(100, 0));
}

TEST_F(DrawingTest, ShowsDimBandsWithoutAPage) {
  Draw();
  const QColor band = image_.pixelColor(kRowOne.center());
  EXPECT_EQ(Count(kRowOne, band), 600 * 80);
  EXPECT_EQ(Count(kRowTwo, band), 600 * 80);
  EXPECT_LT(band.value(), 40);
  EXPECT_NE(band, QColor(0, 0, 0));
  EXPECT_EQ(image_.pixelColor(300, 105), QColor(0, 0, 0));
}

TEST_F(DrawingTest, ShowsPlainColoursInTheirRows) {
  SetRow(1, "<CA>HHH");
  SetRow(2, "<CB>H<CC>H");
  Draw();
  EXPECT_GT(Count(kRowOne, kRed), 500);
  EXPECT_EQ(Count(kRowOne, kGreen), 0);
  EXPECT_EQ(Count(kRowTwo, kRed), 0);
  EXPECT_GT(Count(CellOf(kRowTwo, 0), kGreen), 500);
  EXPECT_EQ(Count(CellOf(kRowTwo, 0), kYellow), 0);
  EXPECT_GT(Count(CellOf(kRowTwo, 1), kYellow), 500);
}

TEST_F(DrawingTest, LightsTheBackgroundOfOnColours) {
  SetRow(1, "<CJ>H<CK>H");
  Draw();
  const QRect red_on_green = CellOf(kRowOne, 0);
  EXPECT_EQ(image_.pixelColor(red_on_green.topLeft() + QPoint(2, 2)), kGreen);
  EXPECT_GT(Count(red_on_green, kRed), 500);
  const QRect green_on_red = CellOf(kRowOne, 1);
  EXPECT_EQ(image_.pixelColor(green_on_red.bottomRight() - QPoint(2, 2)), kRed);
  EXPECT_GT(Count(green_on_red, kGreen), 500);
}

TEST_F(DrawingTest, GivesThreeDimensionalColoursAnEdge) {
  struct Case {
    char letter;
    QColor first;
    QColor second;
  };
  for (const Case& colour :
       {Case{'D', kRed, kGreen}, Case{'E', kRed, kYellow}, Case{'F', kGreen, kRed},
        Case{'G', kGreen, kYellow}, Case{'H', kYellow, kRed}, Case{'I', kYellow, kGreen}}) {
    SetRow(1, QByteArray("<C") + colour.letter + ">H");
    Draw();
    EXPECT_GT(Count(kRowOne, colour.first), 500) << colour.letter;
    EXPECT_GT(Count(kRowOne, colour.second), 100) << colour.letter;
    // The leftmost colour of a vertical stroke is the first, the rightmost the second.
    QList<QColor> met;
    for (int x = kRowOne.left(); x < kRowOne.left() + 66; ++x) {
      const QColor pixel = image_.pixelColor(x, kRowOne.top() + 30);
      if (pixel == colour.first || pixel == colour.second) met.append(pixel);
    }
    ASSERT_FALSE(met.isEmpty()) << colour.letter;
    EXPECT_EQ(met.first(), colour.first) << colour.letter;
    EXPECT_EQ(met.last(), colour.second) << colour.letter;
  }
}

TEST_F(DrawingTest, GivesShadowColoursABackgroundAndABlackShadow) {
  struct Case {
    char letter;
    QColor first;
    QColor second;
  };
  for (const Case& colour : {Case{'L', kRed, kGreen}, Case{'M', kGreen, kRed},
                             Case{'N', kYellow, kRed}, Case{'O', kYellow, kGreen}}) {
    SetRow(1, QByteArray("<C") + colour.letter + ">H");
    Draw();
    const QRect cell = CellOf(kRowOne, 0);
    EXPECT_EQ(image_.pixelColor(cell.topLeft() + QPoint(2, 2)), colour.second) << colour.letter;
    EXPECT_GT(Count(cell, colour.first), 500) << colour.letter;
    EXPECT_GT(Count(cell, QColor(0, 0, 0)), 100) << colour.letter;
  }
}

TEST_F(DrawingTest, RunsTheRainbowThroughTheColours) {
  SetRow(1, "<SC><CP>HHHHHHHHHH");
  Draw();
  bool has_red = false;
  bool has_green = false;
  bool has_yellow = false;
  for (int x = kRowOne.left(); x <= kRowOne.right(); ++x) {
    const QColor pixel = image_.pixelColor(x, kRowOne.top() + 30);
    has_red |= pixel.red() > 200 && pixel.green() < 60;
    has_green |= pixel.green() > 200 && pixel.red() < 60;
    has_yellow |= pixel.green() > 200 && pixel.red() > 200;
  }
  EXPECT_TRUE(has_red);
  EXPECT_TRUE(has_green);
  EXPECT_TRUE(has_yellow);
}

TEST_F(DrawingTest, ShowsEverythingRedOnASingleColourPanel) {
  picture_.description.tri_colour = false;
  for (char colour = 'A'; colour <= 'P'; ++colour) {
    SetRow(1, QByteArray("<C") + colour + ">H");
    Draw();
    EXPECT_GT(Count(kRowOne, kRed), 500) << colour;
    for (int x = kRowOne.left(); x <= kRowOne.right(); ++x) {
      ASSERT_LT(image_.pixelColor(x, kRowOne.center().y()).green(), 40) << colour;
    }
  }
}

TEST_F(DrawingTest, DrawsBoldWithMoreLight) {
  SetRow(1, "<SA>H");
  SetRow(2, "<SC>H");
  Draw();
  EXPECT_GT(Count(kRowTwo, kRed), Count(kRowOne, kRed) * 5 / 4);
}

TEST_F(DrawingTest, GivesCompressedCellsFiveDotsAndNormalOnesSix) {
  SetRow(1, "<SA><CJ>  <CK> ");
  SetRow(2, "<SB><CJ>  <CK> ");
  Draw();
  EXPECT_EQ(image_.pixelColor(20 + 118, 60), kGreen);
  EXPECT_EQ(image_.pixelColor(20 + 122, 60), kRed);
  EXPECT_EQ(image_.pixelColor(20 + 98, 150), kGreen);
  EXPECT_EQ(image_.pixelColor(20 + 102, 150), kRed);
  EXPECT_EQ(image_.pixelColor(20 + 148, 150), kRed);
  EXPECT_NE(image_.pixelColor(20 + 152, 150), kRed);
}

TEST_F(DrawingTest, CutsWhatDoesNotFitTheDotColumns) {
  SetRow(1, "<SB><CJ>" + QByteArray(1000, ' '));
  SetRow(2, "<CJ>" + QByteArray(9, ' ') + "<SB>  ");  // 54 + 5 + 1 of 5 dots
  Draw();
  EXPECT_EQ(Count(kRowOne, kGreen), 600 * 80);
  EXPECT_EQ(Count(kRowTwo, kGreen), 600 * 80);
  EXPECT_EQ(Count(image_.rect(), kGreen), 2 * 600 * 80);
}

TEST_F(DrawingTest, BlinksInStep) {
  SetRow(1, "<SE><CJ>H");
  SetRow(2, "<SA><CJ>H");
  for (const qint64 lit : {0, 499, 1000, 1499}) {
    Draw(lit);
    EXPECT_GT(Count(kRowOne, kGreen), 500) << lit;
  }
  for (const qint64 dark : {500, 999, 1500}) {
    Draw(dark);
    EXPECT_EQ(Count(kRowOne, kGreen), 0) << dark;
    EXPECT_GT(Count(kRowTwo, kGreen), 500) << dark;
  }
  EXPECT_TRUE(HasBlinkingCells(picture_));
  picture_.rows.remove(1);
  EXPECT_FALSE(HasBlinkingCells(picture_));
}

TEST_F(DrawingTest, FillsInThePanelsDateAndTime) {
  const StoredRow row{{}, ParseCells("<DD> at <DT> <GA>!")};
  EXPECT_EQ(RowText(row, picture_.clock), QStringLiteral("21 NOV 2026 at 09:05 [A]!"));
  EXPECT_EQ(RowText(row, QDateTime(QDate(2027, 3, 1), QTime(23, 59, 59))),
            QStringLiteral("01 MAR 2027 at 23:59 [A]!"));

  // A date is eleven characters wide, a time five.
  picture_.description.columns = 200;
  SetRow(1, "<SB><CJ><DD><CK> ");
  SetRow(2, "<SB><CJ><DT><CK> ");
  const QSize size(2040, 210);
  image_ = QImage(size, QImage::Format_RGB32);
  QPainter painter(&image_);
  DrawPanel(&painter, size, picture_, 0);
  EXPECT_EQ(image_.pixelColor(20 + 552, 22), kRed);
  EXPECT_EQ(image_.pixelColor(20 + 548, 22), kGreen);
  EXPECT_EQ(image_.pixelColor(20 + 252, 112), kRed);
  EXPECT_EQ(image_.pixelColor(20 + 248, 112), kGreen);
}

TEST_F(DrawingTest, DrawsEveryGraphicDifferently) {
  QList<QImage> symbols;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    SetRow(1, QByteArray("<G") + letter + '>');
    SetRow(2, QByteArray(1, letter));
    Draw();
    const QImage symbol = image_.copy(CellOf(kRowOne, 0));
    EXPECT_FALSE(symbols.contains(symbol)) << letter;
    EXPECT_NE(symbol, image_.copy(CellOf(kRowTwo, 0))) << letter;
    symbols.append(symbol);
  }
}

class ScrollingTest : public DrawingTest {
 protected:
  static constexpr qint64 kBegan = 1'000'000'000'000;  // an even number of blinks

  void SetScrolling(int row, QByteArrayView text) {
    picture_.scrolling_lines.insert(row, {{text.toByteArray(), ParseCells(text)}, kBegan});
  }

  // Where on the row of the panel a colour begins and ends, in dots; {-1, -1}: nowhere.
  std::pair<int, int> Extent(const QRect& row, const QColor& colour) const {
    std::pair<int, int> extent{-1, -1};
    for (int dot = 0; dot < 60; ++dot) {
      if (image_.pixelColor(row.left() + dot * 10 + 5, row.top() + 2) != colour) continue;
      if (extent.first < 0) extent.first = dot;
      extent.second = dot + 1;
    }
    return extent;
  }

  using Dots = std::pair<int, int>;
};

TEST_F(ScrollingTest, ComesInAtTheRightEdgeAndGoesOutAtTheLeft) {
  // Two blanks of 6 dots on green, then one of 6 on red: 18 dots, on 60 columns.
  SetScrolling(2, "<CJ>  <CK> ");
  picture_.scroll_speed = 10;
  const auto after = [&](qint64 ms) {
    Draw(kBegan + ms);
    return std::pair(Extent(kRowTwo, kGreen), Extent(kRowTwo, kRed));
  };
  const Dots none(-1, -1);
  EXPECT_EQ(after(0), std::pair(none, none));
  EXPECT_EQ(after(99), std::pair(none, none));
  EXPECT_EQ(after(100), std::pair(Dots(59, 60), none));
  EXPECT_EQ(after(1250), std::pair(Dots(48, 60), none));
  EXPECT_EQ(after(1500), std::pair(Dots(45, 57), Dots(57, 60)));
  EXPECT_EQ(after(3000), std::pair(Dots(30, 42), Dots(42, 48)));
  EXPECT_EQ(after(6000), std::pair(Dots(0, 12), Dots(12, 18)));
  EXPECT_EQ(after(6700), std::pair(Dots(0, 5), Dots(5, 11)));
  EXPECT_EQ(after(7700), std::pair(none, Dots(0, 1)));
  EXPECT_EQ(after(7800), std::pair(none, none));
  // And again.
  EXPECT_EQ(after(7900), std::pair(Dots(59, 60), none));
  EXPECT_EQ(after(78'000 + 3000), std::pair(Dots(30, 42), Dots(42, 48)));
  // Nothing of it is anywhere else.
  EXPECT_EQ(Count(image_.rect(), kGreen), Count(kRowTwo, kGreen));
}

TEST_F(ScrollingTest, MovesAtItsSpeed) {
  SetScrolling(1, "<CJ> ");
  for (const int speed : {1, 7, 30, 59}) {
    picture_.scroll_speed = speed;
    Draw(kBegan + 1000);
    EXPECT_EQ(Extent(kRowOne, kGreen), (Dots(60 - speed, qMin(66 - speed, 60)))) << speed;
  }
  picture_.scroll_speed = 1000;
  EXPECT_EQ(ScrolledDots(picture_.scrolling_lines[1], picture_, kBegan + 65), 65);
  EXPECT_EQ(ScrolledDots(picture_.scrolling_lines[1], picture_, kBegan + 66), 0);
  // A hundred years later, and after the machine's clock was set back.
  EXPECT_EQ(ScrolledDots(picture_.scrolling_lines[1], picture_, kBegan + 66 * 50'000'000'000 + 1),
            1);
  EXPECT_EQ(ScrolledDots(picture_.scrolling_lines[1], picture_, kBegan - 1), 65);
}

TEST_F(ScrollingTest, TellsWhenItHasMovedOn) {
  SetScrolling(1, "text");
  for (const int speed : {1, 3, 7, 30, 60, 999, 1000}) {
    picture_.scroll_speed = speed;
    const ScrollingLine& line = picture_.scrolling_lines[1];
    qint64 now_ms = kBegan;
    for (int step = 1; step <= 60; ++step) {
      const qint64 wait = MsToNextDot(line, picture_, now_ms);
      ASSERT_EQ(ScrolledDots(line, picture_, now_ms + wait - 1), step - 1) << speed;
      ASSERT_EQ(ScrolledDots(line, picture_, now_ms + wait), step) << speed;
      now_ms += wait;
    }
    EXPECT_EQ(now_ms, kBegan + (60'000 + speed - 1) / speed);
  }
}

TEST_F(ScrollingTest, TakesThePlaceOfItsRowAlone) {
  SetRow(1, "<CJ>          ");
  SetRow(2, "<CK>          ");
  SetScrolling(2, "<CB>H");
  Draw(kBegan);
  EXPECT_EQ(Count(kRowOne, kGreen), 600 * 80);
  EXPECT_EQ(Count(kRowTwo, kRed), 0);
  Draw(kBegan + 1000);
  EXPECT_GT(Count(kRowTwo, kGreen), 500);
  EXPECT_EQ(Count(kRowTwo, kRed), 0);
}

TEST_F(ScrollingTest, KeepsColourSizeAndBlinking) {
  picture_.scroll_speed = 60;
  SetScrolling(1, "<SE><CK> <SB><CJ> <SA><CK> ");
  const auto at = [&](int dot) {
    return image_.pixelColor(kRowOne.left() + dot * 10 + 5, kRowOne.top() + 2);
  };
  const QColor band = [&] {
    Draw(kBegan);
    return at(0);
  }();
  Draw(kBegan + 1000);  // lit
  EXPECT_EQ(at(5), kRed);
  EXPECT_EQ(at(6), kGreen);
  EXPECT_EQ(at(10), kGreen);
  EXPECT_EQ(at(11), kRed);
  EXPECT_EQ(at(16), kRed);
  EXPECT_EQ(at(17), band);
  Draw(kBegan + 500);  // dark, half way
  EXPECT_EQ(at(30), band);
  EXPECT_EQ(at(35), band);
  EXPECT_EQ(at(36), kGreen);
  EXPECT_EQ(at(41), kRed);
  EXPECT_TRUE(HasBlinkingCells(picture_));
  // What blinks under a scrolling text is not seen.
  SetRow(1, "<SE>x");
  SetScrolling(1, "<SA>steady");
  EXPECT_FALSE(HasBlinkingCells(picture_));
}

TEST_F(ScrollingTest, IsWiderByADateAndATime) {
  picture_.scroll_speed = 1;
  SetScrolling(1, "<SB><DD><SA><DT>");
  const ScrollingLine& line = picture_.scrolling_lines[1];
  EXPECT_EQ(ScrolledDots(line, picture_, kBegan + 144'000), 144);  // 60 + 11 x 5 + 5 x 6 = 145
  EXPECT_EQ(ScrolledDots(line, picture_, kBegan + 145'000), 0);
}

TEST_F(ScrollingTest, DrawsOnlyWhatAClipShows) {
  SetRow(1, "<CJ>          ");
  SetRow(2, "<CJ>          ");
  image_ = QImage(kSize, QImage::Format_RGB32);
  image_.fill(Qt::white);
  QPainter painter(&image_);
  painter.setClipRect(kRowTwo.adjusted(100, 10, -100, -10));
  DrawPanel(&painter, kSize, picture_, 0);
  EXPECT_EQ(Count(image_.rect(), kGreen), 400 * 60);
  EXPECT_EQ(Count(image_.rect(), Qt::white), 640 * 210 - 400 * 60);
}

TEST_F(ScrollingTest, DrawsAnyText) {
  QByteArray bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  SetScrolling(1, bytes.repeated(200));
  SetScrolling(2, "<SA><CA>");  // nothing to see
  picture_.scroll_speed = 1000;
  for (qint64 ms = 0; ms < 400'000; ms += 9973) {
    Draw(kBegan + ms);
    EXPECT_EQ(image_.pixelColor(300, 105), QColor(0, 0, 0)) << ms;
    EXPECT_EQ(Count(kRowTwo, kRed), 0);
  }
}

TEST_F(DrawingTest, DrawsAnyBytes) {
  QByteArray bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  for (qsizetype begin = 0; begin < 256; begin += 8) {
    SetRow(1, bytes.mid(begin, 8));
    SetRow(2, "<C" + bytes.mid(begin, 1) + "><G" + bytes.mid(begin, 1) + ">x");
    Draw();
    EXPECT_EQ(image_.pixelColor(300, 105), QColor(0, 0, 0)) << begin;
  }
  // Control characters are blanks.
  SetRow(1, QByteArrayView("\x01\x1F\x7F\x81", 4));
  Draw();
  EXPECT_EQ(Count(kRowOne, kRed), 0);
}

}  // namespace
}  // namespace VirtualPanel
