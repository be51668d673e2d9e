// The dialog that sends one schedule file to one panel under a schedule letter.
#pragma once

#include <memory>

#include <QDialog>

#include "sending/file_to_send.h"
#include "sending/panel_choice.h"
#include "sending/sending_session.h"

namespace Ui {
class frmSendSch;
}

class frmSendSch : public QDialog {
  Q_OBJECT

 public:
  /// `file_name` is the file handed over by an editor; it may be empty. `ports` as
  /// SendingSession takes them.
  explicit frmSendSch(QWidget* parent, const QString& file_name,
                      const Brivon1::PanelPorts* ports = nullptr);
  ~frmSendSch() override;

 private:
  void Send();

  std::unique_ptr<Ui::frmSendSch> ui_;
  PanelChoice* panels_;
  FileToSend* file_;
  SendingSession* session_;
};
