// How large the panels are shown.

#include "window/panel_sizes.h"

#include <QScrollBar>
#include <QTest>

#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST(WidePanel, IsScrolledInsteadOfWideningTheWindow) {
  PanelEngine engine({{1, 12, 3000, true}, {2, 4, 96, true}});
  PanelWindow window(&engine);
  window.resize(800, 600);
  window.show();
  EXPECT_EQ(window.width(), 800);
  const auto width = [&](const char* name) {
    return window.findChild<PanelView*>(QLatin1String(name))->width();
  };
  EXPECT_TRUE(WaitUntil([&] { return width("panel_1") >= 6000; }));
  EXPECT_LE(width("panel_2"), 800);
  // The keyboard can scroll the wide one, and does not stop at the other.
  const auto focus_policy = [&](const char* name) {
    return window.findChild<QScrollArea*>(QLatin1String(name))->focusPolicy();
  };
  EXPECT_EQ(focus_policy("scroll_1"), Qt::StrongFocus);
  EXPECT_EQ(focus_policy("scroll_2"), Qt::NoFocus);
  auto* wide = window.findChild<QScrollArea*>(u"scroll_1"_s);
  QTest::keyClick(wide, Qt::Key_Right);
  EXPECT_GT(wide->horizontalScrollBar()->value(), 0);
}

TEST(SeveralPanels, ShrinkAndGrowWithTheWindow) {
  PanelEngine engine({{1, 4, 96, true}, {2, 4, 96, true}, {3, 8, 96, true}});
  PanelWindow window(&engine);
  window.show();
  const auto is_shown_whole = [&] {
    const auto* last = window.findChild<QLabel*>(u"facts_3"_s);
    return last->visibleRegion().boundingRect().height() == last->height();
  };
  const auto height = [&] { return window.findChild<PanelView*>(u"panel_3"_s)->height(); };
  window.resize(700, 700);
  EXPECT_TRUE(WaitUntil(is_shown_whole));
  const int small = height();
  window.resize(1400, 1400);
  EXPECT_TRUE(WaitUntil([&] { return height() > small * 3 / 2 && is_shown_whole(); }));
}

TEST(SeveralPanels, HaveLargerDotsWhereTheyMustBeScrolledAnyway) {
  PanelEngine engine({{1, 12, 192, true}, {2, 12, 192, false}, {3, 12, 3000, true}});
  PanelWindow window(&engine);
  window.resize(800, 600);
  window.show();
  const auto distance = [&](int id) {
    const auto* view = window.findChild<PanelView*>(u"panel_%1"_s.arg(id));
    return PanelDots::DotDistance(view->size(), view->Picture().shape);
  };
  EXPECT_TRUE(WaitUntil([&] { return distance(1) == 3 && distance(2) == 3 && distance(3) == 2; }))
      << distance(1) << ' ' << distance(2) << ' ' << distance(3);
}

TEST(SeveralPanels, HaveNoDotsThatAreNoDotsAnyMore) {
  EXPECT_EQ(DotDistances({QSizeF(10, 12)}, {4000, 4000, 1}), std::vector<double>{24});
  EXPECT_EQ(DotDistances({QSizeF(10, 12)}, {4000, 240, 1}), std::vector<double>{20});
  EXPECT_EQ(DotDistances({QSizeF(10, 12)}, {100, 4000, 1}), std::vector<double>{10});
}

}  // namespace
}  // namespace VirtualPanel
