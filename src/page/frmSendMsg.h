// The dialog that sends one page message file to one panel as one page.
#pragma once

#include <memory>

#include <QDialog>

#include "sending/file_to_send.h"
#include "sending/panel_choice.h"
#include "sending/sending_session.h"

namespace Ui {
class frmSendMsg;
}

class frmSendMsg : public QDialog {
  Q_OBJECT

 public:
  /// `file_name` is the file handed over by an editor; it may be empty. `ports` as
  /// SendingSession takes them.
  explicit frmSendMsg(QWidget* parent, const QString& file_name,
                      const Brivon1::PanelPorts* ports = nullptr);
  ~frmSendMsg() override;

 private:
  void Send();
  void SendFile();

  std::unique_ptr<Ui::frmSendMsg> ui_;
  PanelChoice* panels_;
  FileToSend* file_;
  SendingSession* session_;
};
