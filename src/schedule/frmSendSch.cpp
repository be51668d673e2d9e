#include "schedule/frmSendSch.h"

#include <QPushButton>

#include "base/file_checks.h"
#include "language/module_language.h"
#include "schedule/schedule_order.h"
#include "schedule/schedule_transmission.h"
#include "ui_frmSendSch.h"
#include "widgets/caption_loader.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

frmSendSch::frmSendSch(QWidget* parent, const QString& file_name, const Brivon1::PanelPorts* ports)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSendSch>()) {
  ui_->setupUi(this);
  panels_ = new PanelChoice(ui_->ComboSchID);
  file_ =
      new FileToSend(this,
                     {.filter = u"Schedule File|*.sch|All|*.*"_s,
                      .check = [](const QString& path) { return Brivon1::IsScheduleFile(path); },
                      .sort = Brivon1::FileSort::kSchedule,
                      .browse_end = QString(),
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
  const Brivon1::ScheduleOrder order{file_->Path(), panels_->Selected()};
  auto dimension = file_->Dimension();
  const auto refusal = Brivon1::CheckScheduleOrder(order, Brivon1::Store(), dimension);
  file_->SetDimension(dimension);
  if (refusal) {
    ShowRefusal(this, *refusal);
    return;
  }
  const int id = order.panel->id;
  const QString letter = ui_->txtSchNo->text();
  const auto show_status = [this](const QString& text) { ui_->lblSendStatus->setText(text); };
  const auto show_refusal = [this](const Brivon1::Refusal& told) { ShowRefusal(this, told); };
  auto line = sending.Open(order.panel->endpoint, show_status);
  if (!line) return;
  const bool sent = Brivon1::SendScheduleFile(*line, order.path, id, letter, show_refusal);
  if (sent) {
    sending.ShowResult(Brivon1::ScheduleSentText(line->configuration.Mode()));
  } else {
    sending.ShowFailure(*line, id, TranslateMessage(u"Transmission failure!"_s));
  }
}
