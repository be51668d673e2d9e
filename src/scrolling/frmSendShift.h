// The dialog that sends one scrolling message file to one line of one panel. It sends over the
// serial line only, whatever the configured send mode.
#pragma once

#include <memory>

#include <QDialog>

#include "scrolling/scrolling_order.h"
#include "sending/file_to_send.h"
#include "sending/panel_choice.h"
#include "sending/sending_session.h"

namespace Ui {
class frmSendShift;
}

class frmSendShift : public QDialog {
  Q_OBJECT

 public:
  /// `file_name` is the file handed over by an editor; it may be empty. `ports` as
  /// SendingSession takes them.
  explicit frmSendShift(QWidget* parent, const QString& file_name,
                        const Brivon1::PanelPorts* ports = nullptr);
  ~frmSendShift() override;

 private:
  void Send();
  void SendFile(const Brivon1::ScrollingOrder& order);

  std::unique_ptr<Ui::frmSendShift> ui_;
  PanelChoice* panels_;
  FileToSend* file_;
  SendingSession* session_;
};
