// The dialog that asks for a page number.
#pragma once

#include <memory>
#include <optional>

#include <QDialog>
#include <QString>

namespace Ui {
class frmPage;
}

/// OK leaves DialogAccepted true and the trimmed text in DialogText, unchecked; Cancel leaves
/// DialogAccepted false.
class frmPage : public QDialog {
  Q_OBJECT

 public:
  explicit frmPage(QWidget* parent);
  ~frmPage() override;

  /// Shows the dialog over `parent` until it is left. The text; nothing where it was cancelled.
  static std::optional<QString> Ask(QWidget* parent);

  void accept() override;
  void reject() override;

 private:
  const std::unique_ptr<Ui::frmPage> ui_;
};
