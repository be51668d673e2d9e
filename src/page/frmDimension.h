// The dialog that asks which panel size a new page or schedule is made for.
#pragma once

#include <QDialog>

/// OK leaves DialogAccepted true and the chosen size in SelectedRows and SelectedCols; Cancel
/// leaves DialogAccepted false.
class frmDimension : public QDialog {
  Q_OBJECT

 public:
  explicit frmDimension(QWidget* parent);
};
