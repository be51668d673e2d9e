// Leaving a schedule with unsaved work, and handing it over to be sent.
#include <QComboBox>
#include <QDir>

#include <gtest/gtest.h>

#include "schedule/schedule_editor.h"
#include "support/full_disk.h"

namespace {

TEST_F(ScheduleEditor, TheSaveQuestionHasAQuestionIconYesNoCancelAndTheWindowsCaptionAsTitle) {
  New();
  Add(Message(1));
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const FileChooser file{QString()};
  const ModalWindowDriver send(Text("frmSendSch"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;  // answers with Cancel
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) Press(name);
  Window().close();
  Key(Qt::Key_Escape);
  Click(1);
  Key(Qt::Key_Escape);
  ASSERT_EQ(boxes.Seen().size(), 7);
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.text, Text(kQuestion));
    EXPECT_EQ(box.icon, QMessageBox::Question);
    EXPECT_EQ(box.title, Text("Schedule"));
    EXPECT_EQ(box.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    EXPECT_EQ(box.default_button, QMessageBox::Yes);
    EXPECT_EQ(box.escape_button, QMessageBox::Cancel);
    EXPECT_EQ(box.parent, &Window());
  }
  EXPECT_EQ(dimension.Count() + file.Count() + send.Count(), 0);
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")), "");
}

TEST_F(ScheduleEditor, YesToTheSaveQuestionClearsTheModifiedFlagWhenTheSaveSucceeded) {
  New();
  Add(Message(1));
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  New(false);
  EXPECT_TRUE(folder_.Read(Text("NEW.SCH")).contains("1.msg"));
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, AScheduleThatIsNotSavedIsMarkedBesideItsName) {
  const auto* mark = Find<QLabel>("lblNotSaved");
  New();
  EXPECT_FALSE(mark->isVisible());
  Find<QLineEdit>("txtHour")->setText(Text("12"));
  EXPECT_TRUE(mark->isVisible());
  EXPECT_EQ(mark->text(), Text("not saved"));
  EXPECT_EQ(Window().windowTitle(), Text("Schedule"));
  Add(Message(1));
  Press("butSave");
  EXPECT_FALSE(mark->isVisible());
  Find<QComboBox>("comboWeek")->setCurrentIndex(2);
  EXPECT_TRUE(mark->isVisible());
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(WriteSchedule("a.sch", 1, kHead));
  EXPECT_FALSE(mark->isVisible());
}

TEST_F(ScheduleEditor, TheSaveQuestionSaysWhatYesWritesAndWhatItReplaces) {
  New();
  folder_.Write(Text("NEW.SCH"), "of yesterday");
  Find<QLineEdit>("txtHour")->setText(Text("12"));
  const MessageBoxReader boxes;
  Press("butExit");
  // An empty schedule is refused.
  EXPECT_EQ(boxes.Seen()[0].informative, folder_.Path(Text("NEW.SCH")));
  Add(Message(1));
  Press("butExit");
  EXPECT_EQ(boxes.Seen()[1].informative, Text("It will be saved as \"%1\".\nAn older file of this "
                                              "name will be replaced.")
                                             .arg(folder_.Path(Text("NEW.SCH"))));
}

TEST_F(ScheduleEditor, CtrlReturnSendsWhereTheButtonIsEnabled) {
  const ModalWindowDriver send(Text("frmSendSch"), [](QWidget* w) { w->close(); });
  New();
  Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(send.Count(), 0);
  Add(Message(1));
  Press("butSave");
  Table()->setFocus();
  Key(Qt::Key_Return, Qt::ControlModifier);
  Activate();
  Key(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
  EXPECT_EQ(send.Count(), 2);
  EXPECT_EQ(Button("butSend")->toolTip(), Text("Ctrl+Return"));
}

TEST_F(ScheduleEditor, ExitYesSavesAndCloses) {
  New();
  Add(Message(1));
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  Press("butExit");
  EXPECT_FALSE(Window().isVisible());
  EXPECT_TRUE(folder_.Read(Text("NEW.SCH")).contains("1.msg"));
}

TEST_F(ScheduleEditor, ExitNoClosesWithoutSaving) {
  New();
  Add(Message(1));
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Press("butExit");
  EXPECT_FALSE(Window().isVisible());
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")), "");
}

TEST_F(ScheduleEditor, WithoutChangesTheWindowClosesWithoutAQuestion) {
  NewSchedule(1);
  const MessageBoxReader boxes;
  EXPECT_TRUE(Window().close());
  EXPECT_TRUE(boxes.Seen().isEmpty());
}

TEST_F(ScheduleEditor, ExitYesNoSequencesTheMessageAndTheWindowStays) {
  NewSchedule(1);
  Press("butClear");
  const QByteArray saved = folder_.Read(Text("NEW.SCH"));
  for (const char* name : {"butExit", "butNew", "butOpen"}) {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    Press(name);
    EXPECT_EQ(boxes.Texts(), Lines({kQuestion, "Empty schedule is not allowed!"})) << name;
    EXPECT_TRUE(Window().isVisible());
  }
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")), saved);
  EXPECT_TRUE(Asks());
}

TEST_F(ScheduleEditor, AnOperationThatWasToFollowAFailedSaveDoesNotHappen) {
  New();
  Add(Message(1));
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("NEW.SCH"))));  // a folder in place of the file
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const FileChooser file{QString()};
  const ModalWindowDriver send(Text("frmSendSch"), [](QWidget* w) { w->close(); });
  const std::pair<const char*, const char*> expected[] = {{"butNew", "Invalid path!"},
                                                          {"butOpen", "Invalid path!"},
                                                          {"butExit", "Invalid path!"},
                                                          {"butSend", "Path Not Valid"}};
  for (const auto& [name, text] : expected) {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    Press(name);
    EXPECT_EQ(boxes.Texts(), Lines({kQuestion, text})) << name;
    EXPECT_EQ(boxes.Seen()[1].title, Text("Schedule"));
    EXPECT_EQ(boxes.Seen()[1].icon, QMessageBox::NoIcon);
  }
  Find<QLineEdit>("txtHour")->setText(Text("99"));
  for (const char* name : {"butNew", "butOpen", "butExit", "butSend"}) {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    Press(name);
    EXPECT_EQ(boxes.Texts(), Lines({kQuestion, "Hour Format Wrong!"})) << name;
  }
  EXPECT_EQ(dimension.Count() + file.Count() + send.Count(), 0);
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(Order(), Text("1"));
  EXPECT_TRUE(Asks());
}

TEST_F(ScheduleEditor, ASaveOntoAFullDiskLeavesTheOldFileTheNameAndTheModifiedFlag) {
  NewSchedule(1);
  const QByteArray saved = folder_.Read(Text("NEW.SCH"));
  Add(Message(2));
  MessageBoxReader boxes;
  {
    const FullDisk full_disk(20);
    Press("butSave");
    Choose("butSaveAs", folder_.Path(Text("other.sch")));
    boxes.Answer(QMessageBox::Yes);
    Press("butSend");
  }
  EXPECT_EQ(boxes.Texts(), Lines({"Drive not available!", "Drive not available!", kQuestion,
                                  "Drive Not Available!"}));
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")), saved);
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SCH")));
  EXPECT_EQ(Order(), Text("12"));
  EXPECT_TRUE(Asks());
}

TEST_F(ScheduleEditor, SendGivesTheCurrentFileItsRowsAndColumnsToTheSendDialog) {
  NewSchedule(1);
  QStringList given;
  const ModalWindowDriver send(Text("frmSendSch"), [&](QWidget* dialog) {
    for (const char* name : {"lblSchFileName", "lblRow", "lblCol"}) {
      given.append(dialog->findChild<QLabel*>(Text(name))->text());
    }
    dialog->close();
  });
  const MessageBoxReader boxes;
  Press("butSend");
  EXPECT_EQ(given, QStringList({folder_.Path(Text("NEW.SCH")), Text("2"), Text("80")}));
  EXPECT_TRUE(boxes.Seen().isEmpty());
}

TEST_F(ScheduleEditor, SendYesSavesFirstNoSendsTheFileAsItIs) {
  NewSchedule(1);
  Add(Message(2));
  QByteArray sent;
  const ModalWindowDriver send(Text("frmSendSch"), [&](QWidget* dialog) {
    sent = folder_.Read(Text("NEW.SCH"));
    dialog->close();
  });
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
  EXPECT_TRUE(sent.contains("No of Sequence =1\r\n"));
  EXPECT_TRUE(Asks());
  boxes.Answer(QMessageBox::Yes);
  Press("butSend");
  EXPECT_EQ(send.Count(), 2);
  EXPECT_TRUE(sent.contains("No of Sequence =2\r\n"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, SendYesWithoutSequencesCannotSaveAnEmptySchedule) {
  NewSchedule(1);
  Press("butClear");
  Button("butSend")->setEnabled(true);  // a press that comes through nevertheless
  const ModalWindowDriver send(Text("frmSendSch"), [](QWidget* dialog) { dialog->close(); });
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  Press("butSend");
  EXPECT_EQ(boxes.Texts(), Lines({kQuestion, "Cannot Save: Empty Schedule!"}));
  EXPECT_EQ(send.Count(), 0);
}

TEST_F(ScheduleEditor, SendOfAScheduleThatIsNoFileReportsIt) {
  New();
  Add(Message(1));
  const ModalWindowDriver send(Text("frmSendSch"), [](QWidget* dialog) { dialog->close(); });
  {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::No);
    Press("butSend");
    EXPECT_EQ(boxes.Texts(), Lines({kQuestion, "File not found"}));
    EXPECT_EQ(boxes.Seen()[1].title, Text("Schedule"));
    EXPECT_EQ(boxes.Seen()[1].icon, QMessageBox::NoIcon);
  }
  const QString folder = folder_.Path(Text("stick"));
  ASSERT_TRUE(QDir().mkdir(folder));
  Choose("butSaveAs", folder + Text("/a.sch"));
  ASSERT_TRUE(QDir(folder).removeRecursively());  // the stick was pulled out
  const MessageBoxReader boxes;
  Press("butSend");
  EXPECT_EQ(boxes.Texts(), Lines({"Path Not Valid"}));
  EXPECT_EQ(send.Count(), 0);
  EXPECT_EQ(Order(), Text("1"));
}

}  // namespace
