// The system configuration dialog: which panels exist, and how they are reached.
#pragma once

#include <memory>
#include <optional>

#include <QDialog>

#include "config/configuration_draft.h"

class QLineEdit;

namespace Ui {
class frmConfig;
}

/// Reloads the store and edits a copy of it. OK writes the copy to "brivon.ini" and reloads the
/// store; a file that cannot be written is reported and the dialog stays. Cancel, Escape and the
/// close box leave the file as it was.
class frmConfig : public QDialog {
  Q_OBJECT

 public:
  explicit frmConfig(QWidget* parent = nullptr);
  ~frmConfig() override;

  void accept() override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void SetUpCommunication();
  void SetUpPorts();
  void SetUpPanels();
  void SetUpNumber(QLineEdit* box, int lowest, int highest);
  void ShowPort();

  /// Lists the configured panels anew and selects the line of panel `id`.
  void FillList(std::optional<int> id);

  /// The ID of the selected line.
  std::optional<int> SelectedId() const;

  /// Puts the values of the selected panel into the boxes.
  void ShowSelected();

  /// Adds the panel that the boxes describe; says so and returns false where it may not be added.
  bool Add();
  void Remove();

  /// Whether the address box holds an address, or what a chosen line put there. Says so where it
  /// does not, and clears it.
  bool CheckAddress();
  void OnAddressLeft();
  void RefuseAddress();

  const std::unique_ptr<Ui::frmConfig> ui_;
  Brivon1::ConfigurationDraft draft_;
  QString chosen_address_ = Brivon1::kNoAddress;  // as a line holds it, not typed by anybody
  bool refusing_address_ = false;                 // its message is on screen
};
