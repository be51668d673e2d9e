// The pages of a schedule's steps, as the preview reads them.
#include "schedule/schedule_page.h"

#include <QDir>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "engine/panel_engine.h"
#include "page/message_transmission.h"
#include "store/configuration_store.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr Dimension kDimension{2, 80};
constexpr qsizetype kMegabyte = 1 << 20;

class SchedulePageTest : public testing::Test {
 protected:
  QString Write(const QByteArray& rows, const QByteArray& head = "Row = 2\r\nCol = 80\r\n") {
    return folder_.Write(u"a.msg"_s, "*** Brivon Message File ***\r\n" + head + rows);
  }

  static PanelDots::PanelPicture Picture(const PanelDots::PageRows& rows, Dimension dimension,
                                         qint16 colour_type) {
    return {{dimension.rows, dimension.columns, colour_type == kTri},
            rows,
            QDateTime(QDate(2026, 3, 5), QTime(14, 7))};
  }

  /// The file's rows as a panel shows them that was sent the file.
  static PanelDots::PageRows Sent(const QString& path, Dimension dimension, qint16 colour_type) {
    VirtualPanel::PanelEngine engine({{7, dimension.rows, dimension.columns, colour_type == kTri}});
    const auto frames = MessageFrames(path, 7, "001", dimension, colour_type);
    EXPECT_TRUE(frames);
    for (const QByteArray& frame : frames.value_or(QList<QByteArray>())) engine.Receive(frame);
    PanelDots::PageRows rows;
    const VirtualPanel::StoredPage shown = engine.ShownRows(7);
    for (auto row = shown.cbegin(); row != shown.cend(); ++row) rows.insert(row.key(), row->cells);
    return rows;
  }

  static void ExpectShownAsSent(const QString& path, Dimension dimension) {
    const SchedulePage page = ReadSchedulePage(path, dimension);
    EXPECT_EQ(page.refusal, QString());
    for (const qint16 colour_type : {kTri, kMono}) {
      SCOPED_TRACE(colour_type == kTri ? "three colours" : "one colour");
      const auto shown = Picture(colour_type == kTri ? page.rows : page.rows_of_one_colour,
                                 dimension, colour_type);
      const auto sent = Picture(Sent(path, dimension, colour_type), dimension, colour_type);
      for (const qint64 phase : {qint64{0}, PanelDots::kBlinkMs}) {
        EXPECT_EQ(PanelDots::DotsOf(shown, phase), PanelDots::DotsOf(sent, phase));
      }
      for (int row = 1; row <= dimension.rows; ++row) {
        EXPECT_EQ(PanelDots::IsCut(shown, row), PanelDots::IsCut(sent, row)) << row;
      }
    }
  }

  TemporaryProgramFolder folder_;
};

TEST_F(SchedulePageTest, EverySampleIsShownAsThePanelShowsItThatWasSentIt) {
  const QDir folder(QStringLiteral(BRIVON_SAMPLES "/messages"));
  const QStringList names = folder.entryList({u"*.msg"_s});
  EXPECT_FALSE(names.isEmpty());
  for (const QString& name : names) {
    SCOPED_TRACE(name.toStdString());
    const auto dimension = IsMessageFile(folder.filePath(name));
    ASSERT_TRUE(dimension);
    ExpectShownAsSent(folder.filePath(name), *dimension);
  }
}

TEST_F(SchedulePageTest, RowsOfAnyLengthAreShownAsThePanelShowsThemThatWasSentThem) {
  const QList<QByteArray> rows = {"<L01>",
                                  "<L01><SB>" + QByteArray(16, 'W'),
                                  "<L01><SB>" + QByteArray(17, 'W'),
                                  "<L01><SA><CB>HH:MM DD MMM YYYY ~A",
                                  "<L01><SE>" + QByteArray(500, '.'),
                                  "<L01>a" + QByteArray(500, ' '),
                                  "<L01>a" + QByteArray(500, ' ') + "b",
                                  "<L01><CJ>" + QByteArray(500, ' ')};
  for (const QByteArray& row : rows) {
    SCOPED_TRACE(row.left(40).toStdString());
    ExpectShownAsSent(Write(row + "\r\n<L02>\r\n"), kDimension);
  }
}

TEST_F(SchedulePageTest, OfRowsOfAMegabyteNoMoreIsHeldThanThePanelShows) {
  for (const char filling : {'W', ' '}) {
    const QByteArray row = QByteArray(kMegabyte - 10, filling) + "\r\n";
    const SchedulePage page = ReadSchedulePage(Write("<L01>" + row + "<L02>" + row), kDimension);
    EXPECT_EQ(page.refusal, QString());
    for (const int number : {1, 2}) {
      EXPECT_GT(page.rows[number].size(), 80 / 6);
      EXPECT_LE(page.rows[number].capacity(), 80);
      EXPECT_LE(page.rows_of_one_colour[number].capacity(), 80);
    }
  }
}

TEST_F(SchedulePageTest, WhatTheScheduleCannotBeSentWithIsRefused) {
  EXPECT_EQ(ReadSchedulePage(folder_.Path(u"b.msg"_s), kDimension).refusal, u"File not found"_s);
  EXPECT_EQ(ReadSchedulePage(folder_.Path({}), kDimension).refusal, u"File not found"_s)
      << "a folder";
  const QString unreadable = u"Error in opening file"_s;
  EXPECT_EQ(ReadSchedulePage(folder_.Write(u"c.msg"_s, QByteArray(4000, 'x')), kDimension).refusal,
            unreadable);
  EXPECT_EQ(ReadSchedulePage(Write("<L01>one row\r\n"), kDimension).refusal, unreadable);
  EXPECT_EQ(
      ReadSchedulePage(Write("<L01>" + QByteArray(kMegabyte, 'x') + "\r\n<L02>\r\n"), kDimension)
          .refusal,
      unreadable);
  const QString path = Write("<L01>a\r\n", "Row = 1\r\nCol = 80\r\n");
  EXPECT_EQ(ReadSchedulePage(path, kDimension).refusal, u"Dimension Not Match"_s);
  const QString high = Write(QByteArray("<L01>a\r\n").repeated(13), "Row = 13\r\nCol = 80\r\n");
  EXPECT_EQ(ReadSchedulePage(high, {13, 80}).refusal, unreadable) << "no panel has so many rows";
}

}  // namespace
}  // namespace Brivon1
