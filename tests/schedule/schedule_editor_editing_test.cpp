// Editing a schedule: sequences that come, go and change.
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>

#include <gtest/gtest.h>

#include "schedule/schedule_editor.h"

namespace {

TEST_F(ScheduleEditor, AfterAddTheSequencesButtonsAreEnabled) {
  New();
  Add(Message(1));
  for (const char* name : {"butSave", "butSaveAs", "butSend", "butDelete", "butClear"}) {
    EXPECT_TRUE(Button(name)->isEnabled()) << name;
  }
  EXPECT_TRUE(Asks());
}

TEST_F(ScheduleEditor, The13thAddIsRefusedWithScheduleIsFullBeforeAnyFileDialogAppears) {
  NewSchedule(12);
  EXPECT_EQ(dialogs_, 12);
  const MessageBoxReader boxes;
  Add(Message(13));
  Choose("butInsert", Message(13));
  EXPECT_EQ(dialogs_, 12);
  EXPECT_EQ(boxes.Texts(), Lines({kFull, kFull}));
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, Text("Schedule"));
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
    EXPECT_EQ(box.parent, &Window());
  }
  EXPECT_EQ(Table()->model()->rowCount(), 13);
  EXPECT_FALSE(Asks());
  Click(1);
  Press("butDelete");
  Add(Message(13));
  EXPECT_EQ(Order(), Text("2345678910111213"));
}

TEST_F(ScheduleEditor, AddStartsWithAppearAndOneSecondAndThenWithTheDelayGivenLast) {
  New();
  Add(Message(1), "", "");
  EXPECT_EQ(shown_delay_, Text("1"));
  EXPECT_EQ(shown_feature_, Text("Appear"));
  Add(Message(2), "12", "Slide");
  Add(Message(3), "", "");
  EXPECT_EQ(shown_delay_, Text("12"));
  EXPECT_EQ(shown_feature_, Text("Appear"));
  EXPECT_EQ(Rows(), Lines({"1|1.msg|1|Appear", "2|2.msg|12|Slide", "3|3.msg|12|Appear", "End|||"}));
  // What a cancelled dialog or a look at another sequence showed is not given.
  AddCancelled(Message(4));
  Properties({}, {}, [&] { DoubleClick(1, 2); });
  Add(Message(4), "", "");
  EXPECT_EQ(shown_delay_, Text("12"));
}

TEST_F(ScheduleEditor, ACancelledPropertyDialogAddsNothing) {
  NewSchedule(1);
  AddCancelled(Message(2));
  Properties(
      {}, {}, [&] { Choose("butInsert", Message(2)); }, false);
  EXPECT_EQ(properties_, 3);
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, InsertGoesInAtTheSelectedRowAndTheLaterSlotsMoveDown) {
  NewSchedule(3);
  Click(2);
  Properties(Text("9"), Text("Fall"), [&] { Choose("butInsert", Message(4)); });
  EXPECT_EQ(Rows(), Lines({"1|1.msg|5|Flip", "2|4.msg|9|Fall", "3|2.msg|5|Flip", "4|3.msg|5|Flip",
                           "End|||"}));
  EXPECT_EQ(Table()->SelectedPosition(), 2);
  EXPECT_TRUE(Asks());
  Click(1);
  Properties({}, {}, [&] { Choose("butInsert", Message(5)); });
  EXPECT_EQ(Order(), Text("51423"));
}

TEST_F(ScheduleEditor, InsertWithoutASelectedSequenceRowAppends) {
  NewSchedule(1);
  Click(2);  // "End"
  Properties({}, {}, [&] { Choose("butInsert", Message(2)); });
  EXPECT_EQ(Order(), Text("12"));
  EXPECT_EQ(Table()->SelectedPosition(), 2);
  Table()->clearSelection();
  Properties({}, {}, [&] { Choose("butInsert", Message(3)); });
  EXPECT_EQ(Order(), Text("123"));
  EXPECT_EQ(Table()->SelectedPosition(), 3);
}

TEST_F(ScheduleEditor, DeleteTakesTheSelectedRowOutAndTheSelectionFollows) {
  NewSchedule(4);
  Click(2);
  Press("butDelete");
  EXPECT_EQ(Order(), Text("134"));
  EXPECT_EQ(Table()->SelectedPosition(), 2);
  EXPECT_TRUE(Asks());
  Click(3);
  Press("butDelete");
  EXPECT_EQ(Order(), Text("13"));
  EXPECT_EQ(Table()->SelectedPosition(), 2);
}

TEST_F(ScheduleEditor, DeleteOnARowOutsideTheSequencesDoesNothing) {
  NewSchedule(2);
  Click(3);
  Press("butDelete");
  Table()->clearSelection();
  Press("butDelete");
  EXPECT_EQ(Order(), Text("12"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, DeletingTheOnlySequenceLeavesJustTheHeadingAndEndRowsAndDisablesSave) {
  NewSchedule(1);
  Click(1);
  Press("butDelete");
  EXPECT_TRUE(Table()->horizontalHeader()->isVisible());
  EXPECT_EQ(Rows(), Lines({"End|||"}));
  for (const char* name : {"butSave", "butSaveAs", "butSend", "butDelete", "butClear"}) {
    EXPECT_FALSE(Button(name)->isEnabled()) << name;
  }
  EXPECT_TRUE(Button("butAdd")->isEnabled());
  EXPECT_TRUE(Asks());
}

TEST_F(ScheduleEditor, ClearEmptiesTheSequencesAndTheDifferentFilesAndKeepsTheSlot) {
  New();
  for (int number = 1; number <= 26; ++number) AddCancelled(Message(number));
  Add(Message(1));
  Find<QLineEdit>("txtHour")->setText(Text("7"));
  Press("butSave");
  Press("butClear");
  EXPECT_EQ(Rows(), Lines({"End|||"}));
  EXPECT_FALSE(Button("butSave")->isEnabled());
  EXPECT_EQ(Find<QLineEdit>("txtHour")->text(), Text("7"));
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("2"));
  EXPECT_TRUE(Asks());
  Add(Message(27));
  EXPECT_EQ(Order(), Text("27"));
}

TEST_F(ScheduleEditor, ClearWeekdayHourAndMinuteChangesAreEdits) {
  NewSchedule(1);
  const auto is_edit = [this](auto act) {
    EXPECT_FALSE(Asks());
    act();
    const bool asked = Asks();
    if (Button("butSave")->isEnabled()) Press("butSave");
    return asked;
  };
  EXPECT_TRUE(is_edit([&] {
    Find<QComboBox>("comboWeek")->setFocus();
    Key(Qt::Key_Down);
  }));
  EXPECT_TRUE(is_edit([&] {
    Find<QLineEdit>("txtHour")->setFocus();
    Key(Qt::Key_End);
    Key(Qt::Key_Backspace);
  }));
  EXPECT_TRUE(is_edit([&] {
    Find<QLineEdit>("txtMin")->setFocus();
    QTest::keyClicks(Find<QLineEdit>("txtMin"), Text("5"));
  }));
  EXPECT_TRUE(is_edit([&] { Press("butClear"); }));
}

TEST_F(ScheduleEditor, DoubleClickOnColumn1ChoosesAnotherMessageFileForThatSlot) {
  NewSchedule(2);
  Choose(Message(3), [&] { DoubleClick(1, 1); });
  EXPECT_EQ(dialog_.title, Text("Message File"));
  EXPECT_EQ(dialog_.filters, Lines({"Message File(*.msg)"}));
  EXPECT_EQ(properties_, 2);
  EXPECT_EQ(Rows(), Lines({"1|3.msg|5|Flip", "2|2.msg|5|Flip", "End|||"}));
  EXPECT_EQ(Table()->SelectedPosition(), 1);
  EXPECT_TRUE(Asks());
}

TEST_F(ScheduleEditor, DoubleClickOnTheOtherColumnsAsksForDelayAndFeature) {
  New();
  Add(Message(1), "30", "Wipe Left");
  Add(Message(2), "40", "Shift");
  Press("butSave");
  for (const int column : {0, 2, 3}) {
    Properties({}, {}, [&] { DoubleClick(1, column); });
    EXPECT_EQ(shown_delay_, Text("30"));
    EXPECT_EQ(shown_feature_, Text("Wipe Left"));
  }
  EXPECT_EQ(properties_, 2 + 3);
  EXPECT_FALSE(Asks());  // nothing was changed
  Properties(
      Text("31"), Text("Slide"), [&] { DoubleClick(1, 3); }, false);
  EXPECT_EQ(Rows()[0], Text("1|1.msg|30|Wipe Left"));
  EXPECT_FALSE(Asks());
  Properties(Text("31"), Text("Slide"), [&] { DoubleClick(2, 3); });
  EXPECT_EQ(Rows(), Lines({"1|1.msg|30|Wipe Left", "2|2.msg|31|Slide", "End|||"}));
  EXPECT_EQ(Table()->SelectedPosition(), 2);
  EXPECT_TRUE(Asks());
}

TEST_F(ScheduleEditor, DoubleClickOnEndOrWithAnotherButtonDoesNothing) {
  NewSchedule(1);
  const FileChooser cancelled{QString()};
  Properties({}, {}, [&] {
    for (int column = 0; column < 4; ++column) DoubleClick(2, column);
    DoubleClick(1, 1, Qt::RightButton);
    DoubleClick(1, 2, Qt::MiddleButton);
  });
  EXPECT_EQ(cancelled.Count(), 0);
  EXPECT_EQ(properties_, 1);
}

TEST_F(ScheduleEditor, BlanksBeforeAStoredFeatureStayWhereThePropertyDialogChangesNothing) {
  Open(folder_.Write(Text("b.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                        "No of Sequence =1\r\n" + PathLine(Message(1)) + "7\r\n" +
                                        Field("  Fall", 20) + "\r\n"));
  Properties({}, {}, [&] { DoubleClick(1, 2); });
  EXPECT_EQ(shown_feature_, Text("Fall"));
  EXPECT_FALSE(Asks());
  Properties(Text("8"), {}, [&] { DoubleClick(1, 2); });
  Press("butSave");
  EXPECT_TRUE(folder_.Read(Text("b.sch")).endsWith("\r\n8\r\n  Fall              \r\n"));
}

TEST_F(ScheduleEditor, AStoredDelayOutside1To99ThePropertyDialogStartsAtTheNearestValidOne) {
  Open(folder_.Write(Text("d.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                        "No of Sequence =2\r\n" + PathLine(Message(1)) +
                                        "-7\r\nFlip\r\n" + PathLine(Message(2)) +
                                        "500\r\n FALL\r\n"));
  EXPECT_EQ(Rows(), Lines({"1|1.msg|-7|Flip", "2|2.msg|500|FALL", "End|||"}));
  Properties(
      {}, {}, [&] { DoubleClick(1, 2); }, false);
  EXPECT_EQ(shown_delay_, Text("1"));
  Properties({}, {}, [&] { DoubleClick(2, 2); });
  EXPECT_EQ(shown_delay_, Text("99"));
  EXPECT_EQ(shown_feature_, Text("Fall"));
  EXPECT_EQ(Rows(), Lines({"1|1.msg|-7|Flip", "2|2.msg|99|Fall", "End|||"}));
  Add(Message(3), "", "");
  EXPECT_EQ(shown_delay_, Text("1"));
}

TEST_F(ScheduleEditor, EnterAsksForThePropertiesF2ForAnotherFile) {
  NewSchedule(2);
  Click(2);
  Properties(Text("8"), {}, [&] { Key(Qt::Key_Return); });
  Properties({}, Text("Open"), [&] { Key(Qt::Key_Enter); });
  EXPECT_EQ(Rows(), Lines({"1|1.msg|5|Flip", "2|2.msg|8|Open", "End|||"}));
  Key(Qt::Key_Up);
  Choose(Message(3), [&] { Key(Qt::Key_F2); });
  EXPECT_EQ(Order(), Text("32"));
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Table()->SelectedPosition(), 3);
  Choose(Message(3), [&] { Key(Qt::Key_F2); });
  Properties({}, {}, [&] { Key(Qt::Key_Return); });
  EXPECT_EQ(properties_, 4);
  EXPECT_EQ(dialogs_, 3);
}

TEST_F(ScheduleEditor, InsertAndDeleteKeysOnTheTable) {
  NewSchedule(3);
  Click(2);
  Properties({}, {}, [&] { Choose(Message(4), [&] { Key(Qt::Key_Insert); }); });
  EXPECT_EQ(Order(), Text("1423"));
  Key(Qt::Key_Delete);
  EXPECT_EQ(Order(), Text("123"));
  Key(Qt::Key_Delete);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Order(), Text("1"));
  Key(Qt::Key_Delete);
  EXPECT_EQ(Rows(), Lines({"End|||"}));
  Key(Qt::Key_Delete);  // nothing left
  EXPECT_EQ(Rows(), Lines({"End|||"}));
}

TEST_F(ScheduleEditor, AKeyHeldTooLongTakesOneRowOut) {
  NewSchedule(4);
  Click(2);
  for (const bool repeated : {false, true, true, true}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), repeated);
    QApplication::sendEvent(Table(), &press);
  }
  EXPECT_EQ(Order(), Text("134"));
}

}  // namespace
