// The configuration dialog, driven by key and mouse.
#pragma once

#include <memory>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include "config/frmConfig.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/text.h"

inline constexpr const char* kTwoPanels =
    "[Dimension Config]\r\n"
    "ID001=4x96,Tri,127.0.0.1:2101\r\n"
    "ID012=12x192,Mono,192.168.0.12:80\r\n"
    "[Communication]\r\n"
    "SendMode=TCPIP\r\n"
    "Baudrate=4800\r\n"
    "ComPort=3\r\n";

inline constexpr const char* kLine1 = "ID001     4x96     Tri-Color     127.0.0.1:2101";
inline constexpr const char* kLine12 = "ID012     12x192     Mono-Color     192.168.0.12:80";

class ConfigDialogTest : public testing::Test {
 protected:
  void Open(const QByteArray& ini) {
    folder_.Write(Text("brivon.ini"), ini);
    Open();
  }

  void Open() {
    window_ = std::make_unique<frmConfig>();
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }

  template <typename Control>
  Control* Find(const char* name) {
    auto* control = window_->findChild<Control*>(Text(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }

  QLineEdit* Box(const char* name) { return Find<QLineEdit>(name); }
  QRadioButton* Option(const char* name) { return Find<QRadioButton>(name); }
  QListWidget* List() { return Find<QListWidget>("List1"); }
  QListWidget* Ports() { return Find<QListWidget>("ListComPort"); }

  void Click(const char* name) { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }

  // Puts a text into a box as an operator does, the keyboard in it afterwards.
  void Type(const char* name, const char* text) {
    QLineEdit* box = Box(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, Text(text));
  }

  void Paste(const char* name, const char* text) {
    QGuiApplication::clipboard()->setText(Text(text));
    Box(name)->setFocus();
    Box(name)->selectAll();
    QTest::keyClick(Box(name), Qt::Key_V, Qt::ControlModifier);
  }

  void TypePanel(const char* id, const char* rows, const char* columns) {
    Type("txtID", id);
    Type("txtRow", rows);
    Type("txtcol", columns);
  }

  void ClickLine(QListWidget* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
  }

  QStringList Lines() {
    QStringList lines;
    for (int i = 0; i < List()->count(); ++i) lines.append(List()->item(i)->text());
    return lines;
  }

  QString SelectedLine() {
    const QList<QListWidgetItem*> selected = List()->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
  }

  QByteArray File() const { return folder_.Read(Text("brivon.ini")); }

  void ExpectOneBox(const char* text) {
    ASSERT_EQ(reader_.Texts(), QStringList{Text(text)});
    EXPECT_EQ(reader_.Seen().first().title, Text("Configuration"));
    EXPECT_EQ(reader_.Seen().first().icon, QMessageBox::NoIcon);
    EXPECT_EQ(reader_.Seen().first().buttons, QMessageBox::Ok);
    EXPECT_EQ(reader_.Seen().first().parent, window_.get());
  }

  TemporaryProgramFolder folder_;
  MessageBoxReader reader_;
  std::unique_ptr<frmConfig> window_;
};
