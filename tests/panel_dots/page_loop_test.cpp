// Pages that are shown one after the other.
#include "panel_dots/page_loop.h"

#include <gtest/gtest.h>

namespace PanelDots {
namespace {

TEST(PageLoop, APageEntersAnewInEveryRound) {
  const QList<int> seconds = {5, 0, 2};  // no seconds are one
  struct Case {
    qint64 elapsed;
    qsizetype index;
    qint64 entered;
    qint64 left;
  };
  for (const Case& c :
       {Case{0, 0, 0, 5000}, Case{4999, 0, 0, 1}, Case{5000, 1, 5000, 1000}, Case{7999, 2, 6000, 1},
        Case{8000, 0, 8000, 5000}, Case{800'005'500, 1, 800'005'000, 500}, Case{-1, 2, -2000, 1}}) {
    const PageAtTime page = PageAt(seconds, c.elapsed);
    EXPECT_EQ(page.index, c.index) << c.elapsed;
    EXPECT_EQ(page.entered_ms, c.entered) << c.elapsed;
    EXPECT_EQ(page.left_ms, c.left) << c.elapsed;
  }
}

TEST(PageLoop, ASinglePageEntersOnce) {
  EXPECT_EQ(PageAt({3}, 2999).entered_ms, 0);
  EXPECT_EQ(PageAt({3}, 7000).entered_ms, 0);
  EXPECT_EQ(PageAt({3}, 7000).left_ms, 2000);
}

TEST(PageLoop, WithoutPagesThereIsNoMoment) {
  EXPECT_EQ(PageAt({}, 7000).index, 0);
  EXPECT_EQ(PageAt({}, 7000).left_ms, 0);
}

}  // namespace
}  // namespace PanelDots
