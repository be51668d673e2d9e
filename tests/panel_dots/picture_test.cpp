#include <gtest/gtest.h>

#include "panel_dots/panel_picture.h"

namespace PanelDots {
namespace {

class DotsOfTest : public testing::Test {
 protected:
  void SetRow(int row, QByteArrayView text) { picture_.rows.insert(row, ParseCells(text)); }

  void SetScrolling(int row, QByteArrayView text, qint64 began_ms) {
    picture_.scrolling_texts.insert(row, {ParseCells(text), began_ms});
  }

  static bool IsDark(const DotMatrix& dots, int row) {
    for (int y = (row - 1) * kRowDots; y < row * kRowDots; ++y) {
      for (int x = 0; x < dots.Columns(); ++x) {
        if (dots.At(x, y) != kDarkDot) return false;
      }
    }
    return true;
  }

  PanelPicture picture_{{3, 12, true}, {}, QDateTime(QDate(2026, 11, 21), QTime(9, 5))};
};

TEST_F(DotsOfTest, HasEightDotsForEachRow) {
  SetRow(2, "<CB>-");
  const DotMatrix dots = DotsOf(picture_, 0);
  EXPECT_EQ(dots.Columns(), 12);
  EXPECT_EQ(dots.Rows(), 24);
  EXPECT_TRUE(IsDark(dots, 1));
  EXPECT_TRUE(IsDark(dots, 3));
  EXPECT_EQ(dots.At(0, 8 + 3), kGreenDot);
  EXPECT_EQ(dots.At(5, 8 + 3), kDarkDot);
}

TEST_F(DotsOfTest, WorksOutTheRowsThatAreAskedFor) {
  for (int row = 1; row <= 3; ++row) SetRow(row, "<CB>HH");
  SetScrolling(3, "<CA>HH", 0);
  const DotMatrix whole = DotsOf(picture_, 300);
  const DotMatrix middle = DotsOf(picture_, 300, 2, 2);
  const DotMatrix last = DotsOf(picture_, 300, 3, 99);
  for (int x = 0; x < 12; ++x) {
    for (int y = 0; y < 8; ++y) {
      EXPECT_EQ(middle.At(x, 8 + y), whole.At(x, 8 + y));
      EXPECT_EQ(last.At(x, 16 + y), whole.At(x, 16 + y));
    }
  }
}

TEST_F(DotsOfTest, RowsThatThePanelLacksAreNotShown) {
  for (const int row : {-1, 0, 4, 99}) {
    SetRow(row, "<CJ>HH");
    SetScrolling(row, "<CJ>HH", 0);
  }
  EXPECT_EQ(DotsOf(picture_, 300), DotMatrix(12, 24));
  EXPECT_FALSE(IsCut(picture_, 4));
}

TEST_F(DotsOfTest, ARainbowMayBeginLeftOfThePanel) {
  SetScrolling(1, "<CP>HHHH", 0);
  picture_.scroll_speed = 1000;
  // 12 + 24 dots: with 20 of them gone the text begins 8 dots left of the panel.
  const DotMatrix dots = DotsOf(picture_, 20);
  EXPECT_EQ(dots.At(4, 3), kYellowDot);
  EXPECT_EQ(dots.At(8, 3), kGreenDot);
}

// ---- cut rows -----------------------------------------------------------------------------------

TEST_F(DotsOfTest, ARowWithLightBehindTheLastColumnIsCut) {
  const auto is_cut = [this](QByteArrayView text) {
    SetRow(1, text);
    return IsCut(picture_, 1);
  };
  EXPECT_FALSE(is_cut(""));
  EXPECT_FALSE(is_cut("HH"));
  EXPECT_TRUE(is_cut("HHH"));
  EXPECT_TRUE(is_cut("<SB>HHH"));
  EXPECT_TRUE(is_cut("<GA><GB><GC>"));
  EXPECT_TRUE(is_cut("<DT>"));
  EXPECT_TRUE(is_cut("HH<SE>H"));  // also in its dark half
  // What is dark there is not missed.
  EXPECT_FALSE(is_cut("HH        "));
  EXPECT_TRUE(is_cut("HH<CJ> "));
  EXPECT_FALSE(is_cut("HH\xA0\xA0"));
  EXPECT_TRUE(is_cut("HH<CJ>\xA0"));
  picture_.shape.columns = 11;
  EXPECT_FALSE(is_cut("HH"));  // its last column is dark
  EXPECT_TRUE(is_cut("<CJ>HH"));
  picture_.shape.tri_colour = false;
  EXPECT_FALSE(is_cut("<CJ>HH"));
}

TEST_F(DotsOfTest, ATextThatScrollsIsNotCut) {
  SetRow(1, "HHHHHH");
  SetScrolling(1, "HHHHHHHHHH", 0);
  EXPECT_FALSE(IsCut(picture_, 1));
  EXPECT_FALSE(IsCut(picture_, 2));
}

// ---- pages that enter ---------------------------------------------------------------------------

class EnteringTest : public DotsOfTest {
 protected:
  static constexpr qint64 kBegan = 1'000'000;

  void SetUp() override {
    for (int row = 1; row <= 3; ++row) SetRow(row, "<CK>  ");
    before_ = DotsOf(picture_, kBegan);
    for (int row = 1; row <= 3; ++row) SetRow(row, "<CJ>  ");
    after_ = DotsOf(picture_, kBegan);
  }

  DotMatrix After(qint64 ms) { return DotsOf(picture_, kBegan + ms); }

  DotMatrix before_;
  DotMatrix after_;
};

TEST_F(EnteringTest, EachEffectBeginsWithWhatWasShownAndEndsWithThePage) {
  QList<DotMatrix> middles;
  for (const char effect : {'B', 'C', 'D', 'E', 'F', 'G'}) {
    picture_.entrance = Entrance{before_, effect, kBegan};
    EXPECT_EQ(After(0), before_) << effect;
    const DotMatrix middle = After(kEntranceMs / 2);
    EXPECT_NE(middle, before_) << effect;
    EXPECT_NE(middle, after_) << effect;
    middles.append(middle);
    EXPECT_NE(After(kEntranceMs - 1), before_) << effect;
    EXPECT_EQ(After(kEntranceMs), after_) << effect;
    EXPECT_EQ(After(1'000'000'000), after_) << effect;
  }
  // Wipe Left and Slide differ where the page is not the same all along; these are all one colour.
  EXPECT_EQ(middles[3], middles[5]);
  middles.removeLast();
  for (qsizetype i = 0; i < middles.size(); ++i) {
    for (qsizetype j = 0; j < i; ++j) EXPECT_NE(middles[i], middles[j]) << i << ' ' << j;
  }
  picture_.entrance = Entrance{before_, 'A', kBegan};
  EXPECT_EQ(After(1), after_);
}

TEST_F(EnteringTest, ATextThatScrollsRunsOnThroughIt) {
  SetScrolling(2, "<CC>H", kBegan - 100);
  picture_.scroll_speed = 10;
  picture_.entrance = Entrance{before_, 'D', kBegan};
  const DotMatrix dots = After(400);
  EXPECT_EQ(dots.At(0, 0), kGreenDot);
  EXPECT_EQ(dots.At(11, 0), kRedDot);
  EXPECT_EQ(dots.At(0, 8), kDarkDot);
  EXPECT_EQ(dots.At(7, 8), kYellowDot);  // it has gone five dots
}

TEST_F(EnteringTest, IsOverWhereTheClockWasSetBack) {
  picture_.entrance = Entrance{before_, 'D', kBegan};
  EXPECT_EQ(After(-1), after_);
  EXPECT_EQ(MsToNextFrame(picture_, kBegan - 1), std::nullopt);
}

TEST_F(EnteringTest, TellsWhenItGoesOn) {
  EXPECT_EQ(MsToNextFrame(picture_, kBegan), std::nullopt);
  picture_.entrance = Entrance{before_, 'D', kBegan};
  EXPECT_EQ(MsToNextFrame(picture_, kBegan), 33);
  EXPECT_EQ(MsToNextFrame(picture_, kBegan + kEntranceMs - 5), 5);
  EXPECT_EQ(MsToNextFrame(picture_, kBegan + kEntranceMs), std::nullopt);
}

TEST_F(EnteringTest, WhatWasShownOnAPanelOfAnotherSizeIsForgotten) {
  picture_.entrance = Entrance{DotMatrix(3, 3), 'D', kBegan};
  EXPECT_EQ(After(400), after_);
  picture_.entrance = Entrance{DotMatrix(12, 16), 'D', kBegan};
  EXPECT_EQ(After(400), after_);
  picture_.entrance = Entrance{DotMatrix(), 'B', kBegan};
  EXPECT_EQ(After(0), after_);
}

}  // namespace
}  // namespace PanelDots
