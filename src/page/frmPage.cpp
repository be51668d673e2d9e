#include "page/frmPage.h"

#include "page/dialog_results.h"
#include "ui_frmPage.h"
#include "widgets/caption_loader.h"

using namespace Qt::StringLiterals;

frmPage::frmPage(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmPage>()) {
  ui_->setupUi(this);
  Brivon1::DialogAccepted = false;  // also where the program's end closes the dialog
  ui_->txtPage->setText(u"001"_s);
  ui_->txtPage->selectAll();  // what is typed takes its place
  connect(ui_->butOk, &QPushButton::clicked, this, &frmPage::accept);
  connect(ui_->butCancel, &QPushButton::clicked, this, &frmPage::reject);
  LoadCaptions(this);
}

frmPage::~frmPage() = default;

std::optional<QString> frmPage::Ask(QWidget* parent) {
  frmPage(parent).exec();
  if (!Brivon1::DialogAccepted) return std::nullopt;
  return Brivon1::DialogText;
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
