#include "drawing_fixture.h"
#include "panel_dots/dot_painter.h"
#include "panel_dots/panel_drawing.h"

using namespace Qt::StringLiterals;

namespace PanelDots {
namespace {

TEST_F(DrawingTest, PlacesTheRowsInTheFrame) {
  EXPECT_EQ(SizeInDots(picture_.shape), QSizeF(64, 21));
  EXPECT_EQ(RowRect(kSize, picture_.shape, 1), QRectF(kRowOne));
  EXPECT_EQ(RowRect(kSize, picture_.shape, 2), QRectF(kRowTwo));
  // In a wider place the panel keeps its shape and is centred.
  EXPECT_EQ(RowRect(QSizeF(840, 210), picture_.shape, 1), QRectF(kRowOne).translated(100, 0));
}

TEST_F(DrawingTest, GivesEachDotAWholeNumberOfPixels) {
  EXPECT_EQ(DotDistance(kSize, picture_.shape), 10);
  EXPECT_EQ(DotDistance(QSizeF(703, 230), picture_.shape), 10);
  EXPECT_EQ(RowRect(QSizeF(703, 230), picture_.shape, 1), QRectF(kRowOne).translated(31, 10));
  EXPECT_EQ(DotDistance(QSizeF(703, 300), picture_.shape), 10);
  EXPECT_EQ(DotDistance(QSizeF(704, 300), picture_.shape), 11);
  // On a screen of two pixels for each unit a dot may have half a unit more.
  EXPECT_EQ(DotDistance(QSizeF(703, 230), picture_.shape, 2), 10.5);
  // Where there is no room for a pixel each, the panel is as large as the place.
  EXPECT_EQ(DotDistance(QSizeF(32, 210), picture_.shape), 0.5);
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
  picture_.shape.tri_colour = false;
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
  const QList<Cell> row = ParseCells("<DD> at <DT> <GA>!");
  EXPECT_EQ(RowText(row, picture_.clock), u"21 NOV 2026 at 09:05 [A]!"_s);
  EXPECT_EQ(RowText(row, QDateTime(QDate(2027, 3, 1), QTime(23, 59, 59))),
            u"01 MAR 2027 at 23:59 [A]!"_s);

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
    const int pitch = qRound(DotDistance(size, picture_.shape, ratio) * ratio);
    EXPECT_EQ(pitch, static_cast<int>(331 * ratio / 64)) << ratio;
    const QPointF row = RowRect(size, picture_.shape, 1, ratio).topLeft() + QPointF(10.3, 7.7);
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
  for (const PanelShape& shape : {PanelShape{0, 60, true}, PanelShape{2, 0, true}}) {
    image_.fill(Qt::white);
    QPainter painter(&image_);
    DrawPanel(&painter, QSizeF(100, 100), {shape}, 0);
    EXPECT_EQ(image_.pixelColor(50, 50), QColor(Qt::white)) << shape.rows << 'x' << shape.columns;
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

TEST_F(DrawingTest, DotsBesideAnImageLeaveItAsItIs) {
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(Qt::white);
  const QImage untouched = image.copy();
  const DotPainter painter(4);
  for (const QPoint& corner : {QPoint(20, 0), QPoint(-24, 0), QPoint(0, 20), QPoint(0, -24)}) {
    painter.Paint(&image, corner, DotMatrix(6, 6), 0, 6);
    EXPECT_EQ(image, untouched) << corner.x() << ' ' << corner.y();
  }
  painter.Paint(&image, QPoint(0, 0), DotMatrix(6, 6), 0, 6);
  EXPECT_NE(image, untouched);
}

TEST_F(DrawingTest, DrawsTheLargestPanel) {
  picture_.shape = {12, 3000, true};
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

}  // namespace
}  // namespace PanelDots
