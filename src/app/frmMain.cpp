#include "app/frmMain.h"

#include <QCoreApplication>

#include "app/about.h"
#include "app/blocked_clicks.h"
#include "app/launcher_layout.h"
#include "app/session_end.h"
#include "base/code_page.h"
#include "base/twips.h"
#include "language/module_language.h"
#include "store/configuration_store.h"
#include "store/ini_file.h"
#include "ui_frmMain.h"
#include "widgets/caption_loader.h"
#include "widgets/toolkit_language.h"
#include "widgets/window_keys.h"

namespace {

constexpr int kEnglish = 1;
constexpr int kLanguageFile = 2;

}  // namespace

frmMain::frmMain(std::vector<TaskWindow> windows)
    : ui_(std::make_unique<Ui::frmMain>()), windows_(std::move(windows)) {
  ui_->setupUi(this);
  SetUpButtons();
  new SessionEnd([this] { return open_window_.data(); }, this);

  Brivon1::LoadConfiguration();
  Brivon1::CodePage::SetSystem(Brivon1::Store().code_page);
  const int language = Brivon1::IniFile::Load(Brivon1::ConfigurationPath())
                           .Integer("Language", "Language", kEnglish);
  if (language == kLanguageFile) {
    ModuleLanguage::SetLanguageActive(true);
    UseToolkitLanguage(this);
    LoadCaptions(this);
    resize(Brivon1::kTranslatedWidth / Brivon1::kTwipsPerPixel, height());
  } else {
    GiveWindowKeys(this);
  }
  TellAboutProgram(this);
  LayOut();
}

frmMain::~frmMain() = default;

void frmMain::SetUpButtons() {
  ui_->butMsgEdit->SetSymbol(LauncherSymbol::kMessage);
  ui_->butShiftMsg->SetSymbol(LauncherSymbol::kScrolling);
  ui_->butSchEdit->SetSymbol(LauncherSymbol::kSchedule);
  ui_->butConfigEdit->SetSymbol(LauncherSymbol::kConfig);
  ui_->butCommand->SetSymbol(LauncherSymbol::kCommand);
  ui_->butEnd->SetSymbol(LauncherSymbol::kExit);

  for (const TaskWindow& task : windows_) {
    auto* button = findChild<QPushButton*>(QString::fromLatin1(task.button));
    button->setEnabled(true);
    connect(button, &QPushButton::clicked, this, [this, &task] { Open(task); });
  }
  // Not quit(): that would ask the windows first.
  connect(ui_->butEnd, &QPushButton::clicked, this, [] { QCoreApplication::exit(); });
}

void frmMain::resizeEvent(QResizeEvent* /*event*/) { LayOut(); }

void frmMain::LayOut() {
  const int button_width = Brivon1::LauncherButtonPixels(width());
  int left = 0;
  for (QWidget* button :
       {ui_->butMsgEdit, ui_->butSchEdit, ui_->butConfigEdit, ui_->butCommand, ui_->butEnd}) {
    button->setGeometry(left, button->y(), button_width, button->height());
    left += button_width;
  }
  // The labels stay where they are and take the room that there is.
  const int margin = ui_->butShiftMsg->x();
  for (QWidget* label : {ui_->lblTitle, ui_->lblInfo}) {
    label->resize(width() - margin - label->x(), label->height());
  }
  ui_->lblInfo->resize(ui_->lblInfo->width(), height() - margin - ui_->lblInfo->y());
}

void frmMain::Open(const TaskWindow& task) {
  if (open_window_ != nullptr) return;  // one window at a time, however the click came
  const std::unique_ptr<QDialog> window = task.create();
  open_window_ = window.get();
  const BlockedClicks clicks(this, window.get());
  window->exec();
}
