#include "command/frmCommand.h"

#include <QDateTime>
#include <QPushButton>

#include "command/command_order.h"
#include "command/command_rows.h"
#include "language/module_language.h"
#include "page/frmPage.h"
#include "panel_line/waits.h"
#include "sending/refusals.h"
#include "sending/sending_words.h"
#include "ui_frmCommand.h"
#include "widgets/caption_loader.h"
#include "widgets/kept_place.h"

using namespace Qt::StringLiterals;

using Brivon1::PanelCommand;
using ModuleLanguage::TranslateMessage;

namespace {

MessageBoxStyle CommandStyle(QMessageBox::Icon icon, const QString& title = u"Command"_s) {
  return {icon, TranslateMessage(title), {}};
}

}  // namespace

frmCommand::frmCommand(QWidget* parent, const Brivon1::PanelPorts* ports)
    : QDialog(parent), ui_(std::make_unique<Ui::frmCommand>()) {
  ui_->setupUi(this);
  for (const char* name : Brivon1::kCommandNames) {
    ui_->ListCommand->addItem(QString::fromLatin1(name));
  }
  ui_->ListCommand->setItemDelegate(new CommandRows(ui_->ListCommand));
  panels_ = new PanelChoice(ui_->ComboID);
  ui_->ComboID->setCurrentIndex(ui_->ComboID->count() > 0 ? 0 : -1);
  session_ =
      new SendingSession(this, {ui_->butSend, ui_->butDone, ui_->ListCommand, ui_->ComboID}, ports);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmCommand::Send);
  connect(ui_->ListCommand, &QListWidget::itemDoubleClicked, this, &frmCommand::Send);
  connect(ui_->ListCommand, &QListWidget::itemSelectionChanged, this,
          &frmCommand::ShowWhatItDeletes);
  connect(ui_->ListCommand, &QListWidget::itemSelectionChanged, this,
          [this] { session_->ShowNote(Brivon1::LinkNote(Brivon1::Store())); });
  connect(ui_->ComboID, &QComboBox::currentIndexChanged, this, &frmCommand::ShowWhatItDeletes);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  KeepPlaceWhenHidden(ui_->lblWhatItDeletes);
  ui_->lblWhatItDeletes->setText(TranslateMessage(ui_->lblWhatItDeletes->text()));
  ShowWhatItDeletes();
  // The file's own section has no text for the frame; that of a window that has one says the same.
  if (ModuleLanguage::IsLanguageActive()) {
    ui_->FrameStatus->setTitle(ModuleLanguage::ReadLangString(
        u"frmSendMsg"_s, u"frmSendMsg.FrameStatus"_s, ui_->FrameStatus->title()));
  }
  KeepCommandsInSight();
  LoadCaptions(this);
  ui_->ListCommand->setAccessibleName(windowTitle());
}

frmCommand::~frmCommand() = default;

void frmCommand::KeepCommandsInSight() {
  QListWidget* list = ui_->ListCommand;
  int height = 2 * list->frameWidth();
  for (int row = 0; row < list->count(); ++row) {
    height += list->sizeHintForRow(row) + 2 * list->spacing();
  }
  list->setMinimumHeight(height);
}

std::optional<PanelCommand> frmCommand::SelectedCommand() const {
  const QList<QListWidgetItem*> selected = ui_->ListCommand->selectedItems();
  if (selected.isEmpty()) return std::nullopt;
  return static_cast<PanelCommand>(ui_->ListCommand->row(selected.first()));
}

void frmCommand::ShowWhatItDeletes() {
  const auto command = SelectedCommand();
  const auto panel = panels_->Selected();
  const bool deletes = command && panel && Brivon1::Deletes(*command);
  ui_->lblWhatItDeletes->setVisible(deletes);
  if (!deletes) return;
  const QString text = TranslateMessage(Brivon1::WhatItDeletes(*command, panel->id));
  ui_->lblWhatItDeletes->setText(QString(text).replace(u"%1"_s, Brivon1::PanelName(panel->id)));
}

void frmCommand::Send() {
  const auto panel = panels_->Selected();
  if (const auto refusal = Brivon1::CheckCommandPanel(panel, Brivon1::Store())) {
    ShowRefusal(this, *refusal);
    return;
  }
  Sending sending(session_);
  if (!sending) return;
  const auto no_status = [](const QString&) {};
  auto line = sending.Open(panel->endpoint, no_status, CommandStyle(QMessageBox::Warning));
  if (!line) return;
  CarryOut(sending, *line, panel->id);
  Brivon1::WaitTicks(line->timer, Brivon1::kLastBytesTime);
}

void frmCommand::CarryOut(Sending& sending, Brivon1::OpenLine& line, int id) {
  const auto command = SelectedCommand();
  if (!command) {
    session_->ShowNote(TranslateMessage(u"Choose a command."_s));
    return;
  }
  QString page;
  if (Brivon1::NeedsPage(*command)) {
    const auto text = frmPage::Ask(this);
    if (!text) return;
    page = *text;
    if (const auto refusal = Brivon1::CheckCommandPage(page)) {
      ShowRefusal(this, *refusal, CommandStyle(QMessageBox::Warning));
      return;
    }
  }
  const Brivon1::CommandReport report =
      Brivon1::CarryOutCommand(line, *command, id, page, QDateTime::currentDateTime());
  const QString shown = Brivon1::CommandReportText(report);
  if (report.succeeded) {
    sending.ShowResult(shown, CommandStyle(QMessageBox::Information, report.title));
  } else {
    sending.ShowFailure(line, id, shown, CommandStyle(QMessageBox::Warning, report.title));
  }
}
