#include "page/frmSendMsg.h"

#include <limits>

#include <QPushButton>

#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "language/module_language.h"
#include "page/message_transmission.h"
#include "ui_frmSendMsg.h"
#include "widgets/caption_loader.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using Brivon1::Dimension;
using Brivon1::SendMode;
using ModuleLanguage::TranslateMessage;

namespace {

/// The page number as it goes on the wire: the number that the text begins with, at least three
/// digits long.
QByteArray PageDigits(const QString& text) {
  return Brivon1::ZeroPadded(
      Brivon1::LeadingNumber(text.toUtf8(), 0, std::numeric_limits<int>::max()), 3);
}

}  // namespace

frmSendMsg::frmSendMsg(QWidget* parent, const QString& file_name, const Brivon1::PanelPorts* ports)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSendMsg>()) {
  ui_->setupUi(this);
  panels_ = new PanelChoice(ui_->ComboID);
  file_ = new FileToSend(this,
                         {.filter = u"Message File|*.msg|All|*.*"_s,
                          .check = Brivon1::IsMessageFile,
                          .browse_end = u"!"_s,
                          .send_end = u"!"_s,
                          .dialog_name = u"CMDialog1"_s},
                         {ui_->butBrowse, ui_->lblFileName, ui_->lblRow, ui_->lblCol}, file_name);
  session_ = new SendingSession(
      this, {ui_->butBrowse, ui_->ComboID, ui_->txtPage, ui_->butSend, ui_->butDone}, ports);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmSendMsg::Send);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  LoadCaptions(this);
  (file_name.isEmpty() ? static_cast<QWidget*>(ui_->butBrowse) : ui_->ComboID)->setFocus();
}

frmSendMsg::~frmSendMsg() = default;

void frmSendMsg::Send() {
  SendFile();
  ui_->lblSendStatus->clear();
}

void frmSendMsg::SendFile() {
  Sending sending(session_);
  if (!sending) return;
  const QString path = file_->Path();
  if (!Brivon1::FileExists(path)) {
    file_->ReportNotFound();
    return;
  }
  const auto panel = panels_->Selected();
  if (!panel) {
    ShowMessage(this, TranslateMessage(u"Invalid ID Selection!"_s));
    return;
  }
  if (ui_->txtPage->text().isEmpty()) {
    ShowMessage(this, TranslateMessage(u"Invalid Page Value!"_s));
    return;
  }
  const auto dimension = Brivon1::IsMessageFile(path);
  if (!dimension) {
    file_->ReportWrongKind();
    return;
  }
  const Dimension panel_dimension{panel->rows, panel->columns};
  if (*dimension != panel_dimension) {
    ShowMessage(this, TranslateMessage(u"Dimension not matched!"_s));
    return;
  }
  if (Brivon1::Store().Mode() == SendMode::kTcp && !panel->endpoint.IsUsable()) {
    ShowMessage(this, TranslateMessage(u"IP address is null or invaild"_s));
    return;
  }
  const QByteArray page = PageDigits(ui_->txtPage->text());
  const auto show_status = [this](const QString& text) { ui_->lblSendStatus->setText(text); };
  auto line = sending.Open(panel->endpoint, show_status);
  if (!line) return;
  const bool sent = Brivon1::SendMessageFile(*line, path, panel->id, page, panel_dimension);
  if (sent) {
    sending.ShowResult(TranslateMessage(u"Transmission finished!"_s));
  } else {
    sending.ShowFailure(*line, panel->id, TranslateMessage(u"Transmission failure!"_s));
  }
}
