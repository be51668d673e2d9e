#include "page/frmMsgEditor.h"

#include <algorithm>
#include <utility>

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QTimer>

#include "app/caption_loader.h"
#include "app/file_dialogs.h"
#include "app/message_boxes.h"
#include "app/module_language.h"
#include "core/code_page.h"
#include "core/dialog_results.h"
#include "page/frmDimension.h"
#include "page/frmSendMsg.h"
#include "page/message_file.h"
#include "ui_frmMsgEditor.h"

namespace {

using Brivon1::kMaxRows;
using Brivon1::PageMessage;
using ModuleLanguage::TranslateMessage;

constexpr int kCursorMilliseconds = 500;
constexpr int kBlinkMilliseconds = 500;
constexpr int kShiftPixels = 10;

/// What is pasted of a text: its first line, because a row is one, without control characters,
/// because they would act as keys.
QString PastedText(const QString& text) {
  const auto is_line_end = [](QChar c) {
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
  };
  const auto is_key = [](QChar c) {
    return c.unicode() < 0x80 && Brivon1::IsControlCharacter(c.toLatin1());
  };
  const auto end = std::find_if(text.begin(), text.end(), is_line_end);
  QString line = text.left(end - text.begin());
  line.removeIf(is_key);
  return line;
}

}  // namespace

frmMsgEditor::frmMsgEditor(QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::frmMsgEditor>()),
      cursor_timer_(new QTimer(this)),
      blink_timer_(new QTimer(this)) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  cursor_timer_->setObjectName(QStringLiteral("Timer1"));
  blink_timer_->setObjectName(QStringLiteral("Timer2"));
  ui_->rowArea->Build(page_, *ui_->scrollRows);
  FillLists();
  ConnectButtons();
  ConnectUndo();
  ConnectRows();
  ConnectTimers();
  setTabOrder(ui_->cmdAddTime, &ui_->rowArea->Surface(1));
  for (int row = 1; row < kMaxRows; ++row) {
    setTabOrder(&ui_->rowArea->Surface(row), &ui_->rowArea->Surface(row + 1));
  }
  setTabOrder(&ui_->rowArea->Surface(kMaxRows), ui_->Command3);
  ui_->butNew->setFocus();
  LoadCaptions(this);
  // Captions that take several lines leave room for all twelve rows.
  setMinimumHeight(layout()->totalMinimumHeightForWidth(minimumSizeHint().width()));
}

frmMsgEditor::~frmMsgEditor() = default;

void frmMsgEditor::FillLists() {
  for (const char* name : Brivon1::kColourNames) ui_->ComboColor->addItem(QLatin1String(name));
  for (const char* name : Brivon1::kSizeNames) ui_->ComboSize->addItem(QLatin1String(name));
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    ui_->ComboGraphic->addItem(QString(QLatin1Char(letter)));
  }
  connect(ui_->ComboColor, &QComboBox::currentIndexChanged, this,
          [this](int index) { page_.ChooseColour(index); });
  connect(ui_->ComboSize, &QComboBox::currentIndexChanged, this,
          [this](int index) { page_.ChooseSize(index); });
  // Any choice counts, also of the entry that is shown already.
  connect(ui_->ComboGraphic, &QComboBox::activated, this, [this](int index) {
    page_.InsertGraphic(static_cast<char>('A' + index));
    ShowEdit();
    ReturnKeyboardToRow();
  });
  for (QComboBox* list : {ui_->ComboColor, ui_->ComboSize, ui_->ComboGraphic}) {
    list->installEventFilter(this);
    list->view()->installEventFilter(this);
  }
}

void frmMsgEditor::ConnectButtons() {
  connect(ui_->butNew, &QPushButton::clicked, this, &frmMsgEditor::New);
  connect(ui_->butOpen, &QPushButton::clicked, this, &frmMsgEditor::Open);
  connect(ui_->butSave, &QPushButton::clicked, this, &frmMsgEditor::Save);
  connect(ui_->butSaveAs, &QPushButton::clicked, this, &frmMsgEditor::SaveAs);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmMsgEditor::Send);
  connect(ui_->butExit, &QPushButton::clicked, this, &frmMsgEditor::reject);
  connect(ui_->chkBlink, &QCheckBox::toggled, this,
          [this](bool checked) { page_.ChooseBlink(checked); });
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

  AddShortcut(QKeySequence::New, ui_->butNew);
  AddShortcut(QKeySequence::Open, ui_->butOpen);
  AddShortcut(QKeySequence::Save, ui_->butSave);
  const QKeySequence save_as(QKeySequence::SaveAs);
  AddShortcut(save_as.isEmpty() ? QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S) : save_as,
              ui_->butSaveAs);
}

void frmMsgEditor::ConnectUndo() {
  const auto connect_keys = [this](QKeySequence keys, bool (PageMessage::*act)()) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, act] {
      if (!(page_.*act)()) return;
      ShowEdit();
      ReturnKeyboardToRow();
    });
  };
  connect_keys(QKeySequence(Qt::CTRL | Qt::Key_Z), &PageMessage::Undo);
  connect_keys(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), &PageMessage::Redo);
  connect_keys(QKeySequence(Qt::CTRL | Qt::Key_Y), &PageMessage::Redo);
}

void frmMsgEditor::AddShortcut(const QKeySequence& keys, QPushButton* button) {
  // Captions come and go with the language, so the keys are bound beside the button, not to it.
  connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
  button->setToolTip(keys.toString(QKeySequence::NativeText));
}

void frmMsgEditor::ConnectRows() {
  for (int row = 1; row <= kMaxRows; ++row) {
    RowSurface& surface = ui_->rowArea->Surface(row);
    connect(&surface, &RowSurface::Typed, this,
            [this, row](const QString& text) { TypeText(row, text); });
    connect(&surface, &RowSurface::Pasted, this,
            [this, row](const QString& text) { TypeText(row, PastedText(text)); });
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

bool frmMsgEditor::MayLeavePage() {
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
  if (!MayLeavePage()) return;
  frmDimension(this).exec();
  if (!Brivon1::DialogAccepted) return;
  page_.Begin({Brivon1::SelectedRows, Brivon1::SelectedCols});
  SetFileName(Brivon1::InProgramFolder(QStringLiteral("NEW.MSG")));
  LayOutPage();
}

void frmMsgEditor::Open() {
  if (!MayLeavePage()) return;
  const QString filter = QStringLiteral("All|*.*|%1(*.msg)|*.msg|%2(*.sch)|*.sch")
                             .arg(TranslateMessage(QStringLiteral("Message File")),
                                  TranslateMessage(QStringLiteral("Schedule File")));
  const QString path = ShowFileDialog(this, ModuleLanguage::DialogTitleOpenMsg, filter, 2);
  if (path.isEmpty()) return;
  SetFileName(path);
  // Until the file is read, its name stands beside a page that is not its own.
  name_was_refused_ = true;
  if (!Brivon1::IsMessageFile(path)) {
    ShowMessage(this, TranslateMessage(QStringLiteral("Error in opening file")) + QLatin1Char('!'));
    return;
  }
  auto loaded = Brivon1::LoadMessageFile(path);
  if (!loaded) {
    ShowMessage(this, TranslateMessage(QStringLiteral("Error in Opening file")) + QLatin1Char('!'));
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
  if (!MayLeavePage()) return;
  frmSendMsg(this, ui_->lblFileName->text()).exec();
}

void frmMsgEditor::reject() {
  if (MayLeavePage()) QDialog::reject();
}

bool frmMsgEditor::SaveToCurrentName() {
  return name_was_refused_ ? SaveToChosenName() : SaveTo(ui_->lblFileName->text());
}

bool frmMsgEditor::SaveToChosenName() {
  const QString path = ShowSaveDialog(this, ModuleLanguage::DialogTitleSaveAs,
                                      QStringLiteral("All|*.*|Message File(*.msg)|*.msg"), 2);
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
  QByteArray bytes;
  for (const QChar character : text) {
    if (const auto byte = Brivon1::CodePage::System().ToByte(character)) {
      bytes.append(*byte);
    } else {
      page_.RefuseKey();
    }
  }
  page_.TypeAll(bytes);
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
  auto* list = qobject_cast<QComboBox*>(object);
  if (list == nullptr) {
    // A list was closed: typing goes on in the row, where a letter would else choose an entry.
    if (event->type() == QEvent::Hide) ReturnKeyboardToRow();
    return QDialog::eventFilter(object, event);
  }
  // A wheel that passes over a list chooses nothing by accident.
  if (event->type() == QEvent::Wheel) return true;
  if (list == ui_->ComboGraphic && event->type() == QEvent::KeyPress) {
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
      case Qt::Key_Home:
      case Qt::Key_End:
        list->showPopup();  // to choose in; each step would else insert a graphic
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(object, event);
}
