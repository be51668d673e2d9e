#include "page/frmDimension.h"

#include "language/module_language.h"
#include "page/dialog_results.h"
#include "store/configuration_store.h"
#include "ui_frmDimension.h"
#include "widgets/caption_loader.h"
#include "widgets/fitted_text.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

frmDimension::frmDimension(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmDimension>()) {
  ui_->setupUi(this);
  Brivon1::DialogAccepted = false;  // also where the program's end closes the dialog
  connect(ui_->butOK, &QPushButton::clicked, this, &frmDimension::accept);
  connect(ui_->butCancel, &QPushButton::clicked, this, &frmDimension::reject);
  connect(ui_->List1, &QListWidget::itemDoubleClicked, this, &frmDimension::accept);
  LoadCaptions(this);
  ui_->List1->setAccessibleName(WithoutShortcutMark(ui_->FrameDimension->title()));

  Brivon1::LoadConfiguration();
  dimensions_ = Brivon1::DistinctDimensions(Brivon1::Store());
  for (const Brivon1::Dimension& dimension : dimensions_) {
    ui_->List1->addItem(Brivon1::DimensionText(dimension));
  }
  ui_->List1->setCurrentRow(0);
  if (!dimensions_.isEmpty()) return;

  ui_->butOK->setEnabled(false);
  // This dialog is not on screen yet, so that the box stands over the window that asked for it.
  MessageBoxStyle style;
  style.title = windowTitle();
  ShowRefusal(parent != nullptr ? parent : this,
              {ModuleLanguage::TranslateMessage(u"System haven't config. yet!"_s),
               ModuleLanguage::TranslateMessage(u"Set up a panel: Config in the main window."_s)},
              style);
}

frmDimension::~frmDimension() = default;

std::optional<Brivon1::Dimension> frmDimension::Ask(QWidget* parent) {
  frmDimension(parent).exec();
  if (!Brivon1::DialogAccepted) return std::nullopt;
  return Brivon1::Dimension{Brivon1::SelectedRows, Brivon1::SelectedCols};
}

void frmDimension::accept() {
  const int chosen = ui_->List1->currentRow();
  if (chosen < 0) return;
  Brivon1::SelectedRows = dimensions_[chosen].rows;
  Brivon1::SelectedCols = dimensions_[chosen].columns;
  Brivon1::DialogAccepted = true;
  QDialog::accept();
}

void frmDimension::reject() {
  Brivon1::DialogAccepted = false;
  QDialog::reject();
}
