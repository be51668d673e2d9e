#include "scrolling/frmSendShift.h"

#include <limits>

#include <QPushButton>

#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "language/module_language.h"
#include "scrolling/scrolling_transmission.h"
#include "sending/sending_words.h"
#include "ui_frmSendShift.h"
#include "widgets/caption_loader.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

namespace {

/// The number that the text begins with; 0 where it begins with none.
int LineOf(const QString& text) {
  return Brivon1::LeadingNumber(text.toUtf8(), std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max());
}

/// As FileToSend checks it: a scrolling message is made for no dimension.
std::optional<Brivon1::Dimension> CheckScrollingFile(const QString& path) {
  if (!Brivon1::IsScrollingFile(path)) return std::nullopt;
  return Brivon1::Dimension{};
}

}  // namespace

frmSendShift::frmSendShift(QWidget* parent, const QString& file_name,
                           const Brivon1::PanelPorts* ports)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSendShift>()) {
  ui_->setupUi(this);
  panels_ = new PanelChoice(ui_->ComboID, Brivon1::ShortPanelListLine);
  ui_->ComboID->setCurrentIndex(ui_->ComboID->count() > 0 ? 0 : -1);
  file_ = new FileToSend(this,
                         {.filter = u"Scrolling Message File|*.srl|All|*.*"_s,
                          .check = CheckScrollingFile,
                          .browse_end = QString(),
                          .send_end = u"!"_s,
                          .dialog_name = u"CMDialog1"_s},
                         {ui_->butBrowse, ui_->lblFileName}, file_name);
  session_ = new SendingSession(
      this, {ui_->butSend, ui_->butDone, ui_->butBrowse, ui_->ComboID, ui_->txtLine}, ports);
  session_->ShowNote(SerialNote(Brivon1::Store()));
  connect(ui_->butSend, &QPushButton::clicked, this, &frmSendShift::Send);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  LoadCaptions(this);
  (file_name.isEmpty() ? static_cast<QWidget*>(ui_->butBrowse) : ui_->ComboID)->setFocus();
}

frmSendShift::~frmSendShift() = default;

void frmSendShift::Send() {
  const std::optional<Order> order = CheckedOrder();
  if (!order) return;
  SendFile(*order);
  ui_->lblSendStatus->clear();
}

std::optional<frmSendShift::Order> frmSendShift::CheckedOrder() {
  const QString path = file_->Path();
  if (!Brivon1::FileExists(path)) {
    file_->ReportNotFound();
    return std::nullopt;
  }
  const auto panel = panels_->Selected();
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
  Sending sending(session_);
  if (!sending) return;
  const auto show_status = [this](const QString& text) { ui_->lblSendStatus->setText(text); };
  auto line = sending.OpenSerial(show_status);
  if (!line) return;
  const bool sent = Brivon1::SendScrollingFile(*line, order.path, order.panel, order.line);
  if (sent) {
    sending.ShowResult(TranslateMessage(u"Transmission finished!"_s));
  } else {
    sending.ShowFailure(*line, order.panel, TranslateMessage(u"Transmission failure!"_s));
  }
}
