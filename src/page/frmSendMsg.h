// The dialog that sends one page message file to one panel as one page.
#pragma once

#include <memory>

#include <QDialog>

#include "sending/file_to_send.h"
#include "sending/sending_session.h"

namespace Ui {
class frmSendMsg;
}

class frmSendMsg : public QDialog {
  Q_OBJECT

 public:
  /// `file_name` is the file handed over by an editor; it may be empty.
  explicit frmSendMsg(QWidget* parent, const QString& file_name);
  ~frmSendMsg() override;

 private:
  void Send();
  void SendFile();

  std::unique_ptr<Ui::frmSendMsg> ui_;
  FileToSend* file_;
  SendingSession* session_;
};
