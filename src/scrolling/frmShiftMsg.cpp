#include "scrolling/frmShiftMsg.h"

#include <algorithm>
#include <utility>

#include <QCheckBox>
#include <QComboBox>

#include "base/file_checks.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "row/editor_controls.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/scrolling_file.h"
#include "store/configuration_store.h"
#include "ui_frmShiftMsg.h"
#include "widgets/caption_loader.h"
#include "widgets/enter_key.h"
#include "widgets/file_dialogs.h"
#include "widgets/file_shortcuts.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::ScrollingMessage;
using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;

}  // namespace

frmShiftMsg::frmShiftMsg(QWidget* parent, ScrollingPreview::TimeSource now,
                         const Brivon1::PanelPorts* ports)
    : QDialog(parent),
      ui_(std::make_unique<Ui::frmShiftMsg>()),
      ports_(ports),
      timers_(new BlinkTimers(this)) {
  ui_->setupUi(this);
  surface_ = new RowSurface(message_.Row(), ui_->frameMessage);
  surface_->setObjectName(u"Picture1"_s);
  surface_->setAccessibleName(TranslateText(u"Message"_s));
  surface_->setFocusPolicy(Qt::StrongFocus);
  surface_->setFixedSize(RowWidth(ScrollingMessage::kSpan), kCellHeight);
  ui_->messageLayout->addWidget(surface_);
  setTabOrder(ui_->chkBlink, surface_);
  ui_->panePreview->Build(
      message_.Row(), [this] { return message_.FirstVisible(); }, std::move(now));
  file_ = new EditedFile(this, {ui_->lblFileName, ui_->lblNotSaved}, message_.Modified(),
                         {.write = [this](const QString& path) { return WriteFile(path); },
                          .ask_for_name = [this] { return AskForName(); },
                          .ask_what_to_open = [this] { return AskWhatToOpen(); },
                          .open = [this](const QString& path) { OpenFile(path); }});
  ConnectButtons();
  ConnectMessage();
  file_->BeginNew(Brivon1::InProgramFolder(u"NEW.SRL"_s));
  LoadCaptions(this);
  surface_->SetWords(WordsOf({ui_->ComboColor, ui_->ComboSize, ui_->chkBlink}));
  ResumeTyping();
}

frmShiftMsg::~frmShiftMsg() = default;

void frmShiftMsg::ConnectButtons() {
  connect(ui_->butNew, &QPushButton::clicked, this, &frmShiftMsg::NewMessage);
  connect(ui_->butOpen, &QPushButton::clicked, file_, &EditedFile::Open);
  connect(ui_->butSave, &QPushButton::clicked, file_, &EditedFile::Save);
  connect(ui_->butSaveAs, &QPushButton::clicked, file_, &EditedFile::SaveAs);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmShiftMsg::OpenSendDialog);
  connect(ui_->butExit, &QPushButton::clicked, this, &frmShiftMsg::reject);
  AddFileShortcuts({ui_->butNew, ui_->butOpen, ui_->butSave, ui_->butSaveAs, ui_->butSend});
  LetEnterPressButtons(this);
}

void frmShiftMsg::ConnectMessage() {
  const auto return_keyboard = [this] { surface_->setFocus(); };
  commands_ = new RowCommands(
      this, message_, [this] { ShowEdit(); }, return_keyboard);
  commands_->Serve(*surface_, message_.EditedNumber());
  connect(commands_, &RowCommands::Said, surface_, [this](const QString& text) {
    ui_->lblRowStatus->ShowNote(text, *surface_);
    ShowBesideCursor(*surface_, text);
  });
  ConnectAttributes({ui_->ComboColor, ui_->ComboSize, ui_->chkBlink}, message_, *commands_,
                    return_keyboard);
  connect(surface_, &RowSurface::Typed, this, &frmShiftMsg::TypeText);
  connect(surface_, &RowSurface::MoveKeyPressed, this, [this](Brivon1::MoveKey key) {
    message_.PressMoveKey(key);
    ShowEdit();
  });
  connect(surface_, &RowSurface::Clicked, this, [this](double x) {
    message_.Click(x);
    ShowEdit();
  });
  connect(commands_, &RowCommands::AttributesChosen, this, &frmShiftMsg::ShowStatus);
  AddUndoShortcuts(this, message_, [this] { ResumeTyping(); });
  connect(timers_, &BlinkTimers::CursorBlinked, surface_, [this](bool shown) {
    surface_->SetCursorLine(shown ? RowSurface::CursorLine::kShown
                                  : RowSurface::CursorLine::kErased);
  });
  connect(timers_, &BlinkTimers::CharactersBlinked, surface_, &RowSurface::SetBlinkingHidden);
}

void frmShiftMsg::NewMessage() {
  if (!MayLeave()) return;
  message_.Begin();
  file_->BeginNew(Brivon1::InProgramFolder(u"NEW.SRL"_s));
  ResumeTyping();
}

QString frmShiftMsg::AskWhatToOpen() {
  return ShowFileDialog(this, u"Open Message"_s, u"All|*.*|Scrolling Message|*.srl"_s, 2);
}

void frmShiftMsg::OpenFile(const QString& path) {
  if (!Brivon1::IsScrollingFile(path)) {
    ShowRefusal(this, {TranslateMessage(u"Error in opening file"_s) + u'!',
                       Brivon1::WrongKindRemedy(path, Brivon1::FileSort::kScrolling)});
    return;
  }
  Brivon1::FileFailure failure;
  auto row = Brivon1::ReadScrollingMessage(path, &failure);
  if (!row) {
    ShowRefusal(this, {TranslateMessage(u"Error in Opening file"_s) + u'!',
                       Brivon1::ScrollingFileRemedy(path, failure)});
    return;
  }
  message_.TakeOver(std::move(*row));
  file_->SetPath(path);
  ResumeTyping();
}

void frmShiftMsg::OpenSendDialog() {
  if (!MayLeave()) return;
  frmSendShift(this, file_->Path(), ports_).exec();
}

bool frmShiftMsg::WriteFile(const QString& path) {
  QString reason;
  const auto result = Brivon1::WriteScrollingMessage(path, message_.Row(), &reason);
  return ReportSave(this, path, result, reason);
}

QString frmShiftMsg::AskForName() {
  return ShowSaveDialog(this, u"Save As"_s, u"All|*.*|scrolling File(*.srl)|*.srl"_s, 2);
}

void frmShiftMsg::reject() {
  if (MayLeave()) QDialog::reject();
}

void frmShiftMsg::TypeText(const QString& text) {
  const Brivon1::LeftOut left_out = message_.Type(message_.EditedNumber(), text);
  ShowEdit();
  ui_->lblRowStatus->ShowLeftOut(left_out, *surface_);
}

void frmShiftMsg::ShowEdit() {
  surface_->RedrawRow({message_.FirstVisible(), ScrollingMessage::kSpan});
  const QString position = TranslateText(message_.IsFull() ? u"%1 of %2 (full)"_s : u"%1 of %2"_s);
  ui_->panePreview->Rest();
  ui_->lblPosition->setText(position.arg(message_.Row().Cursor()).arg(message_.Row().Length()));
  timers_->ShowCursor();
  ShowStatus();
}

void frmShiftMsg::ShowStatus() {
  const Brivon1::PageRow& row = message_.Row();
  const qsizetype places = std::max(ScrollingMessage::kMostCharacters, row.Length());
  ui_->lblRowStatus->ShowStatus({.place = std::min(row.Cursor() + 1, places), .places = places},
                                *surface_, message_.CurrentAttributes());
}

void frmShiftMsg::ResumeTyping() {
  ShowEdit();
  surface_->setFocus();
}
