#include "schedule/frmDelay.h"

#include <QFocusEvent>
#include <QRegularExpressionValidator>

#include "language/display_feature.h"
#include "language/module_language.h"
#include "page/dialog_results.h"
#include "ui_frmDelay.h"
#include "widgets/caption_loader.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

// The entry that stands for no selection at all.
constexpr int kFallbackFeature = 2;

}  // namespace

frmDelay::frmDelay(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmDelay>()), delay_(Brivon1::DialogDelay) {
  ui_->setupUi(this);
  Brivon1::DialogAccepted = false;  // also where the program's end closes the dialog
  SetUpDelay();
  SetUpFeatures();
  ui_->txtDelay->setAccessibleName(WithoutShortcutMark(ui_->FrameDelay->title()));
  ui_->ListFeature->setAccessibleName(WithoutShortcutMark(ui_->FrameFeature->title()));
  connect(ui_->butOK, &QPushButton::clicked, this, &frmDelay::accept);
  connect(ui_->butCancel, &QPushButton::clicked, this, &frmDelay::reject);
}

frmDelay::~frmDelay() = default;

void frmDelay::SetUpDelay() {
  static const QRegularExpression digits(u"[0-9]*"_s);
  ui_->txtDelay->setText(delay_.LastValidText());
  ui_->txtDelay->setValidator(new QRegularExpressionValidator(digits, ui_->txtDelay));
  ui_->txtDelay->installEventFilter(this);
  connect(ui_->txtDelay, &QLineEdit::textChanged, this, &frmDelay::OnDelayChanged);
}

void frmDelay::SetUpFeatures() {
  QListWidget* list = ui_->ListFeature;
  if (ModuleLanguage::IsLanguageActive()) {
    LoadCaptions(this);
    const auto found =
        list->findItems(Brivon1::DialogText, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!found.isEmpty()) list->setCurrentItem(found.first());
    return;
  }
  for (const Brivon1::DisplayFeature& feature : Brivon1::kDisplayFeatures) {
    list->addItem(QString::fromLatin1(feature.name));
  }
  list->setCurrentRow(Brivon1::PreselectedFeature(Brivon1::DialogText));
}

void frmDelay::OnDelayChanged(const QString& text) {
  const QString valid = delay_.Changed(text);
  if (valid != text) ui_->txtDelay->setText(valid);  // the caret goes to its end
}

bool frmDelay::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // Another window or a menu in front does not leave the field.
    const bool left = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
    if (left && ui_->txtDelay->text().trimmed().isEmpty()) {
      ui_->txtDelay->setText(delay_.LastValidText());
    }
  }
  return QDialog::eventFilter(object, event);
}

void frmDelay::accept() {
  const QList<QListWidgetItem*> selected = ui_->ListFeature->selectedItems();
  const QListWidgetItem* feature =
      selected.isEmpty() ? ui_->ListFeature->item(kFallbackFeature) : selected.first();
  Brivon1::DialogDelay = delay_.LastValid();
  Brivon1::DialogText = feature->text();
  Brivon1::DialogAccepted = true;
  QDialog::accept();
}

void frmDelay::reject() {
  Brivon1::DialogAccepted = false;
  QDialog::reject();
}
