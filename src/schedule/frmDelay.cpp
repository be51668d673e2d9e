#include "schedule/frmDelay.h"

#include <QFocusEvent>
#include <QRegularExpressionValidator>

#include "page/dialog_results.h"
#include "ui_frmDelay.h"
#include "widgets/caption_loader.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

// The entry that stands for no selection at all.
constexpr int kFallbackFeature = 2;

}  // namespace

frmDelay::frmDelay(QWidget* parent, const Brivon1::FeatureNames& features)
    : QDialog(parent), ui_(std::make_unique<Ui::frmDelay>()), delay_(Brivon1::DialogDelay) {
  ui_->setupUi(this);
  Brivon1::DialogAccepted = false;  // also where the program's end closes the dialog
  SetUpDelay();
  ui_->ListFeature->addItems(features.Entries());
  ui_->ListFeature->setCurrentRow(features.Preselected(Brivon1::DialogText));
  LoadCaptions(this);
  ui_->txtDelay->setAccessibleName(WithoutShortcutMark(ui_->FrameDelay->title()));
  ui_->ListFeature->setAccessibleName(WithoutShortcutMark(ui_->FrameFeature->title()));
  connect(ui_->butOK, &QPushButton::clicked, this, &frmDelay::accept);
  connect(ui_->butCancel, &QPushButton::clicked, this, &frmDelay::reject);
}

frmDelay::~frmDelay() = default;

std::optional<frmDelay::Properties> frmDelay::Ask(QWidget* parent, const Properties& start,
                                                  const Brivon1::FeatureNames& features) {
  Brivon1::DialogDelay = start.delay;
  Brivon1::DialogText = start.feature;
  frmDelay(parent, features).exec();
  if (!Brivon1::DialogAccepted) return std::nullopt;
  return Properties{Brivon1::DialogDelay, Brivon1::DialogText};
}

void frmDelay::SetUpDelay() {
  static const QRegularExpression digits(u"[0-9]*"_s);
  ui_->txtDelay->setText(delay_.LastValidText());
  ui_->txtDelay->selectAll();  // what is typed takes its place
  ui_->txtDelay->setValidator(new QRegularExpressionValidator(digits, ui_->txtDelay));
  ui_->txtDelay->installEventFilter(this);
  connect(ui_->txtDelay, &QLineEdit::textChanged, this, &frmDelay::OnDelayChanged);
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
