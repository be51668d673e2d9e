// Opening and saving in the schedule editor.
#include <QComboBox>

#include <gtest/gtest.h>

#include "schedule/schedule_editor.h"
#include "support/dropped_files.h"

namespace {

TEST_F(ScheduleEditor, SaveWritesTheWholeFileAndClearsTheModifiedFlag) {
  New();
  Find<QComboBox>("comboWeek")->setCurrentIndex(7);
  Find<QLineEdit>("txtHour")->setText(Text(" 8 "));
  Find<QLineEdit>("txtMin")->setText(Text("05"));
  Add(Message(1), "5", "Wipe Left");
  Add(Message(2), "99", "Appear");
  Add(Message(1), "1", "Shift");
  const MessageBoxReader boxes;
  Press("butSave");
  EXPECT_TRUE(boxes.Seen().isEmpty());
  const QByteArray first = folder_.Path(Text("1.msg")).toLatin1();
  const QByteArray second = folder_.Path(Text("2.msg")).toLatin1();
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")),
            "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =05\r\nRow =2\r\nCol =80\r\n"
            "No of Sequence =3\r\n" +
                first + QByteArray(100 - first.size(), ' ') + "\r\n5\r\nWipe Left           \r\n" +
                second + QByteArray(100 - second.size(), ' ') +
                "\r\n99\r\nAppear              \r\n" + first + QByteArray(100 - first.size(), ' ') +
                "\r\n1\r\nShift               \r\n");
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, AFileThatIsDroppedIsOpenedAlsoOnAnEntryField) {
  const QString path =
      WriteSchedule("a.sch", 2, "Week =0\r\nHour =**\r\nMin =**\r\nRow =2\r\nCol =80\r\n");
  EXPECT_TRUE(DropFiles(Window(), {path}));
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(Order(), Text("12"));
  auto* hour = Find<QLineEdit>("txtHour");
  hour->clear();
  QMimeData text;
  text.setText(Text("17"));
  EXPECT_TRUE(Drop(*hour, text));
  EXPECT_EQ(hour->text(), Text("17"));
  EXPECT_FALSE(Drop(Window(), text));
  MessageBoxReader boxes;  // answers with Cancel
  const QString other = WriteSchedule("b.sch", 1, kHead);
  EXPECT_TRUE(DropFiles(*hour, {other}));
  EXPECT_EQ(boxes.Texts(), Lines({kQuestion}));
  EXPECT_EQ(hour->text(), Text("17"));
  boxes.Answer(QMessageBox::No);
  EXPECT_TRUE(DropFiles(*hour, {other}));
  EXPECT_EQ(FileName(), other);
  EXPECT_EQ(hour->text(), Text("**"));
}

TEST_F(ScheduleEditor, HourFormatWrongNothingWritten) {
  NewSchedule(1);
  const QByteArray old = folder_.Read(Text("NEW.SCH"));
  ASSERT_FALSE(old.isEmpty());
  for (const char* hour : {"24", "-1", "99999999999", "24h"}) {
    Find<QLineEdit>("txtHour")->setText(Text(hour));
    Find<QLineEdit>("txtMin")->setText(Text("60"));  // one message only: the hour is first
    const MessageBoxReader boxes;
    Press("butSave");
    EXPECT_EQ(boxes.Texts(), Lines({"Hour Format Wrong!"})) << hour;
    EXPECT_EQ(boxes.Seen()[0].title, Text("Schedule"));
    EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
    EXPECT_EQ(folder_.Read(Text("NEW.SCH")), old);
    EXPECT_EQ(Window().focusWidget(), Find<QLineEdit>("txtHour"));
    EXPECT_TRUE(Asks());
  }
}

TEST_F(ScheduleEditor, MinuteFormatWrongNothingWritten) {
  NewSchedule(1);
  const QByteArray old = folder_.Read(Text("NEW.SCH"));
  for (const char* minute : {"60", "-5", "100"}) {
    Find<QLineEdit>("txtMin")->setText(Text(minute));
    const MessageBoxReader boxes;
    Press("butSave");
    Choose("butSaveAs", folder_.Path(Text("other.sch")));
    EXPECT_EQ(boxes.Texts(), Lines({"Minute Format Wrong!", "Minute Format Wrong!"})) << minute;
    EXPECT_EQ(folder_.Read(Text("NEW.SCH")), old);
    EXPECT_EQ(folder_.Read(Text("other.sch")), "");
    EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SCH")));
    EXPECT_EQ(Window().focusWidget(), Find<QLineEdit>("txtMin"));
  }
}

TEST_F(ScheduleEditor, HourAndMinuteAreValidatedOnlyWhenWriting) {
  const MessageBoxReader boxes;
  Open(WriteSchedule("odd.sch", 1, "Week =0\r\nHour =77\r\nMin =88\r\nRow =2\r\nCol =80\r\n"));
  EXPECT_EQ(Find<QLineEdit>("txtHour")->text(), Text("77"));
  Find<QLineEdit>("txtMin")->setFocus();
  Add(Message(2));
  EXPECT_TRUE(boxes.Seen().isEmpty());
  Press("butSave");
  EXPECT_EQ(boxes.Texts(), Lines({"Hour Format Wrong!"}));
}

TEST_F(ScheduleEditor, AnHourThatIsNoNumberAtAllIsAcceptedAndWrittenAsTyped) {
  NewSchedule(1);
  auto* hour = Find<QLineEdit>("txtHour");
  hour->setFocus();
  hour->selectAll();
  QTest::keyClicks(hour, Text("ab"));
  Press("butSave");
  EXPECT_TRUE(folder_.Read(Text("NEW.SCH")).contains("\r\nHour =ab\r\nMin =**\r\n"));
}

TEST_F(ScheduleEditor, WhatWouldBreakTheFilesLineCannotBePastedIntoHourAndMinute) {
  NewSchedule(1);
  for (const char* name : {"txtHour", "txtMin"}) {
    for (const char* text : {"1\n2", "1\r2", "中", "1\t2"}) {
      auto* box = Find<QLineEdit>(name);
      box->setFocus();
      box->selectAll();
      QGuiApplication::clipboard()->setText(Text(text));
      Key(Qt::Key_V, Qt::ControlModifier);
      EXPECT_EQ(box->text(), Text("**")) << text;
    }
  }
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, OpenShowsAScheduleAndClearsTheModifiedFlag) {
  NewSchedule(1);
  Press("butClear");
  const QString path = folder_.Write(
      Text("b.sch"),
      "  *** Brivon Schedule File ***\t\r\nWeek =7\r\nHour =8\r\nMin =30\r\nRow =4\r\n"
      "Col =96\r\nNo of Sequence =2\r\n" +
          PathLine(Message(1)) + "15\r\n" + Field("Open", 20) + "\r\n" +
          PathLine(Text("C:\\gone.msg")) + "7\r\n" + Field("Wipe Right", 20) + "\r\n");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(path);
  EXPECT_EQ(boxes.Texts(), Lines({kQuestion}));
  EXPECT_EQ(dialog_.title, Text("Open"));
  EXPECT_EQ(dialog_.filters, Lines({"Schedule File(*.sch)", "All (*)"}));
  EXPECT_EQ(dialog_.filter, Text("Schedule File(*.sch)"));
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("4"));
  EXPECT_EQ(Find<QLabel>("lblCol")->text(), Text("96"));
  EXPECT_EQ(Find<QComboBox>("comboWeek")->currentText(), Text("Sataruday"));
  EXPECT_EQ(Find<QLineEdit>("txtHour")->text(), Text("8"));
  EXPECT_EQ(Find<QLineEdit>("txtMin")->text(), Text("30"));
  EXPECT_EQ(Rows(), Lines({"1|1.msg|15|Open", "2|C:\\gone.msg|7|Wipe Right", "End|||"}));
  for (const char* name : {"butAdd", "butInsert", "butSave", "butSaveAs", "butSend", "butDelete",
                           "butClear", "butNew", "butOpen", "butExit"}) {
    EXPECT_TRUE(Button(name)->isEnabled()) << name;
  }
  EXPECT_EQ(Window().focusWidget(), Table());
  EXPECT_EQ(Table()->SelectedPosition(), 1);
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, Week7SelectsSaturdayWeek0SelectsTheStar) {
  Open(WriteSchedule("a.sch", 1, "Week =7\r\nHour =**\r\nMin =**\r\nRow =2\r\nCol =80\r\n"));
  EXPECT_EQ(Find<QComboBox>("comboWeek")->currentText(), Text("Saturday"));
  Open(WriteSchedule("b.sch", 1, kHead));
  EXPECT_EQ(Find<QComboBox>("comboWeek")->currentText(), Text("*"));
}

TEST_F(ScheduleEditor, ARefusedFileLeavesTheScheduleOnScreenAsItWas) {
  NewSchedule(2);
  Find<QLineEdit>("txtHour")->setText(Text("9"));
  Press("butSave");
  const QByteArray saved = folder_.Read(Text("NEW.SCH"));
  const QByteArray contents[] = {
      "",
      "*** brivon schedule file ***\r\n",
      "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) + "No of Sequence =0\r\n",
      "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) + "No of Sequence =33\r\n",
      "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) + "No of Sequence =1\r\n",
      "*** Brivon Schedule File ***\r\nWeek =8\r\nHour =1\r\nMin =1\r\nRow =2\r\nCol =80\r\n"
      "No of Sequence =1\r\na\r\n1\r\nFlip\r\n",
      "*** Brivon Schedule File ***\r\nWeek =1\r\nHour =1\r\nMin =1\r\nRow =0\r\nCol =80\r\n"
      "No of Sequence =1\r\na\r\n1\r\nFlip\r\n",
      QByteArray(5000, '\0'),
  };
  for (const QByteArray& content : contents) {
    const QString bad = folder_.Write(Text("bad.sch"), content);
    const MessageBoxReader boxes;
    Open(bad);
    EXPECT_EQ(boxes.Texts(), Lines({"Error in opening file!"})) << content.constData();
    EXPECT_EQ(boxes.Seen()[0].title, Text("Schedule"));
    EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
    EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SCH")));
    EXPECT_EQ(Rows(), Lines({"1|1.msg|5|Flip", "2|2.msg|5|Flip", "End|||"}));
    EXPECT_EQ(Find<QLineEdit>("txtHour")->text(), Text("9"));
    EXPECT_FALSE(Asks());
    // The name that was refused is not what Save writes to.
    Press("butSave");
    EXPECT_EQ(folder_.Read(Text("bad.sch")), content);
    EXPECT_EQ(folder_.Read(Text("NEW.SCH")), saved);
  }
}

TEST_F(ScheduleEditor, ARefusedFileAtFirstLeavesTheWindowWithoutASchedule) {
  const MessageBoxReader boxes;
  Open(folder_.Write(Text("bad.sch"), "bad"));
  EXPECT_EQ(boxes.Texts(), Lines({"Error in opening file!"}));
  EXPECT_EQ(FileName(), QString());
  EXPECT_FALSE(Button("butAdd")->isEnabled());
}

TEST_F(ScheduleEditor, AFileThatHoldsMoreThan12CanBeShownEditedAndSavedNotLengthened) {
  Open(WriteSchedule("long.sch", 13, kHead));
  EXPECT_EQ(Table()->model()->rowCount(), 14);
  {
    const MessageBoxReader boxes;
    Add(Message(14));
    Choose("butInsert", Message(14));
    EXPECT_EQ(boxes.Texts(), Lines({kFull, kFull}));
  }
  Properties(Text("44"), {}, [&] { DoubleClick(13, 2); });
  Press("butSave");
  const QByteArray saved = folder_.Read(Text("long.sch"));
  EXPECT_TRUE(saved.contains("No of Sequence =13\r\n"));
  EXPECT_TRUE(saved.endsWith("\r\n44\r\nAppear              \r\n"));
  Click(1);
  Press("butDelete");
  {
    const MessageBoxReader boxes;
    Add(Message(14));
    EXPECT_EQ(boxes.Texts(), Lines({kFull}));
  }
  Press("butDelete");
  Add(Message(14));
  EXPECT_EQ(Table()->model()->rowCount(), 13);
}

TEST_F(ScheduleEditor, AFileOf32SequencesIsShownTheUnreadOnesBehindA27thFileAreBlank) {
  Open(WriteSchedule("32.sch", 32, kHead));
  EXPECT_EQ(Table()->model()->rowCount(), 33);
  const QStringList rows = Rows();
  EXPECT_EQ(rows[25], Text("26|26.msg|1|Appear"));
  EXPECT_EQ(rows[26], Text("27|27.msg|0|"));
  EXPECT_EQ(rows[27], Text("28||0|"));
  EXPECT_EQ(rows[31], Text("32||0|"));
  // Nor does a double click bring in one file more.
  const MessageBoxReader boxes;
  Choose(Message(33), [&] { DoubleClick(1, 1); });
  EXPECT_EQ(boxes.Texts(), Lines({kAddRefusal}));
  Choose(folder_.Path(Text("26.msg")), [&] { DoubleClick(1, 1); });
  EXPECT_EQ(Rows()[0], Text("1|26.msg|1|Appear"));
}

TEST_F(ScheduleEditor, SaveAsTheChosenNameBecomesTheCurrentOne) {
  NewSchedule(1);
  const QByteArray saved = folder_.Read(Text("NEW.SCH"));
  Properties(Text("6"), {}, [&] { DoubleClick(1, 2); });
  const QString path = folder_.Write(Text("there"), "replaced without a question");
  const MessageBoxReader boxes;
  Choose("butSaveAs", path);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(dialog_.title, Text("Save As"));
  EXPECT_EQ(dialog_.filters, Lines({"All (*)", "Sch File(*.Sch)"}));
  EXPECT_EQ(dialog_.filter, Text("Sch File(*.Sch)"));
  EXPECT_EQ(dialog_.name, QString());
  EXPECT_EQ(FileName(), path);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")), saved);
  EXPECT_TRUE(folder_.Read(Text("there")).contains("\r\n6\r\nFlip                \r\n"));
  Press("butClear");
  Add(Message(2));
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")), saved);
  EXPECT_TRUE(folder_.Read(Text("there")).contains("2.msg"));
}

TEST_F(ScheduleEditor, WithNoSequencesEmptyScheduleIsNotAllowed) {
  New();
  // The buttons are disabled then; a press that comes through nevertheless saves nothing.
  for (const char* name : {"butSave", "butSaveAs"}) {
    Button(name)->setEnabled(true);
    const MessageBoxReader boxes;
    Choose(name, folder_.Path(Text("empty.sch")));
    EXPECT_EQ(boxes.Texts(), Lines({"Empty schedule is not allowed!"}));
    EXPECT_EQ(boxes.Seen()[0].title, Text("Schedule"));
  }
  EXPECT_EQ(dialogs_, 0);
  EXPECT_EQ(folder_.Read(Text("NEW.SCH")), "");
}

TEST_F(ScheduleEditor, AFileOfAnyBytesComesBackTheSameFromOpenAndSave) {
  QByteArray path;
  for (int value = 0x21; value < 0x21 + 98; ++value) path += static_cast<char>(value + 0x5D);
  const QByteArray content =
      "*** Brivon Schedule File ***\r\nWeek =2\r\nHour =\x81\x01x\r\n"
      "Min =\xFF\r\nRow =-3\r\nCol =32767\r\nNo of Sequence =1\r\n" +
      Field(path, 100) + "\r\n-32768\r\n" + Field("\x8D\x02\xE9", 20) + "\r\n";
  Open(folder_.Write(Text("any.sch"), content));
  ASSERT_EQ(FileName(), folder_.Path(Text("any.sch")));
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("any.sch")), content);
}

}  // namespace
