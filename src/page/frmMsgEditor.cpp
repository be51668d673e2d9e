#include "page/frmMsgEditor.h"

#include <algorithm>
#include <utility>

#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QEvent>
#include <QKeyEvent>

#include "base/file_checks.h"
#include "language/file_remedies.h"
#include "language/module_language.h"
#include "page/frmDimension.h"
#include "page/frmSendMsg.h"
#include "page/message_file.h"
#include "row/dots_delegate.h"
#include "row/editor_controls.h"
#include "ui_frmMsgEditor.h"
#include "widgets/bind_key.h"
#include "widgets/caption_loader.h"
#include "widgets/enter_key.h"
#include "widgets/file_dialogs.h"
#include "widgets/file_shortcuts.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kMaxRows;
using Brivon1::LeftOut;
using ModuleLanguage::TranslateMessage;

constexpr int kShiftPixels = 10;

}  // namespace

frmMsgEditor::frmMsgEditor(QWidget* parent, const Brivon1::PanelPorts* ports)
    : QDialog(parent),
      ui_(std::make_unique<Ui::frmMsgEditor>()),
      ports_(ports),
      timers_(new BlinkTimers(this)) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  file_ = new EditedFile(this, {ui_->lblFileName, ui_->lblNotSaved}, page_.Modified(),
                         {.write = [this](const QString& path) { return WriteFile(path); },
                          .ask_for_name = [this] { return AskForName(); },
                          .ask_what_to_open = [this] { return AskWhatToOpen(); },
                          .open = [this](const QString& path) { OpenFile(path); },
                          .after_yes = EditedFile::AfterYes::kStillModified});
  ui_->rowArea->Build(page_, *ui_->scrollRows);
  commands_ = new RowCommands(
      this, page_, [this] { ShowEdits(); }, [this] { ReturnKeyboardToRow(); });
  FillLists();
  ConnectButtons();
  ConnectRows();
  BuildPreview();
  setTabOrder(ui_->cmdAddTime, &ui_->rowArea->Surface(1));
  for (int row = 1; row < kMaxRows; ++row) {
    setTabOrder(&ui_->rowArea->Surface(row), &ui_->rowArea->Surface(row + 1));
  }
  setTabOrder(&ui_->rowArea->Surface(kMaxRows), ui_->Command3);
  ui_->butNew->setFocus();
  LoadCaptions(this);
  ui_->rowArea->NameRows(ui_->labelRow->text(), ui_->lblGraphic->text(),
                         WordsOf({ui_->ComboColor, ui_->ComboSize, ui_->chkBlink}));
}

frmMsgEditor::~frmMsgEditor() = default;

void frmMsgEditor::FillLists() {
  const auto return_keyboard = [this] { ReturnKeyboardToRow(); };
  ConnectAttributes({ui_->ComboColor, ui_->ComboSize, ui_->chkBlink}, page_, *commands_,
                    return_keyboard);
  new ListGuard(ui_->ComboGraphic, return_keyboard);
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    ui_->ComboGraphic->addItem(QString(QLatin1Char(letter)));
  }
  ShowSymbolsInDots(ui_->ComboGraphic);
  // Any choice counts, also of the entry that is shown already.
  connect(ui_->ComboGraphic, &QComboBox::activated, this, [this](int index) {
    Insert(Brivon1::PageMessage::Graphic(static_cast<char>('A' + index)));
  });
  ui_->ComboGraphic->installEventFilter(this);
}

void frmMsgEditor::ConnectButtons() {
  connect(ui_->butNew, &QPushButton::clicked, this, &frmMsgEditor::NewPage);
  connect(ui_->butOpen, &QPushButton::clicked, file_, &EditedFile::Open);
  connect(ui_->butSave, &QPushButton::clicked, file_, &EditedFile::Save);
  connect(ui_->butSaveAs, &QPushButton::clicked, file_, &EditedFile::SaveAs);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmMsgEditor::OpenSendDialog);
  connect(ui_->butExit, &QPushButton::clicked, this, &frmMsgEditor::reject);
  connect(ui_->cmdAddDate, &QPushButton::clicked, this,
          [this] { Insert(Brivon1::PageMessage::kDate); });
  connect(ui_->cmdAddTime, &QPushButton::clicked, this,
          [this] { Insert(Brivon1::PageMessage::kTime); });
  connect(ui_->Command3, &QPushButton::clicked, this,
          [this] { ui_->rowArea->MoveRows(kShiftPixels); });
  connect(ui_->Command4, &QPushButton::clicked, this,
          [this] { ui_->rowArea->MoveRows(-kShiftPixels); });
  AddFileShortcuts({ui_->butNew, ui_->butOpen, ui_->butSave, ui_->butSaveAs, ui_->butSend});
  LetEnterPressButtons(this);
  AddUndoShortcuts(this, page_, [this] {
    ShowEdits();
    ReturnKeyboardToRow();
  });
}

void frmMsgEditor::ConnectRows() {
  for (int row = 1; row <= kMaxRows; ++row) {
    RowSurface& surface = ui_->rowArea->Surface(row);
    connect(&surface, &RowSurface::Typed, this,
            [this, row](const QString& text) { TypeText(row, text); });
    connect(&surface, &RowSurface::MoveKeyPressed, this,
            [this, row](Brivon1::MoveKey key) { PressMoveKey(row, key); });
    connect(&surface, &RowSurface::Clicked, this, [this, row](double x) { ClickRow(row, x); });
    connect(&surface, &RowSurface::Released, ui_->rowArea, &RowArea::FollowCursor);
    connect(&surface, &RowSurface::KeyboardEntered, this, [this, row] { EnterRow(row); });
    commands_->Serve(surface, row);
  }
  connect(commands_, &RowCommands::Said, this, [this](const QString& text) {
    RowSurface& surface = ui_->rowArea->Surface(page_.CurrentRow());
    ui_->lblRowStatus->ShowNote(text, surface);
    ShowBesideCursor(surface, text);
  });
  connect(timers_, &BlinkTimers::CursorBlinked, this, &frmMsgEditor::ShowCursor);
  connect(timers_, &BlinkTimers::CharactersBlinked, this, &frmMsgEditor::HideBlinking);
}

void frmMsgEditor::BuildPreview() {
  ui_->picPreview->Build(page_, [] { return QDateTime::currentDateTime(); });
  connect(ui_->rowArea, &RowArea::Moved, this,
          [this] { ui_->picPreview->Follow(ui_->rowArea->Sight()); });
  connect(timers_, &BlinkTimers::CharactersBlinked, ui_->picPreview,
          &PagePreview::SetBlinkingHidden);
  connect(ui_->chkPreview, &QCheckBox::toggled, ui_->splitPreview,
          &PreviewSplitter::SetPreviewWanted);
  connect(ui_->chkOneColor, &QCheckBox::toggled, this, [this] {
    ui_->picPreview->SetColourType(ShownColourType());
    ShowPanel();
  });
  // The attributes of what is typed next are said too.
  connect(commands_, &RowCommands::AttributesChosen, this, &frmMsgEditor::ShowPanel);
  BindKey(Qt::Key_F9, ui_->chkPreview);
  BindKey(Qt::SHIFT | Qt::Key_F9, ui_->chkOneColor);
}

void frmMsgEditor::NewPage() {
  if (!MayLeave()) return;
  const auto dimension = frmDimension::Ask(this);
  if (!dimension) return;
  page_.Begin(*dimension);
  file_->BeginNew(Brivon1::InProgramFolder(u"NEW.MSG"_s));
  LayOutPage();
}

QString frmMsgEditor::AskWhatToOpen() {
  const QString filter = u"All|*.*|%1(*.msg)|*.msg|%2(*.sch)|*.sch"_s.arg(
      TranslateMessage(u"Message File"_s), TranslateMessage(u"Schedule File"_s));
  return ShowFileDialog(this, ModuleLanguage::DialogTitleOpenMsg, filter, 2);
}

void frmMsgEditor::OpenFile(const QString& path) {
  file_->SetRefusedPath(path);  // until it is read
  if (!Brivon1::IsMessageFile(path)) {
    ShowRefusal(this, {TranslateMessage(u"Error in opening file"_s) + u'!',
                       Brivon1::WrongKindRemedy(path, Brivon1::FileSort::kPage)});
    return;
  }
  Brivon1::FileFailure failure;
  auto loaded = Brivon1::LoadMessageFile(path, &failure);
  if (!loaded) {
    ShowRefusal(this, {TranslateMessage(u"Error in Opening file"_s) + u'!',
                       Brivon1::MessageFileRemedy(path, failure)});
    return;
  }
  file_->SetPath(path);
  page_.TakeOver(loaded->dimension, std::move(loaded->rows));
  LayOutPage();
}

void frmMsgEditor::OpenSendDialog() {
  if (!MayLeave()) return;
  frmSendMsg(this, file_->Path(), ports_).exec();
}

void frmMsgEditor::reject() {
  if (MayLeave()) QDialog::reject();
}

bool frmMsgEditor::WriteFile(const QString& path) {
  QString reason;
  const Brivon1::SaveResult result = Brivon1::SaveMessageFile(path, page_, &reason);
  return ReportSave(this, path, result, reason);
}

QString frmMsgEditor::AskForName() {
  return ShowSaveDialog(this, ModuleLanguage::DialogTitleSaveAs,
                        u"All|*.*|Message File(*.msg)|*.msg"_s, 2);
}

void frmMsgEditor::LayOutPage() {
  ui_->lblRow->setText(QString::number(page_.Rows()));
  ui_->lblCol->setText(QString::number(page_.Columns()));
  ui_->rowArea->LayOutRows();
  const std::initializer_list<QWidget*> for_a_page = {ui_->butSave, ui_->butSaveAs, ui_->cmdAddDate,
                                                      ui_->cmdAddTime, ui_->ComboGraphic};
  for (QWidget* control : for_a_page) control->setEnabled(true);
  ResumeTyping();
}

void frmMsgEditor::TypeText(int row, const QString& text) {
  const LeftOut left_out = page_.Type(row, text);
  ShowEdit();
  ShowLeftOut(left_out);
}

void frmMsgEditor::Insert(QByteArrayView placeholder) {
  const LeftOut left_out{.no_room = page_.TypeAll(placeholder)};
  ResumeTyping();
  ShowLeftOut(left_out);
}

void frmMsgEditor::PressMoveKey(int row, Brivon1::MoveKey key) {
  page_.SetCurrentRow(row);
  page_.PressMoveKey(key);
  ResumeTyping();
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
  ui_->rowArea->RedrawCurrentRow();
  timers_->ShowCursor();
  ShowPanel();
}

void frmMsgEditor::ShowPanel() {
  if (page_.Rows() == 0) return;
  const int current = page_.CurrentRow();
  const Brivon1::Attributes& next = page_.CurrentAttributes();
  dots_.Refresh(page_, {page_.Columns(), ShownColourType(), QDateTime::currentDateTime()});
  for (int row = 1; row <= page_.Rows(); ++row) {
    ui_->rowArea->MarkDotsEnd(row, dots_.EndOf(row, next.size));
  }
  ui_->picPreview->Refresh();
  ui_->picPreview->Follow(ui_->rowArea->Sight());

  const Brivon1::PageRow& row = page_.Row(current);
  const Brivon1::RowUse& use = dots_.Of(current);
  const qsizetype places = std::max<qsizetype>(page_.MaxCharsPerRow(), row.Length());
  ui_->lblRowStatus->ShowStatus({.row = current,
                                 .place = std::min(row.Cursor() + 1, places),
                                 .places = places,
                                 .dots = {{use.dots, page_.Columns(), row.Length() - use.seen}}},
                                ui_->rowArea->Surface(current), next);
}

void frmMsgEditor::ShowLeftOut(const LeftOut& left_out) {
  ui_->lblRowStatus->ShowLeftOut(left_out, ui_->rowArea->Surface(page_.CurrentRow()));
}

qint16 frmMsgEditor::ShownColourType() const {
  return ui_->chkOneColor->isChecked() ? Brivon1::kMono : Brivon1::kTri;
}

void frmMsgEditor::ShowEdits() {
  ui_->rowArea->RedrawRows();
  ShowEdit();
}

void frmMsgEditor::ResumeTyping() {
  ShowEdit();
  ReturnKeyboardToRow();
}

void frmMsgEditor::ShowCursor(bool shown) {
  for (int row = 1; row <= kMaxRows; ++row) {
    const auto line = row != page_.CurrentRow() ? RowSurface::CursorLine::kNone
                      : shown                   ? RowSurface::CursorLine::kShown
                                                : RowSurface::CursorLine::kErased;
    ui_->rowArea->Surface(row).SetCursorLine(line);
  }
}

void frmMsgEditor::HideBlinking(bool hidden) {
  for (int row = 1; row <= page_.Rows(); ++row) {
    ui_->rowArea->Surface(row).SetBlinkingHidden(hidden);
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
