// The wheel over a closed list.
#include "widgets/ignore_wheel.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include "support/wheel.h"

using namespace Qt::StringLiterals;

namespace {

// A list in a page that is too tall for its window, and the box that has the keyboard.
class IgnoreWheelTest : public testing::Test {
 protected:
  IgnoreWheelTest() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(box_ = new QLineEdit);
    layout->addWidget(list_ = new QComboBox);
    list_->addItems({u"Red"_s, u"Green"_s});
    IgnoreWheel(list_);
    page->setFixedSize(200, 2000);
    area_.setWidget(page);
    area_.resize(240, 200);
    area_.show();
    area_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&area_));
    box_->setFocus();
  }

  QScrollArea area_;
  QLineEdit* box_;
  QComboBox* list_;
};

TEST_F(IgnoreWheelTest, ItReachesWhatLiesAroundTheList) {
  TurnWheel(list_);
  EXPECT_EQ(list_->currentIndex(), 0);
  EXPECT_GT(area_.verticalScrollBar()->value(), 0);
}

TEST_F(IgnoreWheelTest, ItDoesNotTakeTheKeyboardToTheList) {
  TurnWheel(list_);
  EXPECT_TRUE(box_->hasFocus());
}

TEST_F(IgnoreWheelTest, ATouchPadReachesItTooAndDoesNotTakeTheKeyboardToTheList) {
  for (const auto phase : {Qt::ScrollBegin, Qt::ScrollUpdate, Qt::ScrollEnd}) {
    TurnWheel(list_, phase);
    EXPECT_TRUE(box_->hasFocus()) << phase;
  }
  EXPECT_EQ(list_->currentIndex(), 0);
  EXPECT_GT(area_.verticalScrollBar()->value(), 0);
}

}  // namespace
