// The rows of the page editor above, the panel's picture below.
#include "page/preview_splitter.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A pane that asks for `hint` and can do with `least`.
class Pane : public QWidget {
 public:
  Pane(int hint, int least) : hint_(hint), least_(least) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  }

  QSize sizeHint() const override { return {100, hint_}; }
  QSize minimumSizeHint() const override { return {50, least_}; }

  void Ask(int hint, int least) {
    hint_ = hint;
    least_ = least;
    updateGeometry();
    QCoreApplication::processEvents();
  }

 private:
  int hint_;
  int least_;
};

class PreviewSplitterTest : public testing::Test {
 protected:
  PreviewSplitterTest() {
    splitter_.addWidget(rows_);
    splitter_.addWidget(preview_);
    SetHeight(500);
    window_.show();
  }

  void SetHeight(int height) {
    splitter_.resize(300, height + splitter_.handleWidth());
    QCoreApplication::processEvents();
  }

  /// Draws the handle to `place` from the top, as the mouse does.
  void Draw(int place) {
    QWidget* handle = splitter_.handle(1);
    const QPoint middle = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, middle);
    const QPoint there(middle.x(), middle.y() + place - handle->y());
    QMouseEvent move(QEvent::MouseMove, there, handle->mapToGlobal(there), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &move);
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, middle);
  }

  QWidget window_;
  PreviewSplitter splitter_{&window_};
  Pane* rows_ = new Pane(300, 100);
  Pane* preview_ = new Pane(80, 40);
};

TEST_F(PreviewSplitterTest, TheRowsGetWhatTheyAskForThePictureWhatIsLeft) {
  EXPECT_EQ(rows_->height(), 300);
  EXPECT_EQ(preview_->height(), 200);
  rows_->Ask(120, 100);
  EXPECT_EQ(rows_->height(), 120);
  EXPECT_EQ(preview_->height(), 380);
}

TEST_F(PreviewSplitterTest, WithoutRoomThePictureHidesUntilThereIsSome) {
  SetHeight(340);
  EXPECT_TRUE(preview_->isVisible());
  SetHeight(339);
  EXPECT_FALSE(preview_->isVisible());
  SetHeight(100);
  EXPECT_FALSE(preview_->isVisible());
  SetHeight(340);
  EXPECT_TRUE(preview_->isVisible());
  EXPECT_EQ(preview_->height(), 40);
}

TEST_F(PreviewSplitterTest, WhoAsksForThePictureGetsItWhereTheRowsCanGiveRoomUp) {
  SetHeight(200);
  splitter_.SetPreviewWanted(false);
  EXPECT_FALSE(preview_->isVisible());
  splitter_.SetPreviewWanted(true);
  EXPECT_TRUE(preview_->isVisible());
  QCoreApplication::processEvents();
  EXPECT_EQ(preview_->height(), 40);
  EXPECT_EQ(rows_->height(), 160);
  SetHeight(139);
  EXPECT_FALSE(preview_->isVisible());
  SetHeight(500);
  splitter_.SetPreviewWanted(false);
  SetHeight(600);
  EXPECT_FALSE(preview_->isVisible());
}

TEST_F(PreviewSplitterTest, AnOperatorGivesThePictureMoreOrLess) {
  Draw(200);
  EXPECT_EQ(preview_->height(), 300);
  SetHeight(400);
  EXPECT_EQ(preview_->height(), 300);
  EXPECT_EQ(rows_->height(), 100);
  SetHeight(600);
  EXPECT_EQ(preview_->height(), 300);
  Draw(550);
  EXPECT_EQ(preview_->height(), 50);
}

TEST_F(PreviewSplitterTest, ThePictureNeverMakesTheWindowLarger) {
  EXPECT_EQ(splitter_.minimumSizeHint(), rows_->minimumSizeHint());
  EXPECT_EQ(splitter_.sizeHint().height(), 300 + splitter_.handleWidth() + 80);
}

}  // namespace
