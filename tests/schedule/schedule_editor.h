// What the tests of the schedule editor share: the window over a program folder of its own, driven
// by key and mouse, with its dialogs answered and its message boxes read.
#pragma once

#include <initializer_list>
#include <memory>

#include <QByteArray>
#include <QClipboard>
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "page/dialog_results.h"
#include "schedule/frmSchedule.h"
#include "schedule/sequence_table.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/shown_window.h"

class ScheduleEditor : public testing::Test {
 protected:
  static constexpr const char* kQuestion = "File not saved. Save it now?";
  static constexpr const char* kFull = "Schedule is full!";
  static constexpr const char* kAddRefusal = "Cannot Exceed 26 different message file!";
  static constexpr const char* kInsertRefusal = "Cannot Exceed 26 different Message Files!";

  /// The lines of a schedule file between its first line and the number of its sequences.
  static constexpr const char* kHead = "Week =0\r\nHour =**\r\nMin =**\r\nRow =2\r\nCol =80\r\n";

  static QString Text(const char* text) { return QString::fromUtf8(text); }

  static QStringList Lines(std::initializer_list<const char*> texts) {
    QStringList lines;
    for (const char* text : texts) lines.append(Text(text));
    return lines;
  }

  /// `text` with as many blanks behind it as make it `size` characters long.
  static QByteArray Field(const QByteArray& text, qsizetype size) {
    return text.leftJustified(size);
  }

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

  virtual std::unique_ptr<frmSchedule> MakeWindow() { return std::make_unique<frmSchedule>(); }

  /// The window, opened when it is first needed.
  frmSchedule& Window() {
    if (!window_) {
      window_ = MakeWindow();
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
      rows.append(
          cells.join(QLatin1Char('|'))
              .remove(QDir::toNativeSeparators(folder_.Path(QString()) + QLatin1Char('/'))));
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
