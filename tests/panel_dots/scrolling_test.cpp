// Texts that scroll.

#include "drawing_fixture.h"

namespace PanelDots {
namespace {

class ScrollingTest : public DrawingTest {
 protected:
  static constexpr qint64 kBegan = 1'000'000'000'000;  // an even number of blinks

  void SetScrolling(int row, QByteArrayView text) {
    picture_.scrolling_texts.insert(row, {ParseCells(text), kBegan});
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
  EXPECT_EQ(ScrolledDots(picture_.scrolling_texts[1], picture_, kBegan + 65), 65);
  EXPECT_EQ(ScrolledDots(picture_.scrolling_texts[1], picture_, kBegan + 66), 0);
  // A hundred years later, and after the machine's clock was set back.
  EXPECT_EQ(ScrolledDots(picture_.scrolling_texts[1], picture_, kBegan + 66 * 50'000'000'000 + 1),
            1);
  EXPECT_EQ(ScrolledDots(picture_.scrolling_texts[1], picture_, kBegan - 1), 65);
}

TEST_F(ScrollingTest, TellsWhenItHasMovedOn) {
  SetScrolling(1, "text");
  for (const int speed : {1, 3, 7, 30, 60, 999, 1000}) {
    picture_.scroll_speed = speed;
    const ScrollingText& text = picture_.scrolling_texts[1];
    qint64 now_ms = kBegan;
    for (int step = 1; step <= 60; ++step) {
      const qint64 wait = MsToNextDot(text, picture_, now_ms);
      ASSERT_EQ(ScrolledDots(text, picture_, now_ms + wait - 1), step - 1) << speed;
      ASSERT_EQ(ScrolledDots(text, picture_, now_ms + wait), step) << speed;
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
  const ScrollingText& text = picture_.scrolling_texts[1];
  EXPECT_EQ(ScrolledDots(text, picture_, kBegan + 144'000), 144);  // 60 + 11 x 5 + 5 x 6 = 145
  EXPECT_EQ(ScrolledDots(text, picture_, kBegan + 145'000), 0);
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

}  // namespace
}  // namespace PanelDots
