#include "command/frmCommand.h"

#include <QDateTime>
#include <QPushButton>

#include "language/module_language.h"
#include "page/frmPage.h"
#include "panel_line/waits.h"
#include "ui_frmCommand.h"
#include "widgets/caption_loader.h"

using namespace Qt::StringLiterals;

using Brivon1::PanelCommand;
using ModuleLanguage::TranslateMessage;

namespace {

constexpr int kLastBytesTime = 300;  // milliseconds for the last bytes to leave the line

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
  panels_ = new PanelChoice(ui_->ComboID);
  ui_->ComboID->setCurrentIndex(ui_->ComboID->count() > 0 ? 0 : -1);
  session_ =
      new SendingSession(this, {ui_->butSend, ui_->butDone, ui_->ListCommand, ui_->ComboID}, ports);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmCommand::Send);
  connect(ui_->ListCommand, &QListWidget::itemDoubleClicked, this, &frmCommand::Send);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  // The file's own section has no text for the frame; that of a window that has one says the same.
  if (ModuleLanguage::IsLanguageActive()) {
    ui_->FrameStatus->setTitle(ModuleLanguage::ReadLangString(
        u"frmSendMsg"_s, u"frmSendMsg.FrameStatus"_s, ui_->FrameStatus->title()));
  }
  LoadCaptions(this);
}

frmCommand::~frmCommand() = default;

void frmCommand::Send() {
  const auto panel = panels_->Selected();
  if (!panel) {
    ShowMessage(this, TranslateMessage(u"Empty ID!"_s));
    return;
  }
  Sending sending(session_);
  if (!sending) return;
  const auto no_status = [](const QString&) {};
  auto line = sending.Open(panel->endpoint, no_status, CommandStyle(QMessageBox::Warning));
  if (!line) return;
  CarryOut(sending, *line, panel->id);
  Brivon1::WaitTicks(line->timer, kLastBytesTime);
}

void frmCommand::CarryOut(Sending& sending, Brivon1::OpenLine& line, int id) {
  const int row = ui_->ListCommand->currentRow();
  if (row < 0) return;
  const auto command = static_cast<PanelCommand>(row);
  QString page;
  if (Brivon1::NeedsPage(command)) {
    const auto text = frmPage::Ask(this);
    if (!text) return;
    page = *text;
    if (!Brivon1::IsPageNumber(page)) {
      ShowMessage(this, TranslateMessage(u"Invalid Page Value!"_s),
                  CommandStyle(QMessageBox::Warning));
      return;
    }
  }
  const Brivon1::CommandReport report =
      Brivon1::CarryOutCommand(line, command, id, page, QDateTime::currentDateTime());
  QStringList text;
  for (const QString& piece : report.text) text.append(TranslateMessage(piece));
  const QString shown = text.join(QLatin1Char(' '));
  if (report.succeeded) {
    sending.ShowResult(shown, CommandStyle(QMessageBox::Information, report.title));
  } else {
    sending.ShowFailure(line, id, shown, CommandStyle(QMessageBox::Warning, report.title));
  }
}
