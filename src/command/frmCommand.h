// The display command window: polls a panel, sets its clock, deletes its pages, deletes or runs
// one.
#pragma once

#include <memory>
#include <optional>

#include <QDialog>

#include "command/commands.h"
#include "sending/panel_choice.h"
#include "sending/sending_session.h"

namespace Ui {
class frmCommand;
}

class frmCommand : public QDialog {
  Q_OBJECT

 public:
  /// `ports` as SendingSession takes them.
  explicit frmCommand(QWidget* parent = nullptr, const Brivon1::PanelPorts* ports = nullptr);
  ~frmCommand() override;

 private:
  /// The command whose row is selected; the keyboard alone, resting on a row, selects none.
  std::optional<Brivon1::PanelCommand> SelectedCommand() const;

  /// Says what the selected command will do where it deletes.
  void ShowWhatItDeletes();

  void KeepCommandsInSight();
  void Send();
  void CarryOut(Sending& sending, Brivon1::OpenLine& line, int id);

  std::unique_ptr<Ui::frmCommand> ui_;
  PanelChoice* panels_;
  SendingSession* session_;
};
