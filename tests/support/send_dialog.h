// A window that sends, as a test uses it.
#pragma once

#include <memory>
#include <utility>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include "support/message_box_reader.h"

class SendDialog {
 public:
  /// Shows `dialog`, whose controls of these names are locked while it sends.
  SendDialog(std::unique_ptr<QDialog> dialog, const QList<const char*>& locked)
      : window(*dialog), locked_(locked), dialog_(std::move(dialog)) {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }

  template <typename Control>
  Control* Find(const char* name) {
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }

  void Click(const char* name) { QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton); }

  QString Shown(const char* label) { return Find<QLabel>(label)->text(); }

  /// Types `text` in place of what the box holds.
  void TypeInto(const char* box_name, const QString& text) {
    auto* box = Find<QLineEdit>(box_name);
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
  }

  /// Presses "Send" and returns the texts of the message boxes that followed.
  QStringList Send() {
    const MessageBoxReader boxes;
    Click("butSend");
    return boxes.Texts();
  }

  /// Whether nothing is being sent: the controls can be used, and the pointer is not busy.
  bool IsReady() {
    for (const char* name : locked_) {
      if (!Find<QWidget>(name)->isEnabled()) return false;
    }
    return window.cursor().shape() == Qt::ArrowCursor;
  }

  void ExpectLocked() {
    for (const char* name : locked_) EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
  }

  QDialog& window;

 private:
  QList<const char*> locked_;
  std::unique_ptr<QDialog> dialog_;
};
