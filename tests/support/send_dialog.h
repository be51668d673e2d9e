// A dialog that sends a file, as a test uses it.
#pragma once

#include <initializer_list>

#include <QLineEdit>
#include <QStringList>
#include <QTest>

#include "support/message_box_reader.h"
#include "support/shown_window.h"

template <typename Window>
class SendDialog : public ShownWindow<Window> {
 public:
  /// `file_name` is the file handed over by an editor.
  explicit SendDialog(const QString& file_name) : ShownWindow<Window>(nullptr, file_name) {}

  /// Types `text` in place of what the box holds.
  void TypeInto(const char* box_name, const QString& text) {
    auto* box = this->template Find<QLineEdit>(box_name);
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
  }

  /// Presses "Send" and returns the texts of the message boxes that followed.
  QStringList Send() {
    const MessageBoxReader boxes;
    this->Click("butSend");
    return boxes.Texts();
  }

  /// Whether nothing is being sent: these controls can be used, and the pointer is not busy.
  bool AreReady(std::initializer_list<const char*> controls) {
    for (const char* name : controls) {
      if (!this->template Find<QWidget>(name)->isEnabled()) return false;
    }
    return this->window.cursor().shape() == Qt::ArrowCursor;
  }
};
