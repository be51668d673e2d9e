#include "command/frmCommand.h"

#include <QDateTime>
#include <QPushButton>

#include "language/module_language.h"
#include "page/dialog_results.h"
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

frmCommand::frmCommand(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmCommand>()) {
  ui_->setupUi(this);
  for (const char* name : Brivon1::kCommandNames) {
    ui_->ListCommand->addItem(QString::fromLatin1(name));
  }
  FillPanelList(ui_->ComboID);
  ui_->ComboID->setCurrentIndex(ui_->ComboID->count() > 0 ? 0 : -1);
  session_ = new SendingSession(this, {ui_->butSend, ui_->butDone, ui_->ListCommand, ui_->ComboID});
  connect(ui_->butSend, &QPushButton::clicked, this, &frmCommand::Send);
  connect(ui_->ListCommand, &QListWidget::itemDoubleClicked, this, &frmCommand::Send);
  connect(ui_->butDone, &QPushButton::clicked, this, &QDialog::accept);
  LoadCaptions(this);
  ui_->ListCommand->setAccessibleName(windowTitle());
}

frmCommand::~frmCommand() = default;

void frmCommand::Send() {
  const auto panel = SelectedPanel(ui_->ComboID);
  if (!panel) {
    ShowMessage(this, TranslateMessage(u"Empty ID!"_s));
    return;
  }
  session_->Run([&] {
    const MessageBoxStyle failure = CommandStyle(QMessageBox::Warning);
    session_->Transmit(
        panel->endpoint, [](const QString&) {}, failure,
        [&](Brivon1::Transmission& transmission) {
          CarryOut(transmission, panel->id);
          Brivon1::WaitTicks(transmission.timer, kLastBytesTime);
        });
  });
}

void frmCommand::CarryOut(Brivon1::Transmission& transmission, int id) {
  const int row = ui_->ListCommand->currentRow();
  if (row < 0) return;
  const auto command = static_cast<PanelCommand>(row);
  QString page;
  if (Brivon1::NeedsPage(command)) {
    frmPage(this).exec();
    if (!Brivon1::DialogAccepted) return;
    page = Brivon1::DialogText;
    if (!Brivon1::IsPageNumber(page)) {
      ShowMessage(this, TranslateMessage(u"Invalid Page Value!"_s),
                  CommandStyle(QMessageBox::Warning));
      return;
    }
  }
  const Brivon1::CommandReport report =
      Brivon1::CarryOutCommand(transmission, transmission.configuration.Mode(), command, id, page,
                               QDateTime::currentDateTime());
  QStringList text;
  for (const QString& piece : report.text) text.append(TranslateMessage(piece));
  ShowMessage(this, text.join(QLatin1Char(' ')),
              CommandStyle(report.succeeded ? QMessageBox::Information : QMessageBox::Warning,
                           report.title));
}
