// The panel under the rows of the page editor.
#include "page/page_preview.h"

#include <random>

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QTimeZone>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "page/message_file.h"
#include "page/message_transmission.h"
#include "page/page_of.h"
#include "panel_dots/panel_drawing.h"
#include "support/paint_watcher.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kMono;
using Brivon1::kTri;
using Brivon1::PageMessage;
using PanelDots::PanelPicture;

class PagePreviewTest : public testing::Test {
 protected:
  void Show(qint16 rows, qint16 columns, QSize size = {700, 240}) {
    page_.Begin({rows, columns});
    preview_.Build(page_, [this] { return now_; });
    preview_.resize(size);
    preview_.show();
    preview_.Refresh();
    QCoreApplication::processEvents();
  }

  void TypeIn(int row, QByteArrayView text) {
    page_.SetCurrentRow(row);
    page_.TypeAll(text);
  }

  /// What is painted anew when `change` is done.
  template <typename Change>
  QRegion PaintedBy(const Change& change) {
    QCoreApplication::processEvents();
    const PaintWatcher watcher(&preview_);
    change();
    QCoreApplication::processEvents();
    return watcher.Painted();
  }

  QRect Strip(int row) {
    const QSizeF size = PanelDots::SizeInDots(preview_.Picture().shape) * preview_.Pitch();
    return PanelDots::RowRect(size, preview_.Picture().shape, row)
        .translated(preview_.Corner())
        .toAlignedRect();
  }

  /// What a panel shows that was sent the page.
  PanelPicture Sent(qint16 colour_type) {
    const QString path = folder_.Path(u"sent.msg"_s);
    EXPECT_EQ(Brivon1::SaveMessageFile(path, page_), Brivon1::SaveResult::kSaved);
    const Brivon1::Dimension dimension{page_.Rows(), page_.Columns()};
    const auto frames = Brivon1::MessageFrames(path, 7, "001", dimension, colour_type);
    EXPECT_TRUE(frames);
    VirtualPanel::PanelEngine engine({{7, page_.Rows(), page_.Columns(), colour_type == kTri}},
                                     [this] { return now_; });
    for (const QByteArray& frame : frames.value_or(QList<QByteArray>())) engine.Receive(frame);
    PanelPicture picture;
    picture.shape = {page_.Rows(), page_.Columns(), colour_type == kTri};
    const VirtualPanel::StoredPage shown = engine.ShownRows(7);
    for (auto row = shown.cbegin(); row != shown.cend(); ++row) {
      picture.rows.insert(row.key(), row->cells);
    }
    picture.clock = engine.Clock(7);
    return picture;
  }

  void ExpectTheSentPage() {
    for (const qint16 colour_type : {kMono, kTri}) {
      SCOPED_TRACE(colour_type == kTri ? "three colours" : "one colour");
      preview_.SetColourType(colour_type);
      const PanelPicture sent = Sent(colour_type);
      for (const bool hidden : {true, false}) {
        preview_.SetBlinkingHidden(hidden);
        const qint64 phase = hidden ? PanelDots::kBlinkMs : 0;
        EXPECT_EQ(PanelDots::DotsOf(preview_.Picture(), phase), PanelDots::DotsOf(sent, phase));
        QImage drawn(preview_.size(), QImage::Format_RGB32);
        drawn.fill(preview_.palette().color(QPalette::Window));
        QPainter painter(&drawn);
        painter.translate(preview_.Corner());
        PanelDots::DrawPanel(&painter, PanelDots::SizeInDots(sent.shape) * preview_.Pitch(), sent,
                             phase);
        painter.end();
        EXPECT_EQ(preview_.grab().toImage().convertToFormat(QImage::Format_RGB32), drawn);
      }
    }
  }

  TemporaryProgramFolder folder_;
  QDateTime now_{QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc()};
  PageMessage page_;
  PagePreview preview_;
};

TEST_F(PagePreviewTest, EverySampleLooksAsOnThePanelThatWasSentIt) {
  const QDir folder(QStringLiteral(BRIVON_SAMPLES "/messages"));
  const QStringList names = folder.entryList({u"*.msg"_s});
  EXPECT_FALSE(names.isEmpty());
  Show(1, 80);
  for (const QString& name : names) {
    SCOPED_TRACE(name.toStdString());
    const auto loaded = Brivon1::LoadMessageFile(folder.filePath(name));
    ASSERT_TRUE(loaded);
    page_.TakeOver(loaded->dimension, loaded->rows);
    preview_.Refresh();
    ExpectTheSentPage();
  }
}

TEST_F(PagePreviewTest, AnyPageLooksAsOnThePanelThatWasSentIt) {
  std::mt19937 random(11);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  const QList<QByteArray> parts = {"DD MMM YYYY", "HH:MM", "~A", "~", "<CB>", "<", "  "};
  Show(1, 80);
  for (int n = 0; n < 25; ++n) {
    SCOPED_TRACE(n);
    page_.Begin({static_cast<qint16>(1 + below(12)), static_cast<qint16>(10 + below(200))});
    for (int edit = 0; edit < 40; ++edit) {
      page_.SetCurrentRow(1 + below(12));
      page_.ChooseColour(below(16));
      page_.ChooseSize(below(4));
      page_.ChooseBlink(below(3) == 0);
      if (below(8) == 0) page_.PressMoveKey(Brivon1::MoveKey::kBackspaceWord);
      if (below(8) == 0) page_.Undo();
      page_.TypeAll(below(3) == 0
                        ? parts[below(7)]
                        : QByteArray(1 + below(4), static_cast<char>(0x20 + below(0xE0))));
      preview_.Refresh();
    }
    ExpectTheSentPage();
    if (testing::Test::HasFailure()) return;
  }
}

TEST_F(PagePreviewTest, OnlyTheRowThatHasChangedIsDrawnAgain) {
  Show(4, 96);
  const QRegion painted = PaintedBy([&] {
    TypeIn(3, "x");
    preview_.Refresh();
  });
  EXPECT_TRUE(painted.contains(Strip(3).center()));
  EXPECT_FALSE(painted.intersects(Strip(2)));
  EXPECT_FALSE(painted.intersects(Strip(4)));
  EXPECT_TRUE(PaintedBy([&] {
                page_.PressMoveKey(Brivon1::MoveKey::kLeft);
                preview_.Refresh();
              }).isEmpty());
}

TEST_F(PagePreviewTest, ARowThatIsCutGetsAndLosesItsMark) {
  Show(2, 80);
  const double panel = PanelDots::SizeInDots(preview_.Picture().shape).width() * preview_.Pitch();
  const QPoint mark(qRound(panel - preview_.Pitch()), Strip(1).center().y());
  const auto colour = [&] { return preview_.grab().toImage().pixelColor(mark); };
  const QColor frame = colour();
  const QRegion painted = PaintedBy([&] {
    TypeIn(1, QByteArray(16, 'x'));
    preview_.Refresh();
  });
  EXPECT_TRUE(painted.contains(mark));
  EXPECT_EQ(colour(), QColor(255, 176, 0));
  page_.Undo();
  preview_.Refresh();
  EXPECT_EQ(colour(), frame);
}

TEST_F(PagePreviewTest, BlinkingRowsAloneAreDrawnAgainAndAreDarkInBetween) {
  Show(3, 96);
  TypeIn(1, "steady");
  page_.ChooseBlink(true);
  TypeIn(2, "blinking");
  preview_.Refresh();
  preview_.SetBlinkingHidden(false);
  const QImage lit = preview_.grab(Strip(2)).toImage();
  const QRegion painted = PaintedBy([&] { preview_.SetBlinkingHidden(true); });
  EXPECT_FALSE(painted.intersects(Strip(1)));
  EXPECT_FALSE(painted.intersects(Strip(3)));
  EXPECT_NE(preview_.grab(Strip(2)).toImage(), lit);
  EXPECT_EQ(preview_.grab(Strip(2)).toImage(), preview_.grab(Strip(3)).toImage());
  preview_.SetBlinkingHidden(false);
  EXPECT_EQ(preview_.grab(Strip(2)).toImage(), lit);
}

TEST_F(PagePreviewTest, DateAndTimeAreThoseOfNowAndTurnWithTheMinute) {
  Show(2, 96);
  TypeIn(1, "HH:MM");
  preview_.Refresh();
  const auto text = [&] {
    return PanelDots::RowText(preview_.Picture().rows[1], preview_.Picture().clock);
  };
  EXPECT_EQ(text(), u"14:07"_s);
  now_ = now_.addSecs(50);
  EXPECT_TRUE(PaintedBy([&] { preview_.SetBlinkingHidden(true); }).isEmpty());
  EXPECT_EQ(text(), u"14:07"_s);
  now_ = now_.addSecs(1);
  const QRegion painted = PaintedBy([&] { preview_.SetBlinkingHidden(false); });
  EXPECT_EQ(text(), u"14:08"_s);
  EXPECT_TRUE(painted.contains(Strip(1).center()));
  EXPECT_FALSE(painted.intersects(Strip(2)));
}

TEST_F(PagePreviewTest, AClockThatJumpsByWholeHoursOrDaysTurnsTheDateAndTheTime) {
  Show(1, 192);
  TypeIn(1, "DD MMM YYYY HH:MM");
  preview_.Refresh();
  const auto text = [&] {
    return PanelDots::RowText(preview_.Picture().rows[1], preview_.Picture().clock);
  };
  EXPECT_EQ(text(), u"05 MAR 2026 14:07"_s);
  now_ = now_.addSecs(3600);
  preview_.SetBlinkingHidden(true);
  EXPECT_EQ(text(), u"05 MAR 2026 15:07"_s);
  now_ = now_.addDays(1);
  preview_.SetBlinkingHidden(false);
  EXPECT_EQ(text(), u"06 MAR 2026 15:07"_s);
}

TEST_F(PagePreviewTest, WhileItIsHiddenNothingIsWorkedOutAndWhenItIsShownItIsUpToDate) {
  Show(2, 96);
  preview_.hide();
  TypeIn(1, "HH:MM");
  now_ = now_.addDays(1);
  preview_.Refresh();
  preview_.SetBlinkingHidden(true);
  EXPECT_TRUE(preview_.Picture().rows[1].isEmpty());
  preview_.show();
  EXPECT_EQ(PanelDots::RowText(preview_.Picture().rows[1], preview_.Picture().clock), u"14:07"_s);
  EXPECT_EQ(preview_.Picture().clock, now_);
}

TEST_F(PagePreviewTest, AWidePanelMovesAlongWithItsRows) {
  Show(8, 3000);
  const double panel = PanelDots::SizeInDots(preview_.Picture().shape).width() * preview_.Pitch();
  ASSERT_GT(panel, 3 * preview_.width());
  constexpr int kRowsWidth = 600 * 12 + 5;
  preview_.Follow({-5, 650, kRowsWidth});
  EXPECT_EQ(preview_.Corner().x(), 0);
  preview_.Follow({kRowsWidth - 650, 650, kRowsWidth});
  EXPECT_EQ(preview_.Corner().x(), preview_.width() - panel);
  preview_.Follow({(kRowsWidth - 650) / 2, 650, kRowsWidth});
  EXPECT_NEAR(preview_.Corner().x(), (preview_.width() - panel) / 2, 2);
}

TEST_F(PagePreviewTest, ACursorThatIsOutOfSightDoesNotHoldAWidePanel) {
  Show(8, 3000);
  page_.TypeAll(QByteArray(400, 'x'));
  preview_.Refresh();
  preview_.Follow({-5, 650, 600 * 12 + 5});
  EXPECT_EQ(preview_.Corner().x(), 0);
}

TEST_F(PagePreviewTest, AWidePanelWhoseRowsAreAllInSightBeginsAtItsLeftEdge) {
  Show(1, 500);
  constexpr int kRowsWidth = 100 * 12 + 5;
  preview_.Follow({kRowsWidth - 650, 650, kRowsWidth});
  EXPECT_LT(preview_.Corner().x(), 0);
  preview_.Follow({-5, 1300, kRowsWidth});
  EXPECT_EQ(preview_.Corner().x(), 0);
}

TEST_F(PagePreviewTest, WhatMovedWhileItWasHiddenAndANewSizeLeaveItWithItsRows) {
  Show(8, 3000);
  constexpr PagePreview::Sight kEnd{600 * 12 + 5 - 650, 650, 600 * 12 + 5};
  preview_.hide();
  preview_.Follow(kEnd);
  preview_.show();
  const auto right = [&] {
    return PanelDots::SizeInDots(preview_.Picture().shape).width() * preview_.Pitch() +
           preview_.Corner().x();
  };
  EXPECT_EQ(right(), preview_.width());
  preview_.resize(500, 160);
  EXPECT_EQ(right(), preview_.width());
}

TEST_F(PagePreviewTest, OfAWidePanelTheDotsOfTheCursorAreInSight) {
  Show(1, 3000);
  constexpr int kRowsWidth = 600 * 12 + 5;
  for (int typed = 0; typed < 480; ++typed) {
    page_.TypeAll("x");
    preview_.Refresh();
    // As the rows follow the cursor.
    preview_.Follow({std::max(-5, 12 * (typed + 1) - 600), 650, kRowsWidth});
    const double place = preview_.Corner().x() + (2 + 6 * (typed + 1)) * preview_.Pitch();
    ASSERT_GE(place, 0) << typed;
    ASSERT_LE(place, preview_.width()) << typed;
  }
}

TEST_F(PagePreviewTest, APanelIsAsLargeAsItsPlaceAWideOneAtLeastReadable) {
  Show(4, 96, {700, 240});
  EXPECT_EQ(preview_.Pitch(), 6);  // 240 by 39 dots
  preview_.resize(450, 240);
  EXPECT_EQ(preview_.Pitch(), 4);  // 450 by 100 dots
  preview_.resize(100, 240);
  EXPECT_EQ(preview_.Pitch(), 3);
  preview_.resize(100, 80);
  EXPECT_EQ(preview_.Pitch(), 2);
}

TEST_F(PagePreviewTest, WithoutAPageThereIsNothingToSee) {
  preview_.Build(page_, [this] { return now_; });
  preview_.resize(200, 100);
  preview_.show();
  const QImage image = preview_.grab().toImage();
  EXPECT_EQ(image.pixelColor(50, 50), preview_.palette().color(QPalette::Window));
  EXPECT_EQ(preview_.minimumSizeHint().height(), 0);
}

TEST_F(PagePreviewTest, OfAPageWithoutColumnsThereIsNothingToSee) {
  Show(2, 0, {200, 100});
  QImage nothing(preview_.size(), QImage::Format_RGB32);
  nothing.fill(preview_.palette().color(QPalette::Window));
  EXPECT_EQ(preview_.grab().toImage().convertToFormat(QImage::Format_RGB32), nothing);
}

}  // namespace
