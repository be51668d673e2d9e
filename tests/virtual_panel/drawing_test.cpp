#include <QDir>
#include <QImage>

#include <gtest/gtest.h>

#include "led_of.h"
#include "panel_drawing.h"

namespace VirtualPanel {
namespace {

// A panel of two rows and 60 dot columns, ten pixels a dot: a frame of 2 dots, rows of 8 with 1
// between.
constexpr int kColumns = 60;
constexpr int kPitch = 10;
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

  // The LED at a dot of a row: column and height counted from 0.
  Led At(const QRect& row, int column, int height) const {
    return LedOf(image_.pixelColor(row.left() + column * kPitch + kPitch / 2,
                                   row.top() + height * kPitch + kPitch / 2));
  }

  // How many dots of a row have an LED of this colour, from one column to before another.
  int Count(const QRect& row, Led led, int first = 0, int last = kColumns) const {
    int count = 0;
    for (int column = first; column < last; ++column) {
      for (int height = 0; height < 8; ++height) {
        if (At(row, column, height) == led) ++count;
      }
    }
    return count;
  }

  // Whether there is amber in the frame at the right of a row.
  bool IsMarkedAsCut(const QRect& row) const {
    for (int y = row.top(); y <= row.bottom(); ++y) {
      for (int x = row.right() + 1; x < kSize.width(); ++x) {
        if (LedOf(image_.pixelColor(x, y)) == Led::kYellow) return true;
      }
    }
    return false;
  }

  PanelPicture picture_{{1, 2, kColumns, true}, {}, QDateTime(QDate(2026, 11, 21), QTime(9, 5))};
  QImage image_;
};

TEST_F(DrawingTest, PlacesTheRowsInTheFrame) {
  EXPECT_EQ(SizeInDots(picture_.description), QSizeF(64, 21));
  EXPECT_EQ(RowRect(kSize, picture_.description, 1), QRectF(kRowOne));
  EXPECT_EQ(RowRect(kSize, picture_.description, 2), QRectF(kRowTwo));
  // In a wider place the panel keeps its shape and is centred.
  EXPECT_EQ(RowRect(QSizeF(840, 210), picture_.description, 1), QRectF(kRowOne).translated(100, 0));
}

TEST_F(DrawingTest, GivesEachDotAWholeNumberOfPixels) {
  EXPECT_EQ(DotDistance(kSize, picture_.description), 10);
  EXPECT_EQ(DotDistance(QSizeF(703, 230), picture_.description), 10);
  EXPECT_EQ(RowRect(QSizeF(703, 230), picture_.description, 1), QRectF(kRowOne).translated(31, 10));
  EXPECT_EQ(DotDistance(QSizeF(703, 300), picture_.description), 10);
  EXPECT_EQ(DotDistance(QSizeF(704, 300), picture_.description), 11);
  // On a screen of two pixels for each unit a dot may have half a unit more.
  EXPECT_EQ(DotDistance(QSizeF(703, 230), picture_.description, 2), 10.5);
  // Where there is no room for a pixel each, the panel is as large as the place.
  EXPECT_EQ(DotDistance(QSizeF(32, 210), picture_.description), 0.5);
}

TEST_F(DrawingTest, ShowsDimDotsWithoutAPage) {
  Draw();
  EXPECT_EQ(Count(kRowOne, Led::kDark), 60 * 8);
  EXPECT_EQ(Count(kRowTwo, Led::kDark), 60 * 8);
  // Each is round, with darkness around it.
  EXPECT_LT(image_.pixelColor(kRowOne.topLeft()).value(), 30);
  EXPECT_EQ(image_.pixelColor(300, 105), QColor(0, 0, 0));
}

TEST_F(DrawingTest, ShowsPlainColoursInTheirRows) {
  SetRow(1, "<CA>HHH");
  SetRow(2, "<CB>H<CC>H");
  Draw();
  // An H has two strokes of seven dots and three between them.
  EXPECT_EQ(Count(kRowOne, Led::kRed), 3 * 17);
  EXPECT_EQ(Count(kRowOne, Led::kGreen), 0);
  EXPECT_EQ(Count(kRowTwo, Led::kRed), 0);
  EXPECT_EQ(Count(kRowTwo, Led::kGreen, 0, 6), 17);
  EXPECT_EQ(Count(kRowTwo, Led::kYellow, 0, 6), 0);
  EXPECT_EQ(Count(kRowTwo, Led::kYellow, 6, 12), 17);
}

TEST_F(DrawingTest, LightsTheBackgroundOfOnColours) {
  SetRow(1, "<CJ>H<CK>H");
  Draw();
  EXPECT_EQ(At(kRowOne, 5, 0), Led::kGreen);
  EXPECT_EQ(Count(kRowOne, Led::kRed, 0, 6), 17);
  EXPECT_EQ(Count(kRowOne, Led::kGreen, 0, 6), 6 * 8 - 17);
  EXPECT_EQ(At(kRowOne, 11, 7), Led::kRed);
  EXPECT_EQ(Count(kRowOne, Led::kGreen, 6, 12), 17);
  EXPECT_EQ(Count(kRowOne, Led::kRed, 6, 12), 6 * 8 - 17);
}

TEST_F(DrawingTest, GivesThreeDimensionalColoursAnEdge) {
  struct Case {
    char letter;
    Led first;
    Led second;
  };
  for (const Case& colour :
       {Case{'D', Led::kRed, Led::kGreen}, Case{'E', Led::kRed, Led::kYellow},
        Case{'F', Led::kGreen, Led::kRed}, Case{'G', Led::kGreen, Led::kYellow},
        Case{'H', Led::kYellow, Led::kRed}, Case{'I', Led::kYellow, Led::kGreen}}) {
    SetRow(1, QByteArray("<C") + colour.letter + ">H");
    Draw();
    EXPECT_EQ(Count(kRowOne, colour.first), 17) << colour.letter;
    EXPECT_GT(Count(kRowOne, colour.second), 10) << colour.letter;
    // The leftmost colour of a vertical stroke is the first, the rightmost the second.
    QList<Led> met;
    for (int column = 0; column < 6; ++column) {
      const Led led = At(kRowOne, column, 2);
      if (led == colour.first || led == colour.second) met.append(led);
    }
    ASSERT_FALSE(met.isEmpty()) << colour.letter;
    EXPECT_EQ(met.first(), colour.first) << colour.letter;
    EXPECT_EQ(met.last(), colour.second) << colour.letter;
    // Below the lowest dots of the strokes there is an edge, too.
    EXPECT_EQ(At(kRowOne, 1, 7), colour.second) << colour.letter;
  }
}

TEST_F(DrawingTest, GivesShadowColoursABackgroundAndADarkShadow) {
  struct Case {
    char letter;
    Led first;
    Led second;
  };
  for (const Case& colour :
       {Case{'L', Led::kRed, Led::kGreen}, Case{'M', Led::kGreen, Led::kRed},
        Case{'N', Led::kYellow, Led::kRed}, Case{'O', Led::kYellow, Led::kGreen}}) {
    SetRow(1, QByteArray("<C") + colour.letter + ">H");
    Draw();
    EXPECT_EQ(At(kRowOne, 5, 0), colour.second) << colour.letter;
    EXPECT_EQ(Count(kRowOne, colour.first), 17) << colour.letter;
    EXPECT_GT(Count(kRowOne, Led::kDark, 0, 6), 10) << colour.letter;
  }
}

TEST_F(DrawingTest, RunsTheRainbowThroughTheColours) {
  SetRow(1, "<SC><CP>HHHHHHHHHH");
  Draw();
  EXPECT_GT(Count(kRowOne, Led::kRed), 50);
  EXPECT_GT(Count(kRowOne, Led::kGreen), 50);
  EXPECT_GT(Count(kRowOne, Led::kYellow), 50);
}

TEST_F(DrawingTest, ShowsEverythingRedOnASingleColourPanel) {
  picture_.description.tri_colour = false;
  for (char colour = 'A'; colour <= 'P'; ++colour) {
    SetRow(1, QByteArray("<C") + colour + ">H");
    Draw();
    EXPECT_EQ(Count(kRowOne, Led::kRed), 17) << colour;
    EXPECT_EQ(Count(kRowOne, Led::kDark), 60 * 8 - 17) << colour;
  }
}

TEST_F(DrawingTest, DrawsBoldWithMoreLight) {
  SetRow(1, "<SA>H");
  SetRow(2, "<SC>H");
  Draw();
  EXPECT_GT(Count(kRowTwo, Led::kRed), Count(kRowOne, Led::kRed) * 5 / 4);
}

TEST_F(DrawingTest, GivesCompressedCellsFiveDotsAndNormalOnesSix) {
  SetRow(1, "<SA><CJ>  <CK> ");
  SetRow(2, "<SB><CJ>  <CK> ");
  Draw();
  EXPECT_EQ(At(kRowOne, 11, 4), Led::kGreen);
  EXPECT_EQ(At(kRowOne, 12, 4), Led::kRed);
  EXPECT_EQ(At(kRowTwo, 9, 4), Led::kGreen);
  EXPECT_EQ(At(kRowTwo, 10, 4), Led::kRed);
  EXPECT_EQ(At(kRowTwo, 14, 4), Led::kRed);
  EXPECT_EQ(At(kRowTwo, 15, 4), Led::kDark);
}

TEST_F(DrawingTest, CutsWhatDoesNotFitTheDotColumnsAndMarksTheCut) {
  SetRow(1, "<SB><CJ>" + QByteArray(1000, ' '));
  SetRow(2, "<CJ>" + QByteArray(9, ' ') + "<SB>  ");  // 54 + 5 + 1 of 5 dots
  Draw();
  EXPECT_EQ(Count(kRowOne, Led::kGreen), 60 * 8);
  EXPECT_EQ(Count(kRowTwo, Led::kGreen), 60 * 8);
  // Nothing is lit outside of the rows.
  int green = 0;
  for (int y = 0; y < kSize.height(); ++y) {
    for (int x = 0; x < kSize.width(); ++x) {
      const bool is_inside = kRowOne.contains(x, y) || kRowTwo.contains(x, y);
      if (!is_inside && LedOf(image_.pixelColor(x, y)) == Led::kGreen) ++green;
    }
  }
  EXPECT_EQ(green, 0);
  EXPECT_TRUE(IsMarkedAsCut(kRowOne));
  EXPECT_TRUE(IsMarkedAsCut(kRowTwo));
  SetRow(2, QByteArray(10, 'H'));
  Draw();
  EXPECT_TRUE(IsMarkedAsCut(kRowOne));
  EXPECT_FALSE(IsMarkedAsCut(kRowTwo));
}

TEST_F(DrawingTest, BlinksInStep) {
  SetRow(1, "<SE><CJ>H");
  SetRow(2, "<SA><CJ>H");
  for (const qint64 lit : {0, 499, 1000, 1499}) {
    Draw(lit);
    EXPECT_GT(Count(kRowOne, Led::kGreen), 20) << lit;
  }
  for (const qint64 dark : {500, 999, 1500}) {
    Draw(dark);
    EXPECT_EQ(Count(kRowOne, Led::kDark), 60 * 8) << dark;
    EXPECT_GT(Count(kRowTwo, Led::kGreen), 20) << dark;
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
  SetRow(1, "<SB><CJ><DD><CK> ");
  SetRow(2, "<SB><CJ><DT><CK> ");
  Draw();
  EXPECT_EQ(At(kRowOne, 54, 7), Led::kGreen);
  EXPECT_EQ(At(kRowOne, 55, 7), Led::kRed);
  EXPECT_EQ(At(kRowTwo, 24, 7), Led::kGreen);
  EXPECT_EQ(At(kRowTwo, 25, 7), Led::kRed);
}

TEST_F(DrawingTest, DrawsEveryGraphicDifferently) {
  QList<QImage> symbols;
  const auto cell = [this](const QRect& row) {
    return image_.copy(row.left(), row.top(), 6 * kPitch, row.height());
  };
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    SetRow(1, QByteArray("<G") + letter + '>');
    SetRow(2, QByteArray(1, letter));
    Draw();
    const QImage symbol = cell(kRowOne);
    EXPECT_FALSE(symbols.contains(symbol)) << letter;
    EXPECT_NE(symbol, cell(kRowTwo)) << letter;
    symbols.append(symbol);
  }
}

TEST_F(DrawingTest, DrawsEachDotAlikeOnAnyScreen) {
  SetRow(1, "<CJ>          ");
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    const QSizeF size(331, 123);
    image_ = QImage((size * ratio).toSize() * 2, QImage::Format_RGB32);
    image_.setDevicePixelRatio(ratio);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    painter.translate(10.3, 7.7);  // between two pixels
    DrawPanel(&painter, size, picture_, 0);
    const int pitch = qRound(DotDistance(size, picture_.description, ratio) * ratio);
    EXPECT_EQ(pitch, static_cast<int>(331 * ratio / 64)) << ratio;
    const QPointF row =
        RowRect(size, picture_.description, 1, ratio).topLeft() + QPointF(10.3, 7.7);
    const QPoint corner = (row * ratio).toPoint();
    const QImage first = image_.copy(corner.x(), corner.y(), pitch, pitch);
    EXPECT_EQ(LedOf(first.pixelColor(pitch / 2, pitch / 2)), Led::kGreen) << ratio;
    for (int column = 0; column < kColumns; ++column) {
      for (int height = 0; height < 8; ++height) {
        ASSERT_EQ(
            image_.copy(corner.x() + column * pitch, corner.y() + height * pitch, pitch, pitch),
            first)
            << ratio << ' ' << column << ' ' << height;
      }
    }
  }
}

TEST_F(DrawingTest, DrawsIntoAnySize) {
  SetRow(1, "<CJ>          ");
  for (const QSizeF& size : {QSizeF(0, 0), QSizeF(0, 100), QSizeF(100, 0), QSizeF(-5, 10)}) {
    image_ = QImage(100, 100, QImage::Format_RGB32);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    DrawPanel(&painter, size, picture_, 0);
    QImage untouched(100, 100, QImage::Format_RGB32);
    untouched.fill(Qt::white);
    EXPECT_EQ(image_, untouched) << size.width() << 'x' << size.height();
  }
  for (const QSizeF& size : {QSizeF(2, 2), QSizeF(7, 2), QSizeF(31.5, 90), QSizeF(63, 20.9)}) {
    image_ = QImage(100, 100, QImage::Format_RGB32);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    DrawPanel(&painter, size, picture_, 0);
    QImage untouched(100, 100, QImage::Format_RGB32);
    untouched.fill(Qt::white);
    EXPECT_NE(image_, untouched) << size.width();
    EXPECT_EQ(image_.pixelColor(64, 21), QColor(Qt::white)) << size.width();
  }
}

TEST_F(DrawingTest, DrawsTheLargestPanel) {
  picture_.description = {1, 12, 3000, true};
  for (int row = 1; row <= 12; ++row) SetRow(row, "<SA><CB>" + QByteArray(500, 'H'));
  // Smaller than its dots: what is lit can still be seen.
  image_ = QImage(300, 40, QImage::Format_RGB32);
  image_.fill(Qt::white);
  {
    QPainter painter(&image_);
    DrawPanel(&painter, image_.size(), picture_, 0);
  }
  const QColor middle = image_.pixelColor(150, 20);
  EXPECT_GT(middle.green(), middle.red());
  // The last character at its right end.
  image_ = QImage(6008, 222, QImage::Format_RGB32);
  {
    QPainter painter(&image_);
    DrawPanel(&painter, image_.size(), picture_, 0);
  }
  EXPECT_EQ(LedOf(image_.pixelColor(4 + 2 * 2994, 4)), Led::kGreen);
  EXPECT_EQ(LedOf(image_.pixelColor(4 + 2 * 2998, 4 + 2 * (11 * 9 + 6))), Led::kGreen);
  EXPECT_EQ(LedOf(image_.pixelColor(4 + 2 * 2999, 4)), Led::kDark);
}

class ScrollingTest : public DrawingTest {
 protected:
  static constexpr qint64 kBegan = 1'000'000'000'000;  // an even number of blinks

  void SetScrolling(int row, QByteArrayView text) {
    picture_.scrolling_lines.insert(row, {{text.toByteArray(), ParseCells(text)}, kBegan});
  }

  // Where on the row of the panel a colour begins and ends, in dots; {-1, -1}: nowhere.
  std::pair<int, int> Extent(const QRect& row, Led led) const {
    std::pair<int, int> extent{-1, -1};
    for (int dot = 0; dot < kColumns; ++dot) {
      if (At(row, dot, 0) != led) continue;
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
    return std::pair(Extent(kRowTwo, Led::kGreen), Extent(kRowTwo, Led::kRed));
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
  // Nothing of it is in the other row.
  EXPECT_EQ(Count(kRowOne, Led::kDark), 60 * 8);
}

TEST_F(ScrollingTest, MovesAtItsSpeed) {
  SetScrolling(1, "<CJ> ");
  for (const int speed : {1, 7, 30, 59}) {
    picture_.scroll_speed = speed;
    Draw(kBegan + 1000);
    EXPECT_EQ(Extent(kRowOne, Led::kGreen), (Dots(60 - speed, qMin(66 - speed, 60)))) << speed;
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
  EXPECT_EQ(Count(kRowOne, Led::kGreen), 60 * 8);
  EXPECT_EQ(Count(kRowTwo, Led::kRed), 0);
  Draw(kBegan + 1000);
  EXPECT_EQ(Count(kRowTwo, Led::kGreen), 17);
  EXPECT_EQ(Count(kRowTwo, Led::kRed), 0);
}

TEST_F(ScrollingTest, KeepsColourSizeAndBlinking) {
  picture_.scroll_speed = 60;
  SetScrolling(1, "<SE><CK> <SB><CJ> <SA><CK> ");
  const auto at = [&](int dot) { return At(kRowOne, dot, 0); };
  Draw(kBegan + 1000);  // lit
  EXPECT_EQ(at(5), Led::kRed);
  EXPECT_EQ(at(6), Led::kGreen);
  EXPECT_EQ(at(10), Led::kGreen);
  EXPECT_EQ(at(11), Led::kRed);
  EXPECT_EQ(at(16), Led::kRed);
  EXPECT_EQ(at(17), Led::kDark);
  Draw(kBegan + 500);  // dark, half way
  EXPECT_EQ(at(30), Led::kDark);
  EXPECT_EQ(at(35), Led::kDark);
  EXPECT_EQ(at(36), Led::kGreen);
  EXPECT_EQ(at(41), Led::kRed);
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
  SetRow(1, "<CJ>ABCDEFGHIJKL");
  SetRow(2, "<CJ>ABCDEFGHIJKL");
  Draw();
  const QImage whole = image_;
  // Also in the middle of a dot, in one row, across both, and in the frame alone.
  for (const QRect& clip : {kRowTwo, kRowTwo.adjusted(103, 14, -97, -13), QRect(57, 33, 400, 101),
                            QRect(0, 0, 15, 210), QRect(615, 100, 20, 90), QRect(0, 0, 640, 210)}) {
    image_ = QImage(kSize, QImage::Format_RGB32);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    painter.setClipRect(clip);
    DrawPanel(&painter, kSize, picture_, 0);
    painter.end();
    EXPECT_EQ(image_.copy(clip), whole.copy(clip)) << clip.left() << ' ' << clip.top();
    for (int y = 0; y < kSize.height(); ++y) {
      for (int x = 0; x < kSize.width(); ++x) {
        if (clip.contains(x, y)) continue;
        ASSERT_EQ(image_.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
      }
    }
  }
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
    EXPECT_EQ(Count(kRowTwo, Led::kDark), 60 * 8);
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
  EXPECT_EQ(Count(kRowOne, Led::kDark), 60 * 8);
}

// ---- whole pictures, against ones that were looked at -------------------------------------------

class PictureTest : public DrawingTest {
 protected:
  void Draw(int pitch, qint64 now_ms = 0, double ratio = 1) {
    const QSizeF size = SizeInDots(picture_.description) * pitch;
    image_ = QImage((size * ratio).toSize(), QImage::Format_RGB32);
    image_.setDevicePixelRatio(ratio);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    DrawPanel(&painter, size, picture_, now_ms);
  }

  // No pixel may be much brighter or darker than in the picture of that name. With
  // VIRTUAL_PANEL_WRITE_PICTURES in the environment the picture is made anew instead: look at it.
  void ExpectPicture(const char* name) {
    const QString path = QDir(QStringLiteral(VIRTUAL_PANEL_PICTURES)).filePath(QLatin1String(name));
    if (qEnvironmentVariableIsSet("VIRTUAL_PANEL_WRITE_PICTURES")) {
      ASSERT_TRUE(image_.save(path)) << name;
      GTEST_SKIP() << name << " was written";
    }
    const QImage expected = QImage(path).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image_.size(), expected.size()) << name;
    constexpr int kTolerance = 24;
    int wrong = 0;
    for (int y = 0; y < expected.height(); ++y) {
      for (int x = 0; x < expected.width(); ++x) {
        const QColor one = image_.pixelColor(x, y);
        const QColor other = expected.pixelColor(x, y);
        if (qAbs(one.red() - other.red()) > kTolerance ||
            qAbs(one.green() - other.green()) > kTolerance ||
            qAbs(one.blue() - other.blue()) > kTolerance) {
          ++wrong;
        }
      }
    }
    if (wrong > 0) {
      const QString actual = QDir::temp().filePath(QLatin1String(name));
      image_.save(actual);
      ADD_FAILURE() << wrong << " pixels differ, see " << actual.toStdString();
    }
  }
};

TEST_F(PictureTest, AllColours) {
  picture_.description = {1, 8, 96, true};
  SetRow(1, "<CA>Red <CB>Gre <CC>Yell");
  SetRow(2, "<CD>3D <CE>3D <CF>3D<CG> 3D");
  SetRow(3, "<CH>3D <CI>3D <CJ>On<CK> On ");
  SetRow(4, "<CL>Shadow<CM> Shadow");
  SetRow(5, "<CN>Shadow<CO> Shadow");
  SetRow(6, "<CP>Rainbow Rainbow");
  SetRow(7, "<SB><CB>Compressed <SD>Bold");
  SetRow(8, "<SC><CC>Bold <SA><CA><GA><GB><GP><GT><GZ> <SG>no");
  Draw(4);
  ExpectPicture("all_colours.png");
}

TEST_F(PictureTest, ASingleColourPanelWithACutRowInItsDarkHalf) {
  picture_.description = {1, 2, 48, false};
  SetRow(1, "<CJ>Too long.");
  SetRow(2, "<CB>Dark <SE>half");
  Draw(6, 700);
  ExpectPicture("single_colour_cut.png");
}

TEST_F(PictureTest, AScreenOfTwoPixels) {
  picture_.description = {1, 2, 48, true};
  SetRow(1, "<SC><CB>Drive");
  SetRow(2, "<CD>safely!");
  Draw(4, 0, 2);
  ExpectPicture("two_pixels.png");
}

TEST_F(PictureTest, SmallDots) {
  picture_.description = {1, 2, 96, true};
  SetRow(1, "<SC><CB>Drive <CD>safely!");
  SetRow(2, "<CC><DD> <DT>");
  Draw(2);
  ExpectPicture("small_dots.png");
}

TEST_F(PictureTest, APageHalfOnItsWayIn) {
  picture_.description = {1, 2, 48, true};
  SetRow(1, "<CA>Before");
  SetRow(2, "<CA>Before");
  Entrance entrance{DotsOf(picture_, 0), 'C', 10'000};
  SetRow(1, "<CB>Open..");
  SetRow(2, "<CJ>Open it!");
  picture_.entrance = entrance;
  Draw(5, 10'000 + kEntranceMs / 2);
  ExpectPicture("entering.png");
}

}  // namespace
}  // namespace VirtualPanel
