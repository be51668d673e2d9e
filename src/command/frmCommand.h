// The display command window: polls a panel, sets its clock, deletes its pages, deletes or runs
// one.
#pragma once

#include <memory>

#include <QDialog>

#include "command/commands.h"
#include "sending/sending_session.h"

namespace Ui {
class frmCommand;
}

class frmCommand : public QDialog {
  Q_OBJECT

 public:
  explicit frmCommand(QWidget* parent = nullptr);
  ~frmCommand() override;

 private:
  void Send();
  void CarryOut(Brivon1::Transmission& transmission, int id);

  std::unique_ptr<Ui::frmCommand> ui_;
  SendingSession* session_;
};
