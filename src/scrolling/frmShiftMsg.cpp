#include "scrolling/frmShiftMsg.h"

#include <utility>

#include <QTimer>

#include "base/file_checks.h"
#include "language/module_language.h"
#include "row/editor_controls.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/scrolling_file.h"
#include "store/configuration_store.h"
#include "ui_frmShiftMsg.h"
#include "widgets/caption_room.h"
#include "widgets/file_dialogs.h"
#include "widgets/file_shortcuts.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::ScrollingMessage;
using ModuleLanguage::TranslateMessage;

constexpr int kCursorMilliseconds = 500;
constexpr int kBlinkMilliseconds = 500;

}  // namespace

frmShiftMsg::frmShiftMsg(QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::frmShiftMsg>()),
      cursor_timer_(new QTimer(this)),
      blink_timer_(new QTimer(this)) {
  ui_->setupUi(this);
  cursor_timer_->setObjectName(u"Timer1"_s);
  blink_timer_->setObjectName(u"Timer2"_s);
  surface_ = new RowSurface(message_.Row(), ui_->frameMessage);
  surface_->setObjectName(u"Picture1"_s);
  surface_->setAccessibleName(u"Message"_s);
  surface_->setFocusPolicy(Qt::StrongFocus);
  surface_->setFixedSize(RowWidth(ScrollingMessage::kSpan), kCellHeight);
  ui_->messageLayout->addWidget(surface_);
  setTabOrder(ui_->chkBlink, surface_);
  ConnectButtons();
  ConnectMessage();
  ConnectTimers();
  ui_->lblFileName->setText(Brivon1::InProgramFolder(u"NEW.SRL"_s));
  GiveCaptionsRoom(this);
  ShowEdit();
  ReturnKeyboardToMessage();
}

frmShiftMsg::~frmShiftMsg() = default;

void frmShiftMsg::ConnectButtons() {
  connect(ui_->butNew, &QPushButton::clicked, this, &frmShiftMsg::New);
  connect(ui_->butOpen, &QPushButton::clicked, this, &frmShiftMsg::Open);
  connect(ui_->butSave, &QPushButton::clicked, this, &frmShiftMsg::Save);
  connect(ui_->butSaveAs, &QPushButton::clicked, this, &frmShiftMsg::SaveAs);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmShiftMsg::Send);
  connect(ui_->butExit, &QPushButton::clicked, this, &frmShiftMsg::reject);
  AddFileShortcuts({ui_->butNew, ui_->butOpen, ui_->butSave, ui_->butSaveAs});
}

void frmShiftMsg::ConnectMessage() {
  ConnectAttributes({ui_->ComboColor, ui_->ComboSize, ui_->chkBlink}, message_);
  for (QComboBox* list : {ui_->ComboColor, ui_->ComboSize}) {
    new ListGuard(list, [this] { ReturnKeyboardToMessage(); });
  }
  connect(ui_->chkBlink, &QCheckBox::clicked, this, &frmShiftMsg::ReturnKeyboardToMessage);
  connect(surface_, &RowSurface::Typed, this, &frmShiftMsg::TypeText);
  connect(surface_, &RowSurface::MoveKeyPressed, this, [this](Brivon1::MoveKey key) {
    message_.PressMoveKey(key);
    ShowEdit();
  });
  connect(surface_, &RowSurface::Clicked, this, [this](double x) {
    message_.Click(x);
    ShowEdit();
  });
  AddUndoShortcuts(
      this, [this] { ShowUndone(message_.Undo()); }, [this] { ShowUndone(message_.Redo()); });
}

void frmShiftMsg::ConnectTimers() {
  cursor_timer_->setInterval(kCursorMilliseconds);
  connect(cursor_timer_, &QTimer::timeout, this, [this] { SetCursorShown(!cursor_shown_); });
  blink_timer_->setInterval(kBlinkMilliseconds);
  connect(blink_timer_, &QTimer::timeout, this, [this] {
    blinking_hidden_ = !blinking_hidden_;
    surface_->SetBlinkingHidden(blinking_hidden_);
  });
  blink_timer_->start();
}

bool frmShiftMsg::MayLeave() {
  if (!message_.IsModified()) return true;
  switch (AskToSave(this)) {
    case SaveAnswer::kYes:
      return Save();
    case SaveAnswer::kNo:
      return true;
    case SaveAnswer::kCancel:
      return false;
  }
  return false;
}

void frmShiftMsg::New() {
  if (!MayLeave()) return;
  message_.Begin();
  ui_->lblFileName->setText(Brivon1::InProgramFolder(u"NEW.SRL"_s));
  ShowEdit();
  ReturnKeyboardToMessage();
}

void frmShiftMsg::Open() {
  if (!MayLeave()) return;
  const QString path =
      ShowFileDialog(this, u"Open Message"_s, u"All|*.*|Scrolling Message|*.srl"_s, 2);
  if (path.isEmpty()) return;
  if (!Brivon1::IsScrollingFile(path)) {
    ShowMessage(this, TranslateMessage(u"Error in opening file"_s) + QLatin1Char('!'));
    return;
  }
  auto row = Brivon1::ReadScrollingMessage(path);
  if (!row) {
    ShowMessage(this, TranslateMessage(u"Error in Opening file"_s) + QLatin1Char('!'));
    return;
  }
  message_.TakeOver(std::move(*row));
  ui_->lblFileName->setText(path);
  ShowEdit();
  ReturnKeyboardToMessage();
}

bool frmShiftMsg::Save() { return SaveTo(ui_->lblFileName->text()); }

void frmShiftMsg::SaveAs() {
  const QString path =
      ShowSaveDialog(this, u"Save As"_s, u"All|*.*|scrolling File(*.srl)|*.srl"_s, 2);
  if (!path.isEmpty() && SaveTo(path)) ui_->lblFileName->setText(path);
}

void frmShiftMsg::Send() {
  if (!MayLeave()) return;
  frmSendShift(this, ui_->lblFileName->text()).exec();
}

void frmShiftMsg::reject() {
  if (MayLeave()) QDialog::reject();
}

bool frmShiftMsg::SaveTo(const QString& path) {
  const Brivon1::SaveResult result = Brivon1::WriteScrollingMessage(path, message_.Row());
  if (result == Brivon1::SaveResult::kSaved) {
    message_.SetModified(false);
    return true;
  }
  ShowMessage(this, TranslateMessage(Brivon1::SaveFailureText(result)));
  return false;
}

void frmShiftMsg::TypeText(const QString& text) {
  message_.TypeAll(Brivon1::BytesOf(text).bytes);
  ShowEdit();
}

void frmShiftMsg::ShowEdit() {
  surface_->RedrawRow({message_.FirstVisible(), ScrollingMessage::kSpan});
  QString position = u"%1 of %2"_s.arg(message_.Row().Cursor()).arg(message_.Row().Length());
  if (message_.IsFull()) position += u" (full)"_s;
  ui_->lblPosition->setText(position);
  // The cursor is seen at once wherever it has come to, and blinks from there on.
  SetCursorShown(true);
  cursor_timer_->start();
}

void frmShiftMsg::ShowUndone(bool undone) {
  if (!undone) return;
  ShowEdit();
  ReturnKeyboardToMessage();
}

void frmShiftMsg::SetCursorShown(bool shown) {
  cursor_shown_ = shown;
  surface_->SetCursorLine(shown ? RowSurface::CursorLine::kShown : RowSurface::CursorLine::kErased);
}

void frmShiftMsg::ReturnKeyboardToMessage() { surface_->setFocus(); }
