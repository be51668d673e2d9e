#include "scrolling/frmSendShift.h"

#include <limits>

#include <QPushButton>

#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "language/module_language.h"
#include "scrolling/scrolling_transmission.h"
#include "ui_frmSendShift.h"
#include "widgets/caption_loader.h"
#include "widgets/file_dialogs.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

namespace {

/// The number that the text begins with; 0 where it begins with none.
int LineOf(const QString& text) {
  return Brivon1::LeadingNumber(text.toUtf8(), std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max());
}

}  // namespace

frmSendShift::frmSendShift(QWidget* parent, const QString& file_name)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSendShift>()) {
  ui_->setupUi(this);
  FillPanelList(ui_->ComboID, Brivon1::ShortPanelListLine);
  ui_->ComboID->setCurrentIndex(ui_->ComboID->count() > 0 ? 0 : -1);
  ui_->lblFileName->setText(file_name);
  session_ = new SendingSession(
      this, {ui_->butSend, ui_->butDone, ui_->butBrowse, ui_->ComboID, ui_->txtLine});
  connect(ui_->butBrowse, &QPushButton::clicked, this, &frmSendShift::Browse);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmSendShift::Send);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  LoadCaptions(this);
  (file_name.isEmpty() ? static_cast<QWidget*>(ui_->butBrowse) : ui_->ComboID)->setFocus();
}

frmSendShift::~frmSendShift() = default;

void frmSendShift::Browse() {
  OpenDialogStyle style;
  style.not_found_end = QString();
  const QString path =
      ShowFileDialog(this, u"Browse"_s, u"Scrolling Message File|*.srl|All|*.*"_s, 1, style);
  if (path.isEmpty()) return;
  if (Brivon1::IsScrollingFile(path)) {
    ui_->lblFileName->setText(path);
  } else {
    ShowMessage(this, TranslateMessage(u"Error in opening file"_s));
  }
}

void frmSendShift::Send() {
  const std::optional<Order> order = CheckedOrder();
  if (!order) return;
  session_->Run([this, &order] { SendFile(*order); });
  ui_->lblSendStatus->clear();
}

std::optional<frmSendShift::Order> frmSendShift::CheckedOrder() {
  const QString path = ui_->lblFileName->text();
  if (!Brivon1::FileExists(path)) {
    ShowMessage(this, TranslateMessage(u"File not found"_s) + QLatin1Char('!'));
    return std::nullopt;
  }
  const auto panel = SelectedPanel(ui_->ComboID);
  if (!panel) {
    ShowMessage(this, TranslateMessage(u"Invalid ID Selection!"_s));
    return std::nullopt;
  }
  if (ui_->txtLine->text().isEmpty()) {
    ShowMessage(this, TranslateMessage(u"Invalid Line No.!"_s));
    return std::nullopt;
  }
  // Lines below 1 are sent as they are: what they mean is the panel's affair.
  const int line = LineOf(ui_->txtLine->text());
  if (line > panel->rows) {
    ShowMessage(this, TranslateMessage(u"Line No. Not Valid!"_s));
    return std::nullopt;
  }
  return Order{path, panel->id, line};
}

void frmSendShift::SendFile(const Order& order) {
  const auto show_status = [this](const QString& text) { ui_->lblSendStatus->setText(text); };
  session_->TransmitOverSerial(show_status, {}, [&](Brivon1::Transmission& transmission) {
    const bool sent = Brivon1::SendScrollingFile(transmission, order.path, order.panel, order.line);
    ShowMessage(this,
                TranslateMessage(sent ? u"Transmission finished!"_s : u"Transmission failure!"_s));
  });
}
