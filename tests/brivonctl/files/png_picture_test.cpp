// Pictures of pages, held against what a virtual panel lights that was sent the page's frames.
#include "files/png_picture.h"

#include <QDir>
#include <QImage>
#include <QTimeZone>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "engine/panel_engine.h"
#include "files/shown_file.h"
#include "page/message_transmission.h"
#include "panel_dots/dots_as_text.h"
#include "panel_dots/panel_drawing.h"
#include "store/configuration_store.h"
#include "support/led_of.h"

using namespace Qt::StringLiterals;

namespace {

using PanelDots::DotMatrix;

const QDateTime kClock(QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc());

/// The dots that are lit in a picture; none where a place is no LED.
DotMatrix DotsIn(const QByteArray& png, const PanelDots::PanelShape& shape) {
  const QImage image = QImage::fromData(png, "PNG").convertToFormat(QImage::Format_RGB32);
  const QSizeF size = image.size();
  const double distance = PanelDots::DotDistance(size, shape);
  DotMatrix dots(shape.columns, shape.rows * PanelDots::kRowDots);
  for (int row = 1; row <= shape.rows; ++row) {
    const QRectF place = PanelDots::RowRect(size, shape, row);
    for (int y = 0; y < PanelDots::kRowDots; ++y) {
      for (int x = 0; x < shape.columns; ++x) {
        const QPointF middle = place.topLeft() + QPointF(x + 0.5, y + 0.5) * distance;
        const Led led = LedOf(image.pixelColor(middle.toPoint()));
        if (led == Led::kNone) return {};
        dots.Set(x, (row - 1) * PanelDots::kRowDots + y,
                 led == Led::kRed      ? PanelDots::kRedDot
                 : led == Led::kGreen  ? PanelDots::kGreenDot
                 : led == Led::kYellow ? PanelDots::kYellowDot
                                       : PanelDots::kDarkDot);
      }
    }
  }
  return dots;
}

/// The dots of a panel of the page's size that was sent the page.
DotMatrix DotsOfAPanel(const QString& path, bool mono) {
  const auto dimension = Brivon1::IsMessageFile(path);
  VirtualPanel::PanelEngine engine({{1, dimension->rows, dimension->columns, !mono}},
                                   [] { return kClock; });
  const auto frames =
      Brivon1::MessageFrames(path, 1, "007", *dimension, mono ? Brivon1::kMono : Brivon1::kTri);
  for (const QByteArray& frame : *frames) {
    EXPECT_EQ(engine.Receive(frame).size(), 1) << frame.toStdString();
  }
  PanelDots::PanelPicture picture{{dimension->rows, dimension->columns, !mono}};
  picture.clock = engine.Clock(1);
  const VirtualPanel::StoredPage rows = engine.ShownRows(1);
  for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
    picture.rows.insert(row.key(), row->cells);
  }
  return PanelDots::DotsOf(picture, 0);
}

TEST(PngPictureTest, TheLitDotsOfEverySamplePageAreThoseOfAPanelThatWasSentIt) {
  const QDir folder(QStringLiteral(BRIVON_SAMPLES "/messages"));
  const QStringList names = folder.entryList({u"*.msg"_s});
  ASSERT_GE(names.size(), 3);
  for (const QString& name : names) {
    for (const bool mono : {false, true}) {
      const QString path = folder.filePath(name);
      const auto shown = BrivonCtl::ReadShownFile(path, mono, kClock);
      ASSERT_EQ(shown.pages.size(), 1U) << shown.refusal.toStdString();
      const auto& picture = shown.pages[0].picture;
      EXPECT_EQ(PanelDots::Shown(DotsIn(BrivonCtl::PngPicture(picture), picture.shape)),
                PanelDots::Shown(DotsOfAPanel(path, mono)))
          << name.toStdString() << mono;
    }
  }
}

TEST(PngPictureTest, ADotTakesSixPixelsAndThePanelHasAFrame) {
  const QImage image =
      QImage::fromData(BrivonCtl::PngPicture(PanelDots::PanelPicture{{4, 96, true}}), "PNG");
  EXPECT_EQ(image.size(), QSize((96 + 4) * 6, (4 * 9 - 1 + 4) * 6));
  EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);  // outside of its round corner
}

TEST(PngPictureTest, ALargePanelsDotsTakeLess) {
  const auto size_of = [](int rows, int columns) {
    return QImage::fromData(BrivonCtl::PngPicture(PanelDots::PanelPicture{{rows, columns, true}}),
                            "PNG")
        .size();
  };
  EXPECT_EQ(size_of(12, 32'000), QSize(32'004 * 2, 111 * 2));
  EXPECT_EQ(size_of(1, 32'000), QSize(32'004 * 6, 12 * 6));
}

}  // namespace
