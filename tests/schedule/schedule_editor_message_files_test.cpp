// The message files that the schedule editor takes, and those that it refuses.
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include "schedule/schedule_editor.h"

namespace {

TEST_F(ScheduleEditor, TheAddDialogOffersMessageFiles) {
  New();
  Choose("butAdd", QString());
  EXPECT_EQ(dialogs_, 1);
  EXPECT_EQ(dialog_.title, Text("Add Message"));
  EXPECT_EQ(dialog_.filters, Lines({"Message File(*.msg)", "All (*)"}));
  EXPECT_EQ(dialog_.filter, Text("Message File(*.msg)"));
  EXPECT_EQ(dialog_.folder, QFileInfo(folder_.Path(Text("x"))).absolutePath());
  EXPECT_EQ(Rows(), Lines({"End|||"}));
  EXPECT_FALSE(Asks());
  Choose("butInsert", QString());
  EXPECT_EQ(dialog_.title, Text("Add Message"));
  EXPECT_EQ(properties_, 0);
}

TEST_F(ScheduleEditor, AddingTheSameMessageFileTwiceUsesOneDistinctListEntryA27thIsRefused) {
  New();
  Add(Message(1));
  Add(Message(1));
  // A file stays listed also where its property dialog is cancelled.
  for (int number = 2; number <= 26; ++number) AddCancelled(Message(number));
  EXPECT_EQ(properties_, 27);
  EXPECT_EQ(Rows(), Lines({"1|1.msg|5|Flip", "2|1.msg|5|Flip", "End|||"}));
  const MessageBoxReader boxes;
  Add(Message(27));
  Properties({}, {}, [&] { Choose("butInsert", Message(27)); });
  EXPECT_EQ(boxes.Texts(), Lines({kAddRefusal, kInsertRefusal}));
  EXPECT_EQ(boxes.Seen()[0].title, Text("Schedule"));
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
  EXPECT_EQ(properties_, 27);
  Add(Message(26));
  EXPECT_EQ(Rows().size(), 4);
  // Delete fills the list anew from the files that are left.
  Click(1);
  Press("butDelete");
  Add(Message(27));
  EXPECT_EQ(boxes.Seen().size(), 2);
  EXPECT_EQ(Order(), Text("12627"));
}

TEST_F(ScheduleEditor, AMessageFileOfAnotherDimensionIsRefusedEvenIfItIsOtherwiseValid) {
  NewSchedule(1);
  const MessageBoxReader boxes;
  Add(Message("rows.msg", "Row = 4\r\nCol = 80\r\n"));
  Add(Message("columns.msg", "Row = 2\r\nCol = 96\r\n"));
  Choose("butInsert", Message("turned.msg", "Row = 80\r\nCol = 2\r\n"));
  Choose(folder_.Path(Text("rows.msg")), [&] { DoubleClick(1, 1); });
  EXPECT_EQ(boxes.Texts(), Lines({"Dimension not matched!", "Dimension not matched!",
                                  "Dimension not matched!", "Dimension not matched!"}));
  EXPECT_EQ(boxes.Seen()[0].title, Text("Schedule"));
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
  EXPECT_EQ(properties_, 1);
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, AFileThatIsNoMessageIsRefused) {
  NewSchedule(1);
  const MessageBoxReader boxes;
  const QString other = folder_.Write(Text("other.msg"), "*** brivon message file ***\r\n\r\n\r\n");
  Add(other);
  Choose("butInsert", folder_.Write(Text("short.msg"), "*** Brivon Message File ***\r"));
  Choose(other, [&] { DoubleClick(1, 1); });
  EXPECT_EQ(boxes.Texts(), Lines({"Not Message File Format!", "Not Message File Format!",
                                  "Not Message File Format!"}));
  EXPECT_EQ(Order(), Text("1"));
}

TEST_F(ScheduleEditor, AChosenFileThatDoesNotExistGivesTheMessageAndNothingElseChanges) {
  NewSchedule(1);
  const MessageBoxReader boxes;
  const QString missing = folder_.Path(Text("missing"));
  Add(missing);
  Choose("butInsert", missing);
  Choose("butOpen", missing);
  Choose(missing, [&] { DoubleClick(1, 1); });
  EXPECT_EQ(boxes.Texts(),
            Lines({"File not found!", "File not found!", "File not found!", "File not found!"}));
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SCH")));
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, APathLongerThanItsFieldIsRefusedWhenItIsChosen) {
  NewSchedule(1);
  const QString folder = folder_.Path(QString(100, QLatin1Char('d')));
  ASSERT_TRUE(QDir().mkpath(folder));
  ASSERT_TRUE(QFile::copy(Message(2), folder + Text("/2.msg")));
  const MessageBoxReader boxes;
  Add(folder + Text("/2.msg"));
  Choose("butInsert", folder + Text("/2.msg"));
  Choose(folder + Text("/2.msg"), [&] { DoubleClick(1, 1); });
  Choose("butSaveAs", folder + Text("/a.sch"));
  EXPECT_EQ(boxes.Texts(),
            Lines({"Invalid path!", "Invalid path!", "Invalid path!", "Invalid path!"}));
  EXPECT_EQ(properties_, 1);
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SCH")));
}

TEST_F(ScheduleEditor, AFileDialogThatIsCancelledChangesNothing) {
  NewSchedule(1);
  Choose("butSaveAs", QString());
  Open(QString());
  Choose(QString(), [&] { DoubleClick(1, 1); });
  EXPECT_EQ(dialogs_, 4);
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SCH")));
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, AnotherFileForASlotTheDistinctListIsBuiltAnew) {
  New();
  Add(Message(1));
  for (int number = 2; number <= 26; ++number) AddCancelled(Message(number));
  const MessageBoxReader boxes;
  Choose(Message(27), [&] { DoubleClick(1, 1); });
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(Order(), Text("27"));
  Add(Message(28));
  EXPECT_EQ(Order(), Text("2728"));
}

TEST_F(ScheduleEditor, PathsKeepTheirBytesInTheCodePage) {
  New();
  Add(Message("Fu\xC3\x9Fg\xC3\xA4nger.msg"));
  Press("butSave");
  EXPECT_TRUE(folder_.Read(Text("NEW.SCH")).contains("/Fu\xDFg\xE4nger.msg "));
  Open(folder_.Path(Text("NEW.SCH")));
  EXPECT_EQ(Rows()[0], Text("1|Fußgänger.msg|5|Flip"));
  const MessageBoxReader boxes;
  Add(Message("中.msg"));  // what the code page does not have cannot be stored
  EXPECT_EQ(boxes.Texts(), Lines({"Invalid path!"}));
  EXPECT_EQ(Table()->model()->rowCount(), 2);
}

TEST_F(ScheduleEditor, ALinkedFileOrFolderNameWithBlanksIsNoTrouble) {
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("my signs"))));
  ASSERT_TRUE(QFile::rename(Message(1), folder_.Path(Text("my signs/one 1.msg"))));
  New();
  Add(folder_.Path(Text("my signs/one 1.msg")));
  EXPECT_EQ(Rows()[0], Text("1|my signs/one 1.msg|5|Flip"));
}

}  // namespace
