// The schedule editor's table: its rows and columns, what it scrolls to, tool tips, and the files
// that are missing on the disk.
#include <QApplication>
#include <QBrush>
#include <QFile>
#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <gtest/gtest.h>

#include "schedule/schedule_editor.h"

namespace {

TEST_F(ScheduleEditor, TheHeadingRowStandsAboveTheSequencesAndEnd) {
  // The heading is row 0: with it, the table has two rows more than sequences.
  EXPECT_TRUE(Table()->horizontalHeader()->isVisibleTo(&Window()));
  const char* const headings[] = {"", "Message File", "Delay", "Feature"};
  ASSERT_EQ(Table()->model()->columnCount(), 4);
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(Heading(column), Text(headings[column]));
  }
  New();
  EXPECT_EQ(1 + Table()->model()->rowCount(), 0 + 2);
  Add(Message(1), "7", "Wipe Left");
  Add(Message(2), "99", "Shift");
  EXPECT_EQ(1 + Table()->model()->rowCount(), 2 + 2);
  EXPECT_EQ(Rows(), Lines({"1|1.msg|7|Wipe Left", "2|2.msg|99|Shift", "End|||"}));
}

TEST_F(ScheduleEditor, TheColumnsShareTheTableAs500To3500To700To1000) {
  for (const int width : {760, 1200, 1900}) {
    Window().resize(width, 480);
    const int room = Table()->viewport()->width();
    EXPECT_NEAR(Table()->columnWidth(0), room * 500 / 5700.0, 1);
    EXPECT_NEAR(Table()->columnWidth(1), room * 3500 / 5700.0, 3);
    EXPECT_NEAR(Table()->columnWidth(2), room * 700 / 5700.0, 1);
    EXPECT_NEAR(Table()->columnWidth(3), room * 1000 / 5700.0, 1);
    EXPECT_EQ(Table()->horizontalHeader()->length(), room);
  }
  Window().resize(1, 1);
  EXPECT_GE(Table()->columnWidth(0), 33);
  EXPECT_GE(Table()->columnWidth(1), 233);
  EXPECT_GE(Table()->columnWidth(2), 46);
  EXPECT_GE(Table()->columnWidth(3), 66);
}

TEST_F(ScheduleEditor, AfterAnAddTheNewLastSequenceIsInSight) {
  Window().resize(1, 1);
  New();
  for (int number = 1; number <= 12; ++number) {
    Add(Message(number));
    const QRect cell = Table()->visualRect(At(number - 1, 1));
    EXPECT_TRUE(Table()->viewport()->rect().contains(cell)) << number;
    EXPECT_EQ(Table()->SelectedPosition(), number);
  }
  EXPECT_GT(Table()->verticalScrollBar()->value(), 0);
  // With fewer than 12 rows, heading and "End" among them, the first row is in sight again.
  for (int count = 12; count >= 10; --count) Press("butDelete");
  EXPECT_EQ(1 + Table()->model()->rowCount(), 11);
  EXPECT_EQ(Table()->verticalScrollBar()->value(), 0);
  EXPECT_EQ(Table()->SelectedPosition(), 9);
}

TEST_F(ScheduleEditor, TheEndStaysInSightBehindTheNewLastSequence) {
  NewSchedule(11);
  Window().resize(1, 1);
  Add(Message(12));
  const QRect end = Table()->visualRect(At(12, 0));
  EXPECT_TRUE(Table()->viewport()->rect().contains(end));
}

TEST_F(ScheduleEditor, ADeleteThatLeavesFewerThan12RowsScrollsTheFirstRowIntoView) {
  NewSchedule(12);
  Table()->setMinimumHeight(0);
  Table()->setMaximumHeight(150);  // fewer rows than there are, in any case
  Click(12);
  Press("butDelete");
  Press("butDelete");
  EXPECT_EQ(1 + Table()->model()->rowCount(), 12);
  EXPECT_GT(Table()->verticalScrollBar()->value(), 0);
  Press("butDelete");
  EXPECT_EQ(1 + Table()->model()->rowCount(), 11);
  EXPECT_EQ(Table()->verticalScrollBar()->value(), 0);
}

TEST_F(ScheduleEditor, AtItsSmallestTheWindowShowsTheWholeTable) {
  Window().resize(1, 1);
  const QRect frame(Find<QWidget>("FrameSchTable")->rect());
  const QPoint end = Table()->mapTo(Find<QWidget>("FrameSchTable"), Table()->rect().bottomRight());
  EXPECT_TRUE(frame.contains(end));
  EXPECT_LE(Window().width(), 800);
  EXPECT_LE(Window().height(), 600);
}

TEST_F(ScheduleEditor, AFileMissingOnTheDiskIsSeenInTheTable) {
  NewSchedule(2);
  const auto is_grey = [this](int position) {
    const QVariant brush = At(position - 1, 1).data(Qt::ForegroundRole);
    const bool grey = brush.value<QBrush>().color() != QColor(Qt::black) && brush.isValid();
    EXPECT_EQ(IsItalic(position - 1), grey);
    return grey;
  };
  const auto await_grey = [&](int position, bool grey) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return is_grey(position) == grey; }, 60000));
  };
  EXPECT_FALSE(is_grey(1) || is_grey(2) || is_grey(3));
  // A file goes while another window is in front.
  QWidget other;
  other.show();
  ActivateWindow(&other);
  ASSERT_TRUE(QFile::remove(folder_.Path(Text("2.msg"))));
  EXPECT_FALSE(is_grey(2));
  Activate();
  await_grey(2, true);
  EXPECT_FALSE(is_grey(1));
  ActivateWindow(&other);
  Message(2);
  Activate();
  await_grey(2, false);
}

TEST_F(ScheduleEditor, AFileNamedWithoutItsFolderIsLookedForInTheProgramsFolder) {
  Message("here.msg");
  Open(folder_.Write(Text("r.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                        "No of Sequence =2\r\n" + Field("here.msg", 100) +
                                        "\r\n1\r\nFlip\r\n" + Field("gone.msg", 100) +
                                        "\r\n2\r\nFall\r\n"));
  EXPECT_EQ(Rows(), Lines({"1|here.msg|1|Flip", "2|gone.msg|2|Fall", "End|||"}));
  EXPECT_TRUE(QTest::qWaitFor([this] { return IsItalic(1); }, 60000));
  EXPECT_FALSE(IsItalic(0));
  EXPECT_FALSE(IsItalic(2));  // "End" names none
}

TEST_F(ScheduleEditor, ToolTipsShowTheWholePathLetterByLetter) {
  New();
  const QString path = folder_.Path(Text("<b>bold.msg"));
  ASSERT_TRUE(QFile::rename(Message(1), path));
  Add(path);
  const auto tool_tip = [this](int position, int column) {
    const QPoint at = Cell(position, column);
    QHelpEvent help(QEvent::ToolTip, at, Table()->viewport()->mapToGlobal(at));
    QApplication::sendEvent(Table()->viewport(), &help);
    return QToolTip::text();
  };
  const auto shown_letters = [&] {
    const QString tip = tool_tip(1, 1);
    return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
  };
  EXPECT_EQ(shown_letters(), path);
  ASSERT_TRUE(QFile::remove(path));
  Table()->LookForFiles();
  EXPECT_TRUE(QTest::qWaitFor([&] { return IsItalic(0); }, 60000));
  EXPECT_EQ(shown_letters(), path + Text("\nFile not found"));
  EXPECT_EQ(tool_tip(1, 3), Text("Flip"));
  tool_tip(2, 3);  // behind "End" stands nothing
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
  // A heading that is cut has one too.
  auto* heading = Table()->horizontalHeader()->viewport();
  QHelpEvent help(QEvent::ToolTip, QPoint(200, 5), heading->mapToGlobal(QPoint(200, 5)));
  QApplication::sendEvent(heading, &help);
  EXPECT_EQ(QToolTip::text(), Text("Message File"));
}

TEST_F(ScheduleEditor, OfALongPathTheFilesNameStaysInSight) {
  const QByteArray folder = "C:\\" + QByteArray(60, 'd') + "\\";
  const auto open = [&](const QByteArray& name) {
    Open(folder_.Write(Text("p.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                          "No of Sequence =1\r\n" + Field(folder + name, 100) +
                                          "\r\n1\r\nFlip\r\n"));
    Window().resize(1, 1);
    Table()->clearSelection();
    return Table()->viewport()->grab(Table()->visualRect(At(0, 1))).toImage();
  };
  const QImage first = open("a lane is closed ahead.msg");
  EXPECT_NE(open("b lane is closed ahead.msg"), first);
  EXPECT_NE(open("a lane is closed ahead.msh"), first);
}

}  // namespace
