#include "scrolling/frmShiftMsg.h"

#include <utility>

#include <QTimer>

#include "base/file_checks.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "row/editor_controls.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/scrolling_file.h"
#include "store/configuration_store.h"
#include "ui_frmShiftMsg.h"
#include "widgets/caption_loader.h"
#include "widgets/file_dialogs.h"
#include "widgets/file_shortcuts.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::ScrollingMessage;
using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;

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
  surface_->setAccessibleName(TranslateText(u"Message"_s));
  surface_->setFocusPolicy(Qt::StrongFocus);
  surface_->setFixedSize(RowWidth(ScrollingMessage::kSpan), kCellHeight);
  ui_->messageLayout->addWidget(surface_);
  setTabOrder(ui_->chkBlink, surface_);
  file_ = new EditedFile(
      this, ui_->lblFileName, message_.ModifiedFlag(),
      {[this](const QString& path) { return WriteFile(path); }, [this] { return AskForName(); }});
  ConnectButtons();
  ConnectMessage();
  ConnectTimers();
  file_->SetPath(Brivon1::InProgramFolder(u"NEW.SRL"_s));
  ShowEdit();
  LoadCaptions(this);
  ReturnKeyboardToMessage();
}

frmShiftMsg::~frmShiftMsg() = default;

void frmShiftMsg::ConnectButtons() {
  connect(ui_->butNew, &QPushButton::clicked, this, &frmShiftMsg::NewMessage);
  connect(ui_->butOpen, &QPushButton::clicked, this, &frmShiftMsg::OpenFile);
  connect(ui_->butSave, &QPushButton::clicked, file_, &EditedFile::Save);
  connect(ui_->butSaveAs, &QPushButton::clicked, file_, &EditedFile::SaveAs);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmShiftMsg::OpenSendDialog);
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

void frmShiftMsg::NewMessage() {
  if (!MayLeave()) return;
  message_.Begin();
  file_->SetPath(Brivon1::InProgramFolder(u"NEW.SRL"_s));
  ShowEdit();
  ReturnKeyboardToMessage();
}

void frmShiftMsg::OpenFile() {
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
  file_->SetPath(path);
  ShowEdit();
  ReturnKeyboardToMessage();
}

void frmShiftMsg::OpenSendDialog() {
  if (!MayLeave()) return;
  frmSendShift(this, file_->Path()).exec();
}

bool frmShiftMsg::WriteFile(const QString& path) {
  return ReportSave(this,
                    Brivon1::SaveFailureText(Brivon1::WriteScrollingMessage(path, message_.Row())));
}

QString frmShiftMsg::AskForName() {
  return ShowSaveDialog(this, u"Save As"_s, u"All|*.*|scrolling File(*.srl)|*.srl"_s, 2);
}

void frmShiftMsg::reject() {
  if (MayLeave()) QDialog::reject();
}

void frmShiftMsg::TypeText(const QString& text) {
  message_.TypeAll(Brivon1::BytesOf(text).bytes);
  ShowEdit();
}

void frmShiftMsg::ShowEdit() {
  surface_->RedrawRow({message_.FirstVisible(), ScrollingMessage::kSpan});
  const QString position = TranslateText(message_.IsFull() ? u"%1 of %2 (full)"_s : u"%1 of %2"_s);
  ui_->lblPosition->setText(position.arg(message_.Row().Cursor()).arg(message_.Row().Length()));
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
