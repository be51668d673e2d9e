#include "schedule/frmSendSch.h"

#include <QPushButton>

#include "base/file_checks.h"
#include "base/files.h"
#include "language/module_language.h"
#include "schedule/schedule_transmission.h"
#include "ui_frmSendSch.h"
#include "widgets/caption_loader.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using Brivon1::Dimension;
using Brivon1::SendMode;
using ModuleLanguage::TranslateMessage;

namespace {

QString SentText(SendMode mode) {
  if (mode == SendMode::kSerial) return TranslateMessage(u"Transmission finished!"_s);
  // The language file's published text that says the same comes first.
  return TranslateMessage(
      u"Schedule file download done!"_s,
      TranslateMessage(u"Schedules file is sent successfully through network"_s));
}

}  // namespace

frmSendSch::frmSendSch(QWidget* parent, const QString& file_name, const Brivon1::PanelPorts* ports)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSendSch>()) {
  ui_->setupUi(this);
  panels_ = new PanelChoice(ui_->ComboSchID);
  file_ =
      new FileToSend(this,
                     {.filter = u"Schedule File|*.sch|All|*.*"_s,
                      .check = Brivon1::IsScheduleFile,
                      .browse_end = QString(),
                      .send_end = QString(),
                      .dialog_name = u"DialogBrowse"_s},
                     {ui_->butBrowse, ui_->lblSchFileName, ui_->lblRow, ui_->lblCol}, file_name);
  // The letter may be typed on: a transmission has taken its own at its beginning.
  session_ = new SendingSession(this, {ui_->butSend, ui_->butDone, ui_->ComboSchID, ui_->butBrowse},
                                ports);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmSendSch::Send);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  LoadCaptions(this);
  (file_name.isEmpty() ? static_cast<QWidget*>(ui_->butBrowse) : ui_->txtSchNo)->setFocus();
}

frmSendSch::~frmSendSch() = default;

void frmSendSch::Send() {
  Sending sending(session_);
  if (!sending) return;
  ui_->lblSendStatus->clear();
  const QString path = file_->Path();
  if (!Brivon1::FileExists(path)) {
    file_->ReportNotFound();
    return;
  }
  const auto panel = panels_->Selected();
  if (!panel) {
    ShowMessage(this, TranslateMessage(u"No ID Selected!"_s));
    return;
  }
  // The file may have been saved for another panel since it was chosen.
  file_->ReadAgain();
  if (file_->Dimension() != Dimension{panel->rows, panel->columns}) {
    ShowMessage(this, TranslateMessage(u"Dimension not matched!"_s));
    return;
  }
  const QString letter = ui_->txtSchNo->text();
  const auto show_status = [this](const QString& text) { ui_->lblSendStatus->setText(text); };
  const auto show_text = [this](const QString& text) { ShowMessage(this, text); };
  auto line = sending.Open(panel->endpoint, show_status);
  if (!line) return;
  const bool sent = Brivon1::SendScheduleFile(*line, path, panel->id, letter, show_text);
  if (sent) {
    sending.ShowResult(SentText(line->configuration.Mode()));
  } else {
    sending.ShowFailure(*line, panel->id, TranslateMessage(u"Transmission failure!"_s));
  }
}
