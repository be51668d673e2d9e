// The dialog that asks which panel size a new page or schedule is made for.
#pragma once

#include <memory>
#include <optional>

#include <QDialog>
#include <QList>

#include "page/dimension_list.h"

namespace Ui {
class frmDimension;
}

/// OK leaves DialogAccepted true and the chosen size in SelectedRows and SelectedCols; Cancel
/// leaves DialogAccepted false.
class frmDimension : public QDialog {
  Q_OBJECT

 public:
  /// Reloads the configuration. When no panel is configured it says so before it returns, in a
  /// message box over `parent`, and the dialog can only be cancelled.
  explicit frmDimension(QWidget* parent);
  ~frmDimension() override;

  /// Shows the dialog over `parent` until it is left. The chosen size; nothing where it was
  /// cancelled.
  static std::optional<Brivon1::Dimension> Ask(QWidget* parent);

  void accept() override;
  void reject() override;

 private:
  const std::unique_ptr<Ui::frmDimension> ui_;
  QList<Brivon1::Dimension> dimensions_;
};
