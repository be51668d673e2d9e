// The schedule editor's window: captions, places, keys and focus.
#include "schedule/schedule_editor.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QGroupBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include "support/wheel.h"

namespace {

TEST_F(ScheduleEditor, OpensWithItsCaptionsListsAndStates) {
  EXPECT_EQ(Window().objectName(), Text("frmSchedule"));
  EXPECT_EQ(Window().windowTitle(), Text("Schedule"));
  EXPECT_TRUE(Window().windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  struct ButtonState {
    const char* name;
    const char* caption;
    const char* tool_tip;
    bool enabled;
  };
  const ButtonState buttons[] = {
      {"butNew", "New", "Ctrl+N", true},
      {"butOpen", "Open", "Ctrl+O", true},
      {"butSave", "Save", "Ctrl+S", false},
      {"butSaveAs", "Save As", "Ctrl+Shift+S", false},
      {"butSend", "Send", "Ctrl+Return", false},
      {"butExit", "Exit", "", true},
      {"butAdd", "Add", "", false},
      {"butInsert", "Insert", "Ins", false},
      {"butDelete", "Delete", "Del", false},
      {"butClear", "Clear", "", false},
  };
  for (const ButtonState& button : buttons) {
    EXPECT_EQ(Button(button.name)->text(), Text(button.caption));
    EXPECT_EQ(Button(button.name)->toolTip(), Text(button.tool_tip));
    EXPECT_EQ(Button(button.name)->isEnabled(), button.enabled) << button.name;
    EXPECT_TRUE(Button(button.name)->font().bold()) << button.name;
    EXPECT_FALSE(Button(button.name)->autoDefault()) << button.name;
  }
  for (const char* name : {"comboWeek", "txtHour", "txtMin"}) {
    EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
  }
  EXPECT_EQ(Find<QGroupBox>("Framefilename")->title(), Text("File Name"));
  EXPECT_EQ(Find<QGroupBox>("FrameDimension")->title(), Text("Dimension"));
  EXPECT_EQ(Find<QGroupBox>("FrameSchTable")->title(), Text("Schedule Table"));
  EXPECT_EQ(Find<QLabel>("labelRow")->text(), Text("Row :"));
  EXPECT_EQ(Find<QLabel>("labelCol")->text(), Text("Col :"));
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), QString());
  EXPECT_EQ(Find<QLabel>("lblCol")->text(), QString());
  EXPECT_EQ(FileName(), QString());
  EXPECT_EQ(Find<QLabel>("Label3")->text(),
            Text("Hour:            Minute:           ( ** for every time.)"));
  EXPECT_EQ(Find<QLineEdit>("txtHour")->text(), Text("**"));
  EXPECT_EQ(Find<QLineEdit>("txtMin")->text(), Text("**"));
  EXPECT_EQ(Rows(), Lines({"End|||"}));
  EXPECT_EQ(Table()->SelectedPosition(), 0);
  EXPECT_EQ(Window().focusWidget(), Button("butNew"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, TheWeekdayListReadsDifferentlyFromTheFirstNewScheduleOn) {
  const auto days = [this] {
    QStringList texts;
    for (int i = 0; i < Find<QComboBox>("comboWeek")->count(); ++i) {
      texts.append(Find<QComboBox>("comboWeek")->itemText(i));
    }
    return texts.join(QLatin1Char('|'));
  };
  EXPECT_EQ(days(), Text("*|Sunday|Monday|Tuesday|Wednesday|Thursday|Friday|Saturday"));
  New(false);
  EXPECT_EQ(days(), Text("*|Sunday|Monday|Tuesday|Wednesday|Thursday|Friday|Saturday"));
  New();
  EXPECT_EQ(days(), Text("*|Sunday|Monday|Tuesday|Wenesday|Thurday|Friday|Sataruday"));
  EXPECT_EQ(Find<QComboBox>("comboWeek")->currentIndex(), 0);
  Open(WriteSchedule("a.sch", 1, kHead));
  EXPECT_EQ(days(), Text("*|Sunday|Monday|Tuesday|Wenesday|Thurday|Friday|Sataruday"));
}

TEST_F(ScheduleEditor, TheBoxesOfHourAndMinuteStandInTheGapsOfTheirLabel) {
  New();
  const auto* label = Find<QLabel>("Label3");
  const QRect hour = Find<QWidget>("txtHour")->geometry();
  const QRect minute = Find<QWidget>("txtMin")->geometry();
  const QFontMetrics metrics = label->fontMetrics();
  EXPECT_GE(hour.left(), metrics.horizontalAdvance(Text("Hour:")));
  EXPECT_GE(minute.left(), hour.right() + metrics.horizontalAdvance(Text("Minute:")));
  EXPECT_GE(label->width(),
            minute.right() + metrics.horizontalAdvance(Text("( ** for every time.)")));
  EXPECT_TRUE(label->rect().contains(hour));
  EXPECT_TRUE(label->rect().contains(minute));
}

TEST_F(ScheduleEditor, NewBeginsAnEmptyScheduleOfTheChosenSize) {
  NewSchedule(1);
  Find<QComboBox>("comboWeek")->setCurrentIndex(3);
  Find<QLineEdit>("txtHour")->setText(Text("8"));
  Find<QLineEdit>("txtMin")->setText(Text("30"));
  Press("butSave");
  New();
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SCH")));
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("2"));
  EXPECT_EQ(Find<QLabel>("lblCol")->text(), Text("80"));
  EXPECT_EQ(Find<QComboBox>("comboWeek")->currentIndex(), 0);
  EXPECT_EQ(Find<QLineEdit>("txtHour")->text(), Text("**"));
  EXPECT_EQ(Find<QLineEdit>("txtMin")->text(), Text("**"));
  EXPECT_EQ(Rows(), Lines({"End|||"}));
  for (const char* name : {"butAdd", "butInsert", "butNew", "butOpen", "butExit"}) {
    EXPECT_TRUE(Button(name)->isEnabled()) << name;
  }
  for (const char* name : {"butSave", "butSaveAs", "butSend", "butDelete", "butClear"}) {
    EXPECT_FALSE(Button(name)->isEnabled()) << name;
  }
  EXPECT_EQ(Window().focusWidget(), Button("butAdd"));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, NewCancelledChangesNothingDoneClearsTheModifiedFlag) {
  New(false);
  EXPECT_FALSE(Button("butAdd")->isEnabled());
  New();
  Add(Message(1));
  {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::No);
    New(false);
  }
  EXPECT_EQ(Rows(), Lines({"1|1.msg|5|Flip", "End|||"}));
  EXPECT_TRUE(Asks());
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  New();
  EXPECT_EQ(Rows(), Lines({"End|||"}));
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, WithoutAConfiguredPanelNewSaysSoAndChangesNothing) {
  folder_.Configure("");
  const MessageBoxReader boxes;
  New(false);
  EXPECT_EQ(boxes.Texts(), Lines({"System haven't config. yet!"}));
  EXPECT_FALSE(Button("butAdd")->isEnabled());
}

TEST_F(ScheduleEditor, TheProgramCanBeEndedWhileADialogOfTheEditorIsOpen) {
  New();
  const ModalWindowDriver property(Text("frmDelay"), [](QWidget*) { QCoreApplication::exit(); });
  const FileChooser chooser(Message(1));
  Button("butAdd")->setFocus();
  QTimer::singleShot(0, &Window(), [this] { Press("butAdd"); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(property.Count(), 1);
  EXPECT_EQ(Rows(), Lines({"End|||"}));
}

TEST_F(ScheduleEditor, DeleteInATextBoxTakesACharacterOutAndNoSequence) {
  NewSchedule(1);
  auto* hour = Find<QLineEdit>("txtHour");
  hour->setFocus();
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  EXPECT_EQ(hour->text(), Text("*"));
  EXPECT_EQ(Order(), Text("1"));
}

TEST_F(ScheduleEditor, ReturnPressesNoButtonFromAnywhereElseButTheTable) {
  NewSchedule(1);
  const FileChooser cancelled{QString()};
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendSch"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  Click(2);  // "End"
  for (QWidget* widget : Window().findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible()) continue;
    if (qobject_cast<QPushButton*>(widget) != nullptr) continue;
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Return);
    QTest::keyClick(widget, Qt::Key_Enter);
    EXPECT_TRUE(Window().isVisible()) << widget->objectName().toStdString();
  }
  EXPECT_EQ(cancelled.Count() + dimension.Count() + send.Count(), 0);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(Order(), Text("1"));
}

TEST_F(ScheduleEditor, TabVisitsTheControlsInTheOrderInWhichTheyAreRead) {
  NewSchedule(1);
  Button("butNew")->setFocus();
  const char* const order[] = {"butOpen",      "butSave",   "butSaveAs",   "butSend",
                               "butExit",      "comboWeek", "txtHour",     "txtMin",
                               "GridSeqTable", "butPlay",   "chkOneColor", "butAdd",
                               "butInsert",    "butDelete", "butClear",    "butNew"};
  for (const char* name : order) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(Window().focusWidget()->objectName(), Text(name));
  }
}

TEST_F(ScheduleEditor, TheStandardKeysObeyTheStateOfTheirButtons) {
  const auto dialogs_opened_by = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    const FileChooser file{QString()};
    const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
    Activate();
    QTest::keyClick(&Window(), key, modifiers);
    return file.Count() + 10 * dimension.Count();
  };
  Window();
  EXPECT_EQ(dialogs_opened_by(Qt::Key_S, Qt::ControlModifier), 0);
  EXPECT_EQ(dialogs_opened_by(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier), 0);
  EXPECT_EQ(dialogs_opened_by(Qt::Key_O, Qt::ControlModifier), 1);
  EXPECT_EQ(dialogs_opened_by(Qt::Key_N, Qt::ControlModifier), 10);
  New();
  Add(Message(1));
  EXPECT_EQ(dialogs_opened_by(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier), 1);
  EXPECT_EQ(dialogs_opened_by(Qt::Key_S, Qt::ControlModifier), 0);
  EXPECT_NE(folder_.Read(Text("NEW.SCH")), "");
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, AWheelOverTheWeekdayChoosesNothing) {
  NewSchedule(1);
  auto* week = Find<QComboBox>("comboWeek");
  TurnWheel(week);
  EXPECT_EQ(week->currentIndex(), 0);
  EXPECT_FALSE(Asks());
}

TEST_F(ScheduleEditor, ALongFileNameDoesNotWidenTheWindow) {
  NewSchedule(1);
  const int least = Window().minimumSizeHint().width();
  EXPECT_LE(least, 800);
  const QString folder = folder_.Path(QString(90, QLatin1Char('d')));
  ASSERT_TRUE(QDir().mkpath(folder));
  ASSERT_TRUE(QFile::rename(WriteSchedule("a.sch", 1, kHead), folder + Text("/a.sch")));
  Open(folder + Text("/a.sch"));
  EXPECT_EQ(FileName(), folder + Text("/a.sch"));
  EXPECT_EQ(Window().minimumSizeHint().width(), least);
}

TEST_F(ScheduleEditor, AllKeysAtOnceWithoutAScheduleDoNothing) {
  const MessageBoxReader boxes;
  const FileChooser file{QString()};
  Table()->setFocus();
  Click(1);
  for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Return, Qt::Key_F2}) Key(key);
  for (int column = 0; column < 4; ++column) DoubleClick(1, column);
  for (const char* name : {"butAdd", "butInsert", "butDelete", "butClear", "butSave"}) Press(name);
  EXPECT_EQ(file.Count(), 0);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_TRUE(Window().close());
}

}  // namespace
