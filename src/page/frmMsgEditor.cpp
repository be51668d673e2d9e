#include "page/frmMsgEditor.h"

#include <utility>

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QTimer>

#include "language/module_language.h"
#include "page/dialog_results.h"
#include "page/frmDimension.h"
#include "page/frmSendMsg.h"
#include "page/message_file.h"
#include "row/editor_controls.h"
#include "ui_frmMsgEditor.h"
#include "widgets/caption_loader.h"
#include "widgets/file_dialogs.h"
#include "widgets/file_shortcuts.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kMaxRows;
using ModuleLanguage::TranslateMessage;

constexpr int kCursorMilliseconds = 500;
constexpr int kBlinkMilliseconds = 500;
constexpr int kShiftPixels = 10;

}  // namespace

frmMsgEditor::frmMsgEditor(QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::frmMsgEditor>()),
      cursor_timer_(new QTimer(this)),
      blink_timer_(new QTimer(this)) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  cursor_timer_->setObjectName(u"Timer1"_s);
  blink_timer_->setObjectName(u"Timer2"_s);
  ui_->rowArea->Build(page_, *ui_->scrollRows);
  FillLists();
  ConnectButtons();
  ConnectRows();
  ConnectTimers();
  setTabOrder(ui_->cmdAddTime, &ui_->rowArea->Surface(1));
  for (int row = 1; row < kMaxRows; ++row) {
    setTabOrder(&ui_->rowArea->Surface(row), &ui_->rowArea->Surface(row + 1));
  }
  setTabOrder(&ui_->rowArea->Surface(kMaxRows), ui_->Command3);
  ui_->butNew->setFocus();
  LoadCaptions(this);
  ui_->rowArea->NameRows(ui_->labelRow->text(), ui_->lblGraphic->text(),
                         WordsOf({ui_->ComboColor, ui_->ComboSize, ui_->chkBlink}));
  // Captions that take several lines leave room for all twelve rows.
  setMinimumHeight(layout()->totalMinimumHeightForWidth(minimumSizeHint().width()));
}

frmMsgEditor::~frmMsgEditor() = default;

void frmMsgEditor::FillLists() {
  ConnectAttributes({ui_->ComboColor, ui_->ComboSize, ui_->chkBlink}, page_);
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    ui_->ComboGraphic->addItem(QString(QLatin1Char(letter)));
  }
  // Any choice counts, also of the entry that is shown already.
  connect(ui_->ComboGraphic, &QComboBox::activated, this, [this](int index) {
    page_.InsertGraphic(static_cast<char>('A' + index));
    ShowEdit();
    ReturnKeyboardToRow();
  });
  for (QComboBox* list : {ui_->ComboColor, ui_->ComboSize, ui_->ComboGraphic}) {
    new ListGuard(list, [this] { ReturnKeyboardToRow(); });
  }
  ui_->ComboGraphic->installEventFilter(this);
}

void frmMsgEditor::ConnectButtons() {
  connect(ui_->butNew, &QPushButton::clicked, this, &frmMsgEditor::New);
  connect(ui_->butOpen, &QPushButton::clicked, this, &frmMsgEditor::Open);
  connect(ui_->butSave, &QPushButton::clicked, this, &frmMsgEditor::Save);
  connect(ui_->butSaveAs, &QPushButton::clicked, this, &frmMsgEditor::SaveAs);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmMsgEditor::Send);
  connect(ui_->butExit, &QPushButton::clicked, this, &frmMsgEditor::reject);
  connect(ui_->chkBlink, &QCheckBox::clicked, this, &frmMsgEditor::ReturnKeyboardToRow);
  connect(ui_->cmdAddDate, &QPushButton::clicked, this, [this] {
    page_.InsertDate();
    ShowEdit();
    ReturnKeyboardToRow();
  });
  connect(ui_->cmdAddTime, &QPushButton::clicked, this, [this] {
    page_.InsertTime();
    ShowEdit();
    ReturnKeyboardToRow();
  });
  connect(ui_->Command3, &QPushButton::clicked, this,
          [this] { ui_->rowArea->MoveRows(kShiftPixels); });
  connect(ui_->Command4, &QPushButton::clicked, this,
          [this] { ui_->rowArea->MoveRows(-kShiftPixels); });
  AddFileShortcuts({ui_->butNew, ui_->butOpen, ui_->butSave, ui_->butSaveAs});
  AddUndoShortcuts(
      this, [this] { ShowUndone(page_.Undo()); }, [this] { ShowUndone(page_.Redo()); });
}

void frmMsgEditor::ShowUndone(bool undone) {
  if (!undone) return;
  ShowEdit();
  ReturnKeyboardToRow();
}

void frmMsgEditor::ConnectRows() {
  for (int row = 1; row <= kMaxRows; ++row) {
    RowSurface& surface = ui_->rowArea->Surface(row);
    connect(&surface, &RowSurface::Typed, this,
            [this, row](const QString& text) { TypeText(row, text); });
    connect(&surface, &RowSurface::MoveKeyPressed, this,
            [this, row](Brivon1::MoveKey key) { PressMoveKey(row, key); });
    connect(&surface, &RowSurface::Clicked, this, [this, row](double x) { ClickRow(row, x); });
    connect(&surface, &RowSurface::KeyboardEntered, this, [this, row] { EnterRow(row); });
  }
}

void frmMsgEditor::ConnectTimers() {
  cursor_timer_->setInterval(kCursorMilliseconds);
  connect(cursor_timer_, &QTimer::timeout, this, [this] { SetCursorShown(!cursor_shown_); });
  blink_timer_->setInterval(kBlinkMilliseconds);
  connect(blink_timer_, &QTimer::timeout, this, [this] {
    blinking_hidden_ = !blinking_hidden_;
    for (int row = 1; row <= page_.Rows(); ++row) {
      ui_->rowArea->Surface(row).SetBlinkingHidden(blinking_hidden_);
    }
  });
  blink_timer_->start();
}

bool frmMsgEditor::MayLeave() {
  if (!page_.IsModified()) return true;
  switch (AskToSave(this)) {
    case SaveAnswer::kYes:
      return SaveToCurrentName();  // the page stays marked modified
    case SaveAnswer::kNo:
      return true;
    case SaveAnswer::kCancel:
      return false;
  }
  return false;
}

void frmMsgEditor::New() {
  if (!MayLeave()) return;
  frmDimension(this).exec();
  if (!Brivon1::DialogAccepted) return;
  page_.Begin({Brivon1::SelectedRows, Brivon1::SelectedCols});
  SetFileName(Brivon1::InProgramFolder(u"NEW.MSG"_s));
  LayOutPage();
}

void frmMsgEditor::Open() {
  if (!MayLeave()) return;
  const QString filter = u"All|*.*|%1(*.msg)|*.msg|%2(*.sch)|*.sch"_s.arg(
      TranslateMessage(u"Message File"_s), TranslateMessage(u"Schedule File"_s));
  const QString path = ShowFileDialog(this, ModuleLanguage::DialogTitleOpenMsg, filter, 2);
  if (path.isEmpty()) return;
  SetFileName(path);
  // Until the file is read, its name stands beside a page that is not its own.
  name_was_refused_ = true;
  if (!Brivon1::IsMessageFile(path)) {
    ShowMessage(this, TranslateMessage(u"Error in opening file"_s) + QLatin1Char('!'));
    return;
  }
  auto loaded = Brivon1::LoadMessageFile(path);
  if (!loaded) {
    ShowMessage(this, TranslateMessage(u"Error in Opening file"_s) + QLatin1Char('!'));
    return;
  }
  name_was_refused_ = false;
  page_.TakeOver(loaded->dimension, std::move(loaded->rows));
  LayOutPage();
}

void frmMsgEditor::Save() {
  if (SaveToCurrentName()) page_.SetModified(false);
}

void frmMsgEditor::SaveAs() {
  if (SaveToChosenName()) page_.SetModified(false);
}

void frmMsgEditor::Send() {
  if (!MayLeave()) return;
  frmSendMsg(this, ui_->lblFileName->text()).exec();
}

void frmMsgEditor::reject() {
  if (MayLeave()) QDialog::reject();
}

bool frmMsgEditor::SaveToCurrentName() {
  return name_was_refused_ ? SaveToChosenName() : SaveTo(ui_->lblFileName->text());
}

bool frmMsgEditor::SaveToChosenName() {
  const QString path = ShowSaveDialog(this, ModuleLanguage::DialogTitleSaveAs,
                                      u"All|*.*|Message File(*.msg)|*.msg"_s, 2);
  if (path.isEmpty() || !SaveTo(path)) return false;
  SetFileName(path);
  return true;
}

bool frmMsgEditor::SaveTo(const QString& path) {
  const Brivon1::SaveResult result = Brivon1::SaveMessageFile(path, page_);
  if (result == Brivon1::SaveResult::kSaved) return true;
  ShowMessage(this, TranslateMessage(Brivon1::SaveFailureText(result)));
  return false;
}

void frmMsgEditor::SetFileName(const QString& path) {
  ui_->lblFileName->setText(path);
  name_was_refused_ = false;
}

void frmMsgEditor::LayOutPage() {
  ui_->lblRow->setText(QString::number(page_.Rows()));
  ui_->lblCol->setText(QString::number(page_.Columns()));
  ui_->rowArea->LayOutRows();
  const std::initializer_list<QWidget*> for_a_page = {ui_->butSave, ui_->butSaveAs, ui_->cmdAddDate,
                                                      ui_->cmdAddTime, ui_->ComboGraphic};
  for (QWidget* control : for_a_page) control->setEnabled(true);
  ShowEdit();
  ReturnKeyboardToRow();
}

void frmMsgEditor::TypeText(int row, const QString& text) {
  page_.SetCurrentRow(row);
  const Brivon1::TypedBytes typed = Brivon1::BytesOf(text);
  if (typed.refused) page_.RefuseKey();
  page_.TypeAll(typed.bytes);
  ShowEdit();
}

void frmMsgEditor::PressMoveKey(int row, Brivon1::MoveKey key) {
  page_.SetCurrentRow(row);
  page_.PressMoveKey(key);
  ShowEdit();
  ReturnKeyboardToRow();
}

void frmMsgEditor::ClickRow(int row, double x) {
  page_.Click(row, x);
  ShowEdit();
}

void frmMsgEditor::EnterRow(int row) {
  if (row == page_.CurrentRow()) return;
  page_.SetCurrentRow(row);
  ShowEdit();
}

void frmMsgEditor::ShowEdit() {
  ui_->rowArea->MarkCurrentRow();
  ui_->rowArea->FollowCursor();
  ui_->rowArea->Surface(page_.CurrentRow()).RedrawRow();
  // The cursor is seen at once wherever it has come to, and blinks from there on.
  SetCursorShown(true);
  cursor_timer_->start();
}

void frmMsgEditor::SetCursorShown(bool shown) {
  cursor_shown_ = shown;
  for (int row = 1; row <= kMaxRows; ++row) {
    const auto line = row != page_.CurrentRow() ? RowSurface::CursorLine::kNone
                      : shown                   ? RowSurface::CursorLine::kShown
                                                : RowSurface::CursorLine::kErased;
    ui_->rowArea->Surface(row).SetCursorLine(line);
  }
}

void frmMsgEditor::ReturnKeyboardToRow() {
  if (page_.Rows() > 0) ui_->rowArea->Surface(page_.CurrentRow()).setFocus();
}

bool frmMsgEditor::eventFilter(QObject* object, QEvent* event) {
  if (object == ui_->ComboGraphic && event->type() == QEvent::KeyPress) {
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
      case Qt::Key_Home:
      case Qt::Key_End:
        ui_->ComboGraphic->showPopup();  // to choose in; each step would else insert a graphic
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(object, event);
}
