// The dialog that asks for the delay and the display feature of a page.
#pragma once

#include <memory>

#include <QDialog>

#include "schedule/delay_field.h"

namespace Ui {
class frmDelay;
}

/// Starts with DialogDelay, and with the feature that DialogText names: in upper case without a
/// language, as the list shows it with one. OK leaves DialogAccepted true, the last valid delay in
/// DialogDelay and the feature's name as shown in DialogText; Cancel leaves DialogAccepted false.
class frmDelay : public QDialog {
  Q_OBJECT

 public:
  explicit frmDelay(QWidget* parent);
  ~frmDelay() override;

  void accept() override;
  void reject() override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void SetUpFeatures();
  void SetUpDelay();
  void OnDelayChanged(const QString& text);

  const std::unique_ptr<Ui::frmDelay> ui_;
  Brivon1::DelayField delay_;
};
