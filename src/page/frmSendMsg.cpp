#include "page/frmSendMsg.h"

#include <QPushButton>

#include "base/file_checks.h"
#include "language/module_language.h"
#include "page/message_transmission.h"
#include "page/page_order.h"
#include "ui_frmSendMsg.h"
#include "widgets/caption_loader.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

frmSendMsg::frmSendMsg(QWidget* parent, const QString& file_name, const Brivon1::PanelPorts* ports)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSendMsg>()) {
  ui_->setupUi(this);
  panels_ = new PanelChoice(ui_->ComboID);
  file_ = new FileToSend(this,
                         {.filter = u"Message File|*.msg|All|*.*"_s,
                          .check = [](const QString& path) { return Brivon1::IsMessageFile(path); },
                          .sort = Brivon1::FileSort::kPage,
                          .browse_end = u"!"_s,
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
  const Brivon1::PageOrder order{file_->Path(), panels_->Selected(), ui_->txtPage->text()};
  if (const auto refusal = Brivon1::CheckPageOrder(order, Brivon1::Store())) {
    ShowRefusal(this, *refusal);
    return;
  }
  const Brivon1::PanelListEntry& panel = *order.panel;
  const auto show_status = [this](const QString& text) { ui_->lblSendStatus->setText(text); };
  auto line = sending.Open(panel.endpoint, show_status);
  if (!line) return;
  const bool sent = Brivon1::SendMessageFile(
      *line, order.path, panel.id, Brivon1::PageDigits(order.page), {panel.rows, panel.columns});
  if (sent) {
    sending.ShowResult(TranslateMessage(u"Transmission finished!"_s));
  } else {
    sending.ShowFailure(*line, panel.id, TranslateMessage(u"Transmission failure!"_s));
  }
}
