#include "page/frmPage.h"

#include "app/caption_loader.h"
#include "core/dialog_results.h"
#include "ui_frmPage.h"

frmPage::frmPage(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmPage>()) {
  ui_->setupUi(this);
  ui_->txtPage->setText(QStringLiteral("001"));
  connect(ui_->butOk, &QPushButton::clicked, this, &frmPage::accept);
  connect(ui_->butCancel, &QPushButton::clicked, this, &frmPage::reject);
  LoadCaptions(this);
}

frmPage::~frmPage() = default;

void frmPage::setVisible(bool visible) {
  QDialog::setVisible(visible);
  // A dialog selects the text of its first field when it is shown; here the caret stands behind it.
  ui_->txtPage->deselect();
  ui_->txtPage->end(false);
}

void frmPage::accept() {
  Brivon1::DialogText = ui_->txtPage->text().trimmed();
  Brivon1::DialogAccepted = true;
  QDialog::accept();
}

void frmPage::reject() {
  Brivon1::DialogAccepted = false;
  QDialog::reject();
}
