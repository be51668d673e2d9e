// The page of the selected step, beside the table of a schedule.
#include <QCheckBox>
#include <QKeySequence>
#include <QSemaphore>

#include <gtest/gtest.h>

#include "schedule/schedule_preview_window.h"
#include "support/paint_watcher.h"

using namespace Qt::StringLiterals;

namespace {

class SchedulePreviewTest : public SchedulePreviewWindow {
 protected:
  /// The note in place of the panel, once it is one of these words.
  std::string AwaitNote(const char* note) {
    WaitUntil([&] { return Note()->text() == Text(note); });
    EXPECT_EQ(Picture()->isVisible(), Note()->text().isEmpty());
    EXPECT_EQ(Note()->isVisible(), !Note()->text().isEmpty());
    return Note()->text().toStdString();
  }
};

TEST_F(SchedulePreviewTest, ThePageOfTheSelectedStepIsShown) {
  OpenThreePages();
  EXPECT_EQ(Row(1), Text("1"));
  EXPECT_EQ(Row(2), Text("of two"));
  EXPECT_EQ(Picture()->Picture().shape.rows, 2);
  EXPECT_EQ(Picture()->Picture().shape.columns, 80);
  EXPECT_TRUE(Picture()->Picture().shape.tri_colour);
  Key(Qt::Key_Down);
  EXPECT_EQ(Row(), Text("2"));
  EXPECT_FALSE(Window().IsModified());
}

TEST_F(SchedulePreviewTest, ItSaysWhichStepItShowsAndWhatThePageReads) {
  OpenThreePages();
  EXPECT_EQ(Name(Picture()), "Step 1: 1.msg");
  EXPECT_EQ(Picture()->accessibleDescription(), Text("1\nof two"));
  Click(3);
  EXPECT_EQ(Name(Picture()), "Step 3: 3.msg");
  Click(4);  // "End"
  EXPECT_EQ(Name(Picture()), "Preview on a panel");
  EXPECT_EQ(Picture()->accessibleDescription(), QString());
  EXPECT_EQ(PanelDots::DotsOf(Picture()->Picture(), 0), PanelDots::DotMatrix(80, 16)) << "dark";
}

TEST_F(SchedulePreviewTest, WhatIsNoPageForThePanelIsSaidInItsPlace) {
  Page("1.msg", "a");
  Message("small.msg", "Row = 1\r\nCol = 80\r\n");
  folder_.Write(Text("other.msg"), QByteArray(100, 'x'));
  OpenSteps({{"1.msg", 1, "Flip"},
             {"gone.msg", 1, "Flip"},
             {"small.msg", 1, "Flip"},
             {"other.msg", 1, "Flip"},
             {"", 1, "Flip"}});
  EXPECT_EQ(AwaitNote(""), "");
  Click(2);
  EXPECT_EQ(AwaitNote("File not found"), "File not found");
  EXPECT_EQ(Note()->accessibleDescription(), Text("Step 2: gone.msg"));
  Click(3);
  EXPECT_EQ(AwaitNote("Dimension Not Match"), "Dimension Not Match");
  Click(4);
  EXPECT_EQ(AwaitNote("Error in opening file"), "Error in opening file");
  Click(5);
  EXPECT_EQ(AwaitNote("File not found"), "File not found");
  Click(1);
  EXPECT_EQ(AwaitNote(""), "");
  EXPECT_EQ(Row(), Text("a"));
}

TEST_F(SchedulePreviewTest, AFileThatWasChangedIsReadAgainWhenTheWindowComesBack) {
  OpenThreePages();
  Page("1.msg", "other");
  QWidget in_front;
  in_front.show();
  ActivateWindow(&in_front);
  Activate();
  EXPECT_TRUE(WaitUntil([this] { return Row() == Text("other"); }));
}

TEST_F(SchedulePreviewTest, AnEditIsSeenAtOnce) {
  OpenThreePages();
  Press("butDelete");
  EXPECT_EQ(Row(), Text("2"));
  EXPECT_EQ(Name(Picture()), "Step 1: 2.msg");
}

TEST_F(SchedulePreviewTest, NewAndAnotherSizeGiveAnotherPanel) {
  OpenThreePages();
  folder_.Configure("[Dimension Config]\r\nID001=4x96,Tri,127.0.0.1:80\r\n");
  New();
  EXPECT_EQ(Picture()->Picture().shape.rows, 4);
  EXPECT_EQ(Picture()->Picture().shape.columns, 96);
  EXPECT_FALSE(Button("butPlay")->isEnabled());
  EXPECT_TRUE(Picture()->Picture().rows.isEmpty());
}

TEST_F(SchedulePreviewTest, ADriveThatDoesNotAnswerKeepsNobodyWaiting) {
  const auto answers = std::make_shared<QSemaphore>();
  is_there_ = [answers](const QString& /*path*/) {
    answers->acquire();
    return true;
  };
  Page("1.msg", "late");
  OpenSteps({{"1.msg", 1, "Flip"}, {"2.msg", 1, "Flip"}});
  EXPECT_EQ(AwaitNote("Reading 1.msg"), "Reading 1.msg");
  Click(2);
  EXPECT_EQ(AwaitNote("Reading 2.msg"), "Reading 2.msg");
  Play();
  EXPECT_EQ(Note()->text(), Text("Reading 2.msg"));
  Press("butPlay");
  Click(1);
  answers->release(100);
  EXPECT_TRUE(WaitUntil([this] { return Row() == Text("late"); }));
  EXPECT_EQ(AwaitNote(""), "");
}

TEST_F(SchedulePreviewTest, DateAndTimeAreThoseOfNowAndTurnWithTheMinute) {
  Page("1.msg", "<SA><CA>HH:MM DD MMM YYYY");
  OpenSteps({{"1.msg", 1, "Flip"}});
  ASSERT_TRUE(WaitUntil([this] { return Row() == Text("10:30 21 NOV 2026"); }));
  EXPECT_EQ(Timer("clock_timer_")->interval(), 60'000);
  now_ = now_.addSecs(13 * 3600 + 30 * 60 + 20);
  QMetaObject::invokeMethod(Timer("clock_timer_"), "timeout", Qt::DirectConnection);
  EXPECT_EQ(Row(), Text("00:00 22 NOV 2026"));
  EXPECT_EQ(Timer("clock_timer_")->interval(), 40'000);
}

TEST_F(SchedulePreviewTest, NothingMovesBesideWhatBlinks) {
  OpenThreePages();
  for (const char* timer : {"blink_timer_", "clock_timer_", "entrance_timer_", "step_timer_"}) {
    EXPECT_FALSE(Timer(timer)->isActive()) << timer;
  }
  Page("blink.msg", "<SE><CA>blinks");
  OpenSteps({{"blink.msg", 1, "Flip"}});
  ASSERT_TRUE(WaitUntil([this] { return Row() == Text("blinks"); }));
  EXPECT_TRUE(Timer("blink_timer_")->isActive());
  EXPECT_FALSE(Timer("clock_timer_")->isActive());
  Window().showMinimized();
  EXPECT_FALSE(Timer("blink_timer_")->isActive());
  Window().showNormal();
  EXPECT_TRUE(Timer("blink_timer_")->isActive());
}

TEST_F(SchedulePreviewTest, NothingIsDrawnOrReadForAPreviewThatIsHidden) {
  Page("1.msg", "<SE><CA>HH:MM");
  Window();
  MoveSplitter(600, 0);
  const PaintWatcher watcher(Picture());
  OpenSteps({{"1.msg", 1, "Flip"}});
  EXPECT_EQ(AwaitNote("Reading 1.msg"), "Reading 1.msg");
  EXPECT_TRUE(watcher.Painted().isEmpty());
  EXPECT_FALSE(Timer("blink_timer_")->isActive());
  MoveSplitter(400, 200);
  EXPECT_TRUE(WaitUntil([this] { return Row() == Text("10:30"); }));
  EXPECT_TRUE(Timer("blink_timer_")->isActive());
  EXPECT_TRUE(Timer("clock_timer_")->isActive());
  EXPECT_TRUE(WaitUntil([&] { return !watcher.Painted().isEmpty(); }));
  Play();
  MoveSplitter(600, 0);
  EXPECT_FALSE(IsPlaying());
  EXPECT_FALSE(Timer("blink_timer_")->isActive());
  EXPECT_FALSE(Timer("clock_timer_")->isActive());
}

TEST_F(SchedulePreviewTest, ThePageIsShownAsOnAPanelOfOneColour) {
  Page("1.msg", "<SA><CB>green  ");
  OpenSteps({{"1.msg", 1, "Flip"}});
  ASSERT_TRUE(WaitUntil([this] { return Row() == Text("green  "); }));
  auto* box = Find<QCheckBox>("chkOneColor");
  EXPECT_EQ(box->toolTip(), QKeySequence(Text("Shift+F9")).toString(QKeySequence::NativeText));
  Key(Qt::Key_F9, Qt::ShiftModifier);
  EXPECT_TRUE(box->isChecked());
  EXPECT_FALSE(Picture()->Picture().shape.tri_colour);
  EXPECT_EQ(Row(), Text("green")) << "the blanks at the end are not sent";
  EXPECT_EQ(Picture()->Picture().rows[1].first().colour, 'A');
  QTest::mouseClick(box, Qt::LeftButton);
  EXPECT_TRUE(Picture()->Picture().shape.tri_colour);
  EXPECT_EQ(Picture()->Picture().rows[1].first().colour, 'B');
  EXPECT_FALSE(Window().IsModified());
}

TEST_F(SchedulePreviewTest, APanelOfOneColourPlaysToo) {
  OpenThreePages();
  Key(Qt::Key_F9, Qt::ShiftModifier);
  Play();
  EXPECT_FALSE(Picture()->Picture().shape.tri_colour);
  EXPECT_EQ(Row(), Text("1"));
  Key(Qt::Key_F9, Qt::ShiftModifier);
  EXPECT_FALSE(IsPlaying());
  EXPECT_TRUE(Find<QCheckBox>("chkOneColor")->isChecked()) << "the key has stopped it, no more";
}

}  // namespace
