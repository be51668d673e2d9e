// Where the launcher's buttons stand.
#include "app/launcher_layout.h"

#include <gtest/gtest.h>

namespace {

TEST(LauncherLayoutTest, AWidthOf9000TwipsGivesButtonsOf1780) {
  EXPECT_EQ(Brivon1::LauncherButtonWidth(9000), 1780);
}

TEST(LauncherLayoutTest, PixelsAreTheNearestOnesAndTheRowStaysInsideTheWindow) {
  EXPECT_EQ(Brivon1::LauncherButtonPixels(600), 119);  // 1780 twips are 118.67 pixels
  EXPECT_EQ(Brivon1::LauncherButtonPixels(560), 111);  // 1660 twips are 110.67
  for (int width = 0; width <= 8000; ++width) {
    ASSERT_LE(5 * Brivon1::LauncherButtonPixels(width), width);
  }
}

TEST(LauncherLayoutTest, AWindowTooNarrowForTheRuleGivesNoNegativeWidth) {
  EXPECT_EQ(Brivon1::LauncherButtonWidth(0), 0);
  EXPECT_EQ(Brivon1::LauncherButtonWidth(99), 0);
}

}  // namespace
