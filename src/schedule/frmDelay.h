// The dialog that asks for the delay and the display feature of a page.
#pragma once

#include <memory>
#include <optional>

#include <QDialog>
#include <QString>

#include "language/display_feature.h"
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
  struct Properties {
    qint16 delay;  ///< Seconds.
    QString feature;
  };

  explicit frmDelay(QWidget* parent,
                    const Brivon1::FeatureNames& features = Brivon1::FeatureNames());
  ~frmDelay() override;

  /// Shows the dialog over `parent`, starting with `start`, until it is left. The answer; nothing
  /// where it was cancelled.
  static std::optional<Properties> Ask(QWidget* parent, const Properties& start,
                                       const Brivon1::FeatureNames& features);

  void accept() override;
  void reject() override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void SetUpDelay();
  void OnDelayChanged(const QString& text);

  const std::unique_ptr<Ui::frmDelay> ui_;
  Brivon1::DelayField delay_;
};
