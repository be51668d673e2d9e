// A panel of two rows, drawn into an image.
#pragma once

#include <QImage>

#include <gtest/gtest.h>

#include "panel_dots/panel_drawing.h"
#include "support/led_of.h"

namespace PanelDots {

// A panel of two rows and 60 dot columns, ten pixels a dot: a frame of 2 dots, rows of 8 with 1
// between.
inline constexpr int kColumns = 60;
inline constexpr int kPitch = 10;
inline constexpr QSize kSize(640, 210);

// Where the rows of that panel are.
inline constexpr QRect kRowOne(20, 20, 600, 80);
inline constexpr QRect kRowTwo(20, 110, 600, 80);

class DrawingTest : public testing::Test {
 protected:
  void SetRow(int row, QByteArrayView text) { picture_.rows.insert(row, ParseCells(text)); }

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

  PanelPicture picture_{{2, kColumns, true}, {}, QDateTime(QDate(2026, 11, 21), QTime(9, 5))};
  QImage image_;
};

}  // namespace PanelDots
