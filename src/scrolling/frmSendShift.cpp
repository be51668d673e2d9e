#include "scrolling/frmSendShift.h"

#include <QPushButton>

#include "base/file_checks.h"
#include "language/module_language.h"
#include "scrolling/scrolling_transmission.h"
#include "sending/sending_words.h"
#include "ui_frmSendShift.h"
#include "widgets/caption_loader.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

namespace {

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
                          .sort = Brivon1::FileSort::kScrolling,
                          .browse_end = QString(),
                          .dialog_name = u"CMDialog1"_s},
                         {ui_->butBrowse, ui_->lblFileName}, file_name);
  session_ = new SendingSession(
      this, {ui_->butSend, ui_->butDone, ui_->butBrowse, ui_->ComboID, ui_->txtLine}, ports);
  session_->ShowNote(Brivon1::SerialNote(Brivon1::Store()));
  connect(ui_->butSend, &QPushButton::clicked, this, &frmSendShift::Send);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  LoadCaptions(this);
  (file_name.isEmpty() ? static_cast<QWidget*>(ui_->butBrowse) : ui_->ComboID)->setFocus();
}

frmSendShift::~frmSendShift() = default;

void frmSendShift::Send() {
  const Brivon1::ScrollingOrder order{file_->Path(), panels_->Selected(), ui_->txtLine->text()};
  if (const auto refusal = Brivon1::CheckScrollingOrder(order, Brivon1::Store())) {
    ShowRefusal(this, *refusal);
    return;
  }
  SendFile(order);
  ui_->lblSendStatus->clear();
}

void frmSendShift::SendFile(const Brivon1::ScrollingOrder& order) {
  Sending sending(session_);
  if (!sending) return;
  const auto show_status = [this](const QString& text) { ui_->lblSendStatus->setText(text); };
  auto line = sending.OpenSerial(show_status);
  if (!line) return;
  const int id = order.panel->id;
  const bool sent =
      Brivon1::SendScrollingFile(*line, order.path, id, Brivon1::LineNumber(order.line));
  if (sent) {
    sending.ShowResult(TranslateMessage(u"Transmission finished!"_s));
  } else {
    sending.ShowFailure(*line, id, TranslateMessage(u"Transmission failure!"_s));
  }
}
