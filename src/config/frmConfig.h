// The system configuration dialog: which panels exist, and how they are reached.
#pragma once

#include <memory>
#include <optional>

#include <QDialog>

#include "config/configuration_draft.h"

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

  /// Does nothing while a save waits for another program's.
  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* list, QEvent* event) override;

 private:
  /// Puts the link's frames side by side where the screen is too low for one below the other.
  void UseLowScreen();

  void SetUpCommunication();
  void SetUpPorts();
  void SetUpPanels();
  void ShowPort();

  /// Lists the configured panels anew and selects the line of panel `id`.
  void FillList(std::optional<int> id);

  /// The ID of the selected line.
  std::optional<int> SelectedId() const;

  /// Puts the values of the selected panel into the boxes.
  void ShowSelected();

  /// What the boxes for a panel hold.
  Brivon1::PanelBoxes Boxes() const;

  void SetUpNotes();

  /// Says what the boxes hold that the list does not, and what a transmission would lack.
  void ShowNotes();

  /// Marks the panels that a network would not reach.
  void MarkMissingAddresses();

  /// Adds the panel that the boxes describe; says so and returns false where it may not be added.
  bool Add();

  /// Adds the panel that was typed, and waits for the next one.
  void AddTyped();
  void Remove();

  const std::unique_ptr<Ui::frmConfig> ui_;
  Brivon1::ConfigurationDraft draft_;
  bool is_saving_ = false;
};
