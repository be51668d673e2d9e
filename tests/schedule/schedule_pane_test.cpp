// The place of the preview beside a schedule's table.
#include "schedule/schedule_pane.h"

#include <QLayout>
#include <QScrollBar>
#include <QSplitter>

#include <gtest/gtest.h>

namespace {

class SchedulePaneTest : public testing::Test {
 protected:
  static constexpr int kLeastOfTable = 400;

  SchedulePaneTest() {
    table_->setMinimumWidth(kLeastOfTable);
    pane_->SetShape({4, 96});
  }

  void Show(int width) {
    splitter_.resize(width, 300);
    splitter_.show();
  }

  QScrollArea* Scroll() { return pane_->findChild<QScrollArea*>(); }

  QSplitter splitter_;
  QWidget* table_ = new QWidget(&splitter_);
  SchedulePane* pane_ = new SchedulePane(&splitter_);
};

TEST_F(SchedulePaneTest, ItIsThereAsLongAsThereIsRoomForIt) {
  Show(900);
  EXPECT_TRUE(pane_->isVisible());
  splitter_.resize(kLeastOfTable + 60, 300);
  EXPECT_FALSE(pane_->isVisible());
  splitter_.refresh();
  EXPECT_EQ(table_->width(), kLeastOfTable + 60);
  splitter_.resize(900, 300);
  EXPECT_TRUE(pane_->isVisible());
}

TEST_F(SchedulePaneTest, ItAsksForNoRoomOfItsOwn) {
  Show(900);
  EXPECT_LE(splitter_.minimumSizeHint().width(), kLeastOfTable + splitter_.handleWidth() + 1);
  EXPECT_LE(splitter_.minimumSizeHint().height(), splitter_.handleWidth());
}

TEST_F(SchedulePaneTest, ThePanelIsAsLargeAsThePaneAndSeenWhole) {
  Show(900);
  const QWidget* picture = pane_->Picture();
  EXPECT_GE(picture->width(), 400);
  EXPECT_GE(PanelDots::DotDistance(picture->size(), {4, 96}), 4);
  EXPECT_EQ(Scroll()->focusPolicy(), Qt::NoFocus);
  splitter_.resize(kLeastOfTable + 130, 300);
  EXPECT_EQ(PanelDots::DotDistance(picture->size(), {4, 96}), 1);
  EXPECT_LE(picture->width(), pane_->width());
}

TEST_F(SchedulePaneTest, APanelThatIsTooWideIsScrolled) {
  Show(900);
  pane_->SetShape({8, 3000});
  EXPECT_GE(pane_->Picture()->width(), 6000);
  EXPECT_GE(PanelDots::DotDistance(pane_->Picture()->size(), {8, 3000}), 2);
  EXPECT_EQ(Scroll()->focusPolicy(), Qt::StrongFocus);
  EXPECT_GT(Scroll()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(SchedulePaneTest, TheSplitterKeepsWhereItWasMovedTo) {
  Show(1000);
  splitter_.handle(1)->setFocus();
  splitter_.setSizes({600, 390});
  Q_EMIT splitter_.splitterMoved(600, 1);
  pane_->SetShape({12, 192});
  EXPECT_NEAR(pane_->width(), 390, 10);
}

TEST_F(SchedulePaneTest, ANoteTakesThePlaceOfThePanel) {
  Show(900);
  pane_->layout()->activate();
  const int place = pane_->Button()->y();
  pane_->ShowNote(
      QStringLiteral("File not found: a file with a long name that takes several lines.msg"));
  EXPECT_FALSE(pane_->Picture()->isVisible());
  EXPECT_TRUE(pane_->HasNote());
  pane_->layout()->activate();
  EXPECT_EQ(pane_->Button()->y(), place) << "the button stays where it is";
  pane_->ShowNote({});
  EXPECT_TRUE(pane_->Picture()->isVisible());
}

}  // namespace
