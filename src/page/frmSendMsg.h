// The dialog that sends one page message file to one panel as one page.
#pragma once

#include <QDialog>

class frmSendMsg : public QDialog {
  Q_OBJECT

 public:
  /// `file_name` is the file handed over by an editor; it may be empty.
  explicit frmSendMsg(QWidget* parent, const QString& file_name);
};
