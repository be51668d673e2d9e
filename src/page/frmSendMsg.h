// The dialog that sends one page message file to one panel as one page.
#pragma once

#include <memory>

#include <QDialog>

#include "core/file_checks.h"
#include "core/sending_session.h"

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
  void Browse();
  void Send();
  void SendFile();
  void ShowFile(const QString& path, Brivon1::Dimension dimension);

  std::unique_ptr<Ui::frmSendMsg> ui_;
  SendingSession* session_;
};
