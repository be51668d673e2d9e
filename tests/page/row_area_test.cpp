#include "page/row_area.h"

#include <utility>

#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include "page/page_of.h"
#include "support/wheel.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::MoveKey;
using Brivon1::PageMessage;

class RowAreaTest : public testing::Test {
 protected:
  void Show(qint16 rows, qint16 columns, int width = 500) {
    page_.Begin({rows, columns});
    area_.Build(page_, bar_);
    area_.resize(width, area_.sizeHint().height());
    area_.show();
    area_.LayOutRows();
  }

  /// The part of row `number` that is in sight.
  QRect InSight(int number) {
    const RowSurface& row = area_.Surface(number);
    return row.geometry() & row.parentWidget()->rect();
  }

  QScrollBar& VerticalBar() { return *area_.findChild<QScrollBar*>(u"scrollPage"_s); }

  int Left() { return area_.Surface(1).x(); }
  int Clip() { return area_.Surface(1).parentWidget()->width(); }
  int CursorPlace() {
    return Left() + static_cast<int>(page_.Row(page_.CurrentRow()).Cursor()) * 12;
  }

  PageMessage page_;
  QScrollBar bar_{Qt::Horizontal};
  RowArea area_;
};

TEST_F(RowAreaTest, ShowsAsManySurfacesAsThePageHasRowsAndHidesTheOthers) {
  Show(4, 80);
  for (int row = 1; row <= 12; ++row) {
    const QWidget& surface = area_.Surface(row);
    EXPECT_EQ(surface.isVisible(), row <= 4) << row;
    EXPECT_EQ(surface.height(), 20);
    EXPECT_EQ(surface.width(), 16 * 12 + 5);
    EXPECT_EQ(surface.x(), 5);
    EXPECT_EQ(surface.accessibleName(), u"Row %1"_s.arg(row));
  }
  page_.Begin({12, 96});
  area_.LayOutRows();
  area_.resize(area_.sizeHint());
  EXPECT_TRUE(area_.Surface(12).isVisible());
  EXPECT_EQ(area_.Surface(12).width(), 19 * 12 + 5);
  EXPECT_LE(area_.Surface(12).geometry().bottom(), area_.Surface(12).parentWidget()->height());
}

TEST_F(RowAreaTest, AWidePageDoesNotWidenTheArea) {
  Show(12, 80);
  const int narrow = area_.minimumSizeHint().width();
  page_.Begin({12, 3000});
  area_.LayOutRows();
  EXPECT_EQ(area_.minimumSizeHint().width(), narrow);
  EXPECT_EQ(area_.width(), 500);
}

TEST_F(RowAreaTest, ThePageTakesTheHeightOfItsRowsAndNoMore) {
  Show(12, 80);
  const int twelve = area_.sizeHint().height();
  EXPECT_EQ(area_.maximumHeight(), twelve);
  EXPECT_TRUE(area_.Surface(12).parentWidget()->rect().contains(area_.Surface(12).geometry()));
  page_.Begin({4, 80});
  area_.LayOutRows();
  EXPECT_EQ(area_.sizeHint().height(), twelve - 8 * 24);
  EXPECT_EQ(area_.maximumHeight(), area_.sizeHint().height());
  EXPECT_EQ(area_.height(), area_.sizeHint().height());
  page_.Begin({1, 80});
  area_.LayOutRows();
  EXPECT_EQ(area_.minimumSizeHint().height(), twelve - 11 * 24);
}

TEST_F(RowAreaTest, ALowAreaScrollsAndKeepsTheCurrentRowInSight) {
  Show(12, 80);
  EXPECT_FALSE(VerticalBar().isVisible());
  EXPECT_LE(area_.minimumSizeHint().height(), 4 * 24);
  area_.resize(500, area_.minimumSizeHint().height());
  EXPECT_TRUE(VerticalBar().isVisible());
  for (const MoveKey key : {MoveKey::kDown, MoveKey::kUp}) {
    for (int step = 0; step < 12; ++step) {
      area_.FollowCursor();
      const int row = page_.CurrentRow();
      ASSERT_EQ(InSight(row).height(), 20) << row;
      const auto* number = area_.findChild<QLabel*>(u"lblRowNumber(%1)"_s.arg(row));
      EXPECT_EQ(number->mapTo(&area_, QPoint()).y(),
                area_.Surface(row).mapTo(&area_, QPoint()).y());
      page_.PressMoveKey(key);
    }
  }
  EXPECT_EQ(area_.Surface(1).y(), 4);
  EXPECT_EQ(VerticalBar().value(), 0);
}

TEST_F(RowAreaTest, TheVerticalScrollBarMovesThePageToItsEnds) {
  Show(12, 80);
  area_.resize(500, 150);
  VerticalBar().setValue(VerticalBar().maximum());
  EXPECT_EQ(area_.Surface(12).geometry().bottom() + 5, area_.Surface(12).parentWidget()->height());
  EXPECT_TRUE(InSight(1).isEmpty());
  VerticalBar().setValue(0);
  EXPECT_EQ(area_.Surface(1).y(), 4);
}

TEST_F(RowAreaTest, AnAreaThatGetsLowerKeepsTheCurrentRowInSight) {
  Show(12, 80);
  page_.SetCurrentRow(12);
  area_.FollowCursor();
  area_.resize(500, 120);
  QCoreApplication::processEvents();
  EXPECT_EQ(InSight(12).height(), 20);
  area_.resize(500, 1000);
  QCoreApplication::processEvents();
  EXPECT_EQ(area_.Surface(1).y(), 4);
}

TEST_F(RowAreaTest, RowsMoveWithoutBound) {
  Show(2, 80);
  area_.MoveRows(1000);
  EXPECT_EQ(Left(), 1005);
  EXPECT_EQ(area_.Surface(12).x(), 1005);
  area_.MoveRows(-3000);
  EXPECT_EQ(Left(), -1995);
}

TEST_F(RowAreaTest, TheAreaFollowsTheCursor) {
  Show(2, 3000);
  EXPECT_EQ(Left(), 5);
  Type(page_, QByteArray(600, 'x'));
  area_.FollowCursor();
  EXPECT_GE(CursorPlace(), 0);
  EXPECT_LT(CursorPlace(), Clip());
  // The end of the page stands at the end of the area.
  EXPECT_EQ(Left() + area_.Surface(1).width() + 5, Clip());
  page_.PressMoveKey(MoveKey::kHome);
  area_.FollowCursor();
  EXPECT_EQ(Left(), 5);
  for (int step = 0; step < 600; ++step) {
    page_.PressMoveKey(MoveKey::kRight);
    area_.FollowCursor();
    ASSERT_GE(CursorPlace(), 0);
    ASSERT_LT(CursorPlace(), Clip());
  }
  for (int step = 0; step < 600; ++step) {
    page_.PressMoveKey(MoveKey::kLeft);
    area_.FollowCursor();
    ASSERT_GE(CursorPlace(), 0);
    ASSERT_LT(CursorPlace(), Clip());
  }
  EXPECT_EQ(Left(), 5);
}

TEST_F(RowAreaTest, AMoveByHandStaysWhileTheCursorIsInSight) {
  Show(2, 80);
  Type(page_, "abc");
  area_.MoveRows(10);
  area_.FollowCursor();
  EXPECT_EQ(Left(), 15);
  area_.MoveRows(1000);
  area_.FollowCursor();
  EXPECT_EQ(Left(), 5);
}

TEST_F(RowAreaTest, AMoveByHandBeyondTheEndStaysToo) {
  Show(2, 3000);
  Type(page_, QByteArray(600, 'x'));
  area_.FollowCursor();
  const int end = Left();
  area_.MoveRows(-10);
  area_.FollowCursor();
  EXPECT_EQ(Left(), end - 10);
}

TEST_F(RowAreaTest, TheScrollBarShowsAndSetsThePlace) {
  Show(2, 3000);
  EXPECT_EQ(bar_.minimum(), 0);
  EXPECT_EQ(bar_.maximum(), 5 + 600 * 12 + 5 + 5 - Clip());
  bar_.setValue(700);
  EXPECT_EQ(Left(), 5 - 700);
  area_.MoveRows(-10);
  EXPECT_EQ(bar_.value(), 710);
  bar_.setValue(bar_.maximum());
  EXPECT_EQ(Left() + area_.Surface(1).width() + 5, Clip());
  page_.Begin({2, 80});
  area_.LayOutRows();
  EXPECT_FALSE(bar_.isEnabled());
  EXPECT_EQ(bar_.value(), 0);
}

TEST_F(RowAreaTest, TheWheelMovesALowPageUpAndDownAndWithShiftSideways) {
  Show(12, 3000);
  area_.resize(500, 120);
  TurnWheel(&area_.Surface(1));
  EXPECT_EQ(area_.Surface(1).y(), 4 - 3 * 24);
  EXPECT_EQ(Left(), 5);
  TurnWheel(&area_.Surface(2), Qt::NoScrollPhase, Qt::ShiftModifier);
  EXPECT_EQ(area_.Surface(1).y(), 4 - 3 * 24);
  EXPECT_EQ(Left(), 5 - 3 * 12);
  EXPECT_EQ(bar_.value(), 3 * 12);
}

TEST_F(RowAreaTest, TheWheelMovesAWidePageSidewaysWhereAllRowsAreInSight) {
  Show(2, 3000);
  TurnWheel(&area_.Surface(1));
  EXPECT_EQ(Left(), 5 - 3 * 12);
  TurnWheel(area_.Surface(1).parentWidget(), Qt::NoScrollPhase, Qt::ShiftModifier);
  EXPECT_EQ(Left(), 5 - 6 * 12);
  EXPECT_EQ(area_.Surface(1).y(), 4);
  page_.Begin({2, 80});
  area_.LayOutRows();
  TurnWheel(&area_.Surface(1));
  EXPECT_EQ(Left(), 5);
}

TEST_F(RowAreaTest, AWheelThatTurnsSidewaysMovesALowPageSideways) {
  Show(12, 3000);
  area_.resize(500, 120);
  const QPointF at(5, 5);
  QWheelEvent turn(at, area_.mapToGlobal(at), {}, {-120, -30}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&area_, &turn);
  EXPECT_EQ(Left(), 5 - 3 * 12);
  EXPECT_EQ(area_.Surface(1).y(), 4);
}

TEST_F(RowAreaTest, AWiderAreaShowsMoreOfThePage) {
  Show(2, 3000);
  bar_.setValue(bar_.maximum());
  area_.resize(900, area_.height());
  EXPECT_EQ(Left() + area_.Surface(1).width() + 5, Clip());
  bar_.setValue(100);
  area_.resize(1000, area_.height());
  EXPECT_EQ(Left(), 5 - 100);
}

TEST_F(RowAreaTest, AWiderAreaLeavesAPageThatWasMovedBeyondItsEndsByHand) {
  Show(2, 80);
  area_.MoveRows(100);
  area_.resize(600, area_.height());
  EXPECT_EQ(Left(), 5 + 100);
  area_.MoveRows(-3100);
  area_.resize(700, area_.height());
  EXPECT_EQ(Left(), 5 - 3000);
}

TEST_F(RowAreaTest, TheMarkOfWhereTheDotsEndStandsOutOnALightAndOnADarkGround) {
  Show(1, 80);
  area_.MarkDotsEnd(1, 3);
  for (const auto& [ground, mark] : {std::pair(QColor(Qt::white), QColor(184, 96, 0)),
                                     std::pair(QColor(Qt::black), QColor(255, 176, 0))}) {
    area_.setPalette(QPalette(ground));
    const QRect row = area_.Surface(1).geometry();
    const QImage image = area_.Surface(1).parentWidget()->grab().toImage();
    EXPECT_EQ(image.pixelColor(row.left() + 3 * 12, row.bottom() + 1), mark);
  }
}

TEST_F(RowAreaTest, TheNumbersStandBesideTheRowsAndTheCurrentOneIsMarked) {
  Show(3, 80);
  page_.SetCurrentRow(2);
  area_.MarkCurrentRow();
  for (int row = 1; row <= 12; ++row) {
    const auto* number = area_.findChild<QLabel*>(u"lblRowNumber(%1)"_s.arg(row));
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->text(), QString::number(row));
    EXPECT_EQ(number->isVisible(), row <= 3);
    EXPECT_EQ(number->backgroundRole() == QPalette::Highlight, row == 2);
    EXPECT_EQ(number->mapTo(&area_, QPoint()).y(), area_.Surface(row).mapTo(&area_, QPoint()).y());
  }
}

}  // namespace
