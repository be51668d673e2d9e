// The dialog that asks for a page number.
#pragma once

#include <QDialog>

/// OK leaves DialogAccepted true and the trimmed text in DialogText, unchecked; Cancel leaves
/// DialogAccepted false.
class frmPage : public QDialog {
  Q_OBJECT

 public:
  explicit frmPage(QWidget* parent);
};
