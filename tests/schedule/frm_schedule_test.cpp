// The schedule editor, opened, driven by key and mouse, its files and message boxes read.
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "page/dialog_results.h"
#include "schedule/frmSchedule.h"
#include "schedule/sequence_table.h"
#include "support/full_disk.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/shown_window.h"
#include "support/wheel.h"

namespace {

constexpr const char* kQuestion = "File not saved. Save it now?";
constexpr const char* kFull = "Schedule is full!";
constexpr const char* kAddRefusal = "Cannot Exceed 26 different message file!";
constexpr const char* kInsertRefusal = "Cannot Exceed 26 different Message Files!";

QString Text(const char* text) { return QString::fromUtf8(text); }

QStringList Lines(std::initializer_list<const char*> texts) {
  QStringList lines;
  for (const char* text : texts) lines.append(Text(text));
  return lines;
}

QByteArray Field(QByteArray text, int size) {
  while (text.size() < size) text += ' ';
  return text;
}

class ScheduleEditor : public testing::Test {
 protected:
  ScheduleEditor() {
    folder_.Configure("[Dimension Config]\r\nID001=2x80,Tri,127.0.0.1:80\r\n");
    Brivon1::DialogDelay = 77;  // what another window has left
  }

  ~ScheduleEditor() override {
    window_.reset();
    ModuleLanguage::DialogTitleOpen = Text("Open");
    ModuleLanguage::DialogTitleSaveAs = Text("Save As");
    ModuleLanguage::DialogTitleAddMsg = Text("Add Message");
    QGuiApplication::clipboard()->clear();
  }

  /// The window, opened when it is first needed.
  frmSchedule& Window() {
    if (!window_) {
      window_ = std::make_unique<frmSchedule>();
      window_->show();
      Activate();
    }
    return *window_;
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = Window().findChild<Widget*>(Text(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  QPushButton* Button(const char* name) { return Find<QPushButton>(name); }
  SequenceTable* Table() { return Find<SequenceTable>("GridSeqTable"); }
  QString FileName() { return Find<QLabel>("lblfilename")->text(); }
  void Press(const char* name) { QTest::mouseClick(Button(name), Qt::LeftButton); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(Window().focusWidget(), key, modifiers);
  }

  /// The window becomes the active one again, as a desktop makes it when a dialog closes.
  void Activate() { ActivateWindow(window_.get()); }

  void New(bool accepted = true) {
    const ModalWindowDriver dimension(Text("frmDimension"), [accepted](QWidget* dialog) {
      dialog->findChild<QPushButton*>(Text(accepted ? "butOK" : "butCancel"))->click();
    });
    Press("butNew");
    EXPECT_EQ(dimension.Count(), 1);
    Activate();
  }

  /// Does `act` and enters a name into each file dialog that it opens; an empty one cancels.
  template <typename Act>
  void Choose(const QString& path, Act act) {
    const FileChooser chooser(path);
    act();
    dialogs_ += chooser.Count();
    dialog_ = chooser.Seen();
    Activate();
  }

  void Choose(const char* button, const QString& path) {
    Choose(path, [&] { Press(button); });
  }

  void Open(const QString& path) { Choose("butOpen", path); }

  /// Does `act` and answers the property dialog that it opens: a delay and an entry of the list,
  /// empty ones stay as the dialog came up; or Cancel.
  template <typename Act>
  void Properties(const QString& delay, const QString& feature, Act act, bool accepted = true) {
    const ModalWindowDriver property(Text("frmDelay"), [&](QWidget* dialog) {
      auto* box = dialog->findChild<QLineEdit*>(Text("txtDelay"));
      auto* list = dialog->findChild<QListWidget*>(Text("ListFeature"));
      shown_delay_ = box->text();
      shown_feature_ = list->currentItem() ? list->currentItem()->text() : Text("none");
      if (!delay.isEmpty()) box->setText(delay);
      if (!feature.isEmpty()) {
        list->setCurrentItem(list->findItems(feature, Qt::MatchExactly).value(0));
      }
      dialog->findChild<QPushButton*>(Text(accepted ? "butOK" : "butCancel"))->click();
    });
    act();
    properties_ += property.Count();
    Activate();
  }

  void Add(const QString& path, const char* delay = "5", const char* feature = "Flip") {
    Properties(Text(delay), Text(feature), [&] { Choose("butAdd", path); });
  }

  void AddCancelled(const QString& path) {
    Properties(
        {}, {}, [&] { Choose("butAdd", path); }, false);
  }

  /// A cell of the table; its rows count from 0.
  QModelIndex At(int row, int column) { return Table()->model()->index(row, column); }

  QString Heading(int column) {
    return Table()->model()->headerData(column, Qt::Horizontal).toString();
  }

  bool IsItalic(int row) { return At(row, 1).data(Qt::FontRole).value<QFont>().italic(); }

  /// The middle of a cell, scrolled into sight. `position` counts the sequences from 1.
  QPoint Cell(int position, int column) {
    const QModelIndex cell = At(position - 1, column);
    Table()->scrollTo(cell);
    return Table()->visualRect(cell).center();
  }

  void Click(int position, int column = 1) {
    QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, Cell(position, column));
  }

  void DoubleClick(int position, int column, Qt::MouseButton button = Qt::LeftButton) {
    const QPoint at = Cell(position, column);
    QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(Table()->viewport(), button, {}, at);
  }

  /// The table's rows, without the program's folder: "1|a.msg|5|Flip", ..., "End|||".
  QStringList Rows() {
    QStringList rows;
    for (int row = 0; row < Table()->model()->rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < 4; ++column) cells.append(At(row, column).data().toString());
      rows.append(cells.join(QLatin1Char('|')).remove(folder_.Path(QString()) + QLatin1Char('/')));
    }
    return rows;
  }

  /// The numbers of the message files "1.msg" to "26.msg" in the table, in its order.
  QString Order() {
    QString order;
    for (const QString& row : Rows()) {
      order += row.section(QLatin1Char('|'), 1, 1).section(QLatin1Char('.'), 0, 0);
    }
    return order;
  }

  /// Whether the editor asks about unsaved work when it is to be left; it stays as it is.
  bool Asks() {
    const MessageBoxReader boxes;  // answers with Cancel
    const FileChooser cancelled{QString()};
    Press("butOpen");
    const bool asked = boxes.Texts() == QStringList(Text(kQuestion));
    EXPECT_EQ(cancelled.Count(), asked ? 0 : 1);
    Activate();
    return asked;
  }

  /// A message file for the size that New chooses.
  QString Message(const char* name, const QByteArray& dimension = "Row = 2\r\nCol = 80\r\n") {
    return folder_.Write(
        Text(name), "*** Brivon Message File ***\r\n" + dimension + "<L01><SA><CA>a\r\n<L02>\r\n");
  }

  QString Message(int number) {
    return Message(QByteArray::number(number).append(".msg").constData());
  }

  /// A new schedule of the messages 1 to `count`, saved and shown.
  void NewSchedule(int count) {
    New();
    for (int number = 1; number <= count; ++number) Add(Message(number));
    if (count > 0) Press("butSave");
  }

  /// A path as it stands in a saved file.
  QByteArray PathLine(const QString& path) { return Field(path.toLatin1(), 100) + "\r\n"; }

  /// A schedule file of the given head lines and the messages 1 to `count`, one second each.
  QString WriteSchedule(const char* name, int count, const QByteArray& head) {
    QByteArray content = "*** Brivon Schedule File ***\r\n" + head +
                         "No of Sequence =" + QByteArray::number(count) + "\r\n";
    for (int number = 1; number <= count; ++number) {
      content += PathLine(Message(number)) + "1\r\n" + Field("Appear", 20) + "\r\n";
    }
    return folder_.Write(Text(name), content);
  }

  TemporaryProgramFolder folder_;
  std::unique_ptr<frmSchedule> window_;
  SeenFileDialog dialog_;  // the file dialog that Choose() answered last
  int dialogs_ = 0;        // and how many it has answered
  QString shown_delay_;    // what the property dialog showed at first
  QString shown_feature_;
  int properties_ = 0;
};

constexpr const char* kHead = "Week =0\r\nHour =**\r\nMin =**\r\nRow =2\r\nCol =80\r\n";

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
      {"butNew", "New", "Ctrl+N", true},     {"butOpen", "Open", "Ctrl+O", true},
      {"butSave", "Save", "Ctrl+S", false},  {"butSaveAs", "Save As", "Ctrl+Shift+S", false},
      {"butSend", "Send", "", false},        {"butExit", "Exit", "", true},
      {"butAdd", "Add", "", false},          {"butInsert", "Insert", "Ins", false},
      {"butDelete", "Delete", "Del", false}, {"butClear", "Clear", "", false},
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

TEST_F(ScheduleEditor, AfterAddTheSequencesButtonsAreEnabled) {
  New();
  Add(Message(1));
  for (const char* name : {"butSave", "butSaveAs", "butSend", "butDelete", "butClear"}) {
    EXPECT_TRUE(Button(name)->isEnabled()) << name;
  }
  EXPECT_TRUE(Asks());
}

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

TEST_F(ScheduleEditor, ReturnPressesNoButtonFromAnywhereButTheTable) {
  NewSchedule(1);
  const FileChooser cancelled{QString()};
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendSch"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  Click(2);  // "End"
  for (QWidget* widget : Window().findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible()) continue;
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
  const char* const order[] = {"butOpen",   "butSave",   "butSaveAs", "butSend",      "butExit",
                               "comboWeek", "txtHour",   "txtMin",    "GridSeqTable", "butAdd",
                               "butInsert", "butDelete", "butClear",  "butNew"};
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

TEST_F(ScheduleEditor, ALinkedFileOrFolderNameWithBlanksIsNoTrouble) {
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("my signs"))));
  ASSERT_TRUE(QFile::rename(Message(1), folder_.Path(Text("my signs/one 1.msg"))));
  New();
  Add(folder_.Path(Text("my signs/one 1.msg")));
  EXPECT_EQ(Rows()[0], Text("1|my signs/one 1.msg|5|Flip"));
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

TEST_F(ScheduleEditor, WithoutAConfiguredPanelNewSaysSoAndChangesNothing) {
  folder_.Configure("");
  const MessageBoxReader boxes;
  New(false);
  EXPECT_EQ(boxes.Texts(), Lines({"System haven't config. yet!"}));
  EXPECT_FALSE(Button("butAdd")->isEnabled());
}

/// A window in another language.
class GermanScheduleEditor : public ScheduleEditor {
 protected:
  void UseTexts(const QByteArray& features) {
    folder_.UseLanguage(
        "[Message]\nmsgSave=Sichern?\nmsgFull=Voll!\nmsgNotFound=Nicht da\nmsgErrOpen=Fehler\n"
        "msgDim=Passt nicht!\nmsgEmptySch=Leer!\nmsgPath=Pfad!\nmsgSchF=Plan\n"
        "[frmSchedule]\nfrmSchedule.Caption=Zeitplan\nDialogTitleOpen=Oeffnen\n"
        "DialogTitleSaveAs=Sichern als\nDialogTitleAddMsg=Dazu\nTableTag1=Meldung\nTableTag3=Wie\n"
        "[frmDelay]\n" +
        features);
  }
};

constexpr const char* kGermanFeatures =
    "ListFeature.List(0)=Erscheinen\nListFeature.List(1)=Umklappen\nListFeature.List(2)=Auf\n"
    "ListFeature.List(3)=Nach rechts wischen\nListFeature.List(4)=Nach links hinueber wischen\n";

TEST_F(GermanScheduleEditor, TextsComeFromTheLanguageFile) {
  UseTexts("");
  EXPECT_EQ(Window().windowTitle(), Text("Zeitplan"));
  EXPECT_EQ(Heading(0), QString());
  EXPECT_EQ(Heading(1), Text("Meldung"));
  EXPECT_EQ(Heading(2), Text("Delay"));
  EXPECT_EQ(Heading(3), Text("Wie"));
  EXPECT_EQ(Find<QLabel>("Label3")->text(),
            Text("Hour:            Minute:           ( ** for every time.)"));
  New();
  Add(Message(1));
  EXPECT_EQ(dialog_.title, Text("Dazu"));
  EXPECT_EQ(dialog_.filters, Lines({"Meldung(*.msg)", "All (*)"}));
  Choose("butSaveAs", folder_.Path(Text("a.sch")));
  EXPECT_EQ(dialog_.title, Text("Sichern als"));
  Open(QString());
  EXPECT_EQ(dialog_.title, Text("Oeffnen"));
  EXPECT_EQ(dialog_.filters, Lines({"Plan(*.sch)", "All (*)"}));
  Choose(QString(), [&] { DoubleClick(1, 1); });
  EXPECT_EQ(dialog_.title, Text("Meldung"));
}

TEST_F(GermanScheduleEditor, LongCaptionsLeaveTheTableItsRoom) {
  QByteArray texts = "[frmSchedule]\n";
  for (const char* name : {"butNew", "butSaveAs", "labelRow", "labelCol", "butAdd", "butClear"}) {
    texts += QByteArray("frmSchedule.") + name + "=" + QByteArray("Wort ").repeated(9) + "\n";
  }
  folder_.UseLanguage(texts);
  Window().resize(1, 1);
  const auto* frame = Find<QWidget>("FrameSchTable");
  EXPECT_TRUE(frame->rect().contains(Table()->geometry()));
  EXPECT_LE(Window().width(), 800);
  EXPECT_LE(Window().height(), 600);
}

TEST_F(GermanScheduleEditor, MessagesComeFromTheLanguageFile) {
  UseTexts("");
  NewSchedule(12);
  MessageBoxReader boxes;
  Press("butAdd");
  Press("butClear");
  boxes.Answer(QMessageBox::Yes);
  Press("butExit");
  Add(Message("x.msg", "Row = 3\r\nCol = 80\r\n"));
  boxes.Answer(QMessageBox::No);
  Open(folder_.Path(Text("x.msg")));
  boxes.Answer(QMessageBox::No);
  Open(folder_.Path(Text("y.sch")));
  EXPECT_EQ(boxes.Texts(), Lines({"Voll!", "Sichern?", "Leer!", "Passt nicht!", "Sichern?",
                                  "Fehler!", "Sichern?", "Nicht da!"}));
  for (const SeenMessageBox& box : boxes.Seen()) EXPECT_EQ(box.title, Text("Zeitplan"));
}

TEST_F(GermanScheduleEditor, AddPreselectsTheLanguagesEntry2) {
  UseTexts(kGermanFeatures);
  New();
  Add(Message(1), "", "");
  EXPECT_EQ(shown_feature_, Text("Auf"));
  EXPECT_EQ(Rows()[0], Text("1|1.msg|1|Auf"));
}

TEST_F(GermanScheduleEditor, TheChosenFeatureIsStoredAsShownOrInEnglishWhereItDoesNotFit) {
  UseTexts(kGermanFeatures);
  New();
  Add(Message(1), "1", "Nach rechts wischen");
  Add(Message(1), "2", "Nach links hinueber wischen");
  Add(Message(1), "3", "Shift");  // not translated
  Press("butSave");
  const QByteArray saved = folder_.Read(Text("NEW.SCH"));
  EXPECT_TRUE(saved.contains("\r\n1\r\nNach rechts wischen \r\n"));
  EXPECT_TRUE(saved.contains("\r\n2\r\nWipe Left           \r\n"));
  EXPECT_TRUE(saved.contains("\r\n3\r\nShift               \r\n"));
  EXPECT_EQ(Rows()[1], Text("2|1.msg|2|Wipe Left"));
}

TEST_F(GermanScheduleEditor, ChangingTheDelayOfAnEnglishScheduleLeavesTheEffect) {
  UseTexts(kGermanFeatures);
  Open(folder_.Write(Text("e.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                        "No of Sequence =2\r\n" + PathLine(Message(1)) +
                                        "1\r\nFlip\r\n" + PathLine(Message(1)) +
                                        "1\r\nWIPE LEFT\r\n"));
  Properties(Text("20"), {}, [&] { DoubleClick(1, 2); });
  EXPECT_EQ(shown_feature_, Text("Umklappen"));
  Properties(Text("20"), {}, [&] { DoubleClick(2, 2); });
  EXPECT_EQ(shown_feature_, Text("Nach links hinueber wischen"));
  EXPECT_EQ(Rows(), Lines({"1|1.msg|20|Umklappen", "2|1.msg|20|Wipe Left", "End|||"}));
  Properties(Text("21"), {}, [&] { DoubleClick(1, 2); });
  EXPECT_EQ(shown_feature_, Text("Umklappen"));
}

TEST_F(ScheduleEditor, ChangingTheDelayOfAForeignScheduleKeepsItsFeature) {
  Open(folder_.Write(Text("g.sch"), "*** Brivon Schedule File ***\r\n" + QByteArray(kHead) +
                                        "No of Sequence =1\r\n" + PathLine(Message(1)) + "1\r\n" +
                                        Field("Umklappen", 20) + "\r\n"));
  Properties(Text("20"), {}, [&] { DoubleClick(1, 2); });
  EXPECT_EQ(shown_feature_, Text("Appear"));
  EXPECT_EQ(Rows()[0], Text("1|1.msg|20|Umklappen"));
  Properties({}, Text("Slide"), [&] { DoubleClick(1, 2); });
  EXPECT_EQ(Rows()[0], Text("1|1.msg|20|Slide"));
}

}  // namespace
