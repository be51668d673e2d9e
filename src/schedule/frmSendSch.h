// The dialog that sends one schedule file to one panel.
#pragma once

#include <QDialog>
#include <QLabel>

#include "core/file_checks.h"

class frmSendSch : public QDialog {
 public:
  /// `file_name` is the file handed over by an editor; it may be empty.
  frmSendSch(QWidget* parent, const QString& file_name) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSendSch"));
    const auto dimension = Brivon1::IsScheduleFile(file_name).value_or(Brivon1::Dimension{});
    AddLabel("lblSchFileName", file_name);
    AddLabel("lblRow", QString::number(dimension.rows));
    AddLabel("lblCol", QString::number(dimension.columns));
  }

 private:
  void AddLabel(const char* name, const QString& text) {
    auto* label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
  }
};
