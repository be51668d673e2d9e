#include "config/frmConfig.h"

#include <initializer_list>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>

#include "base/code_page.h"
#include "base/tool_tip_text.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "store/panel_list.h"
#include "ui_frmConfig.h"
#include "widgets/caption_loader.h"
#include "widgets/caption_room.h"
#include "widgets/fitted_text.h"
#include "widgets/ignore_wheel.h"
#include "widgets/kept_place.h"
#include "widgets/lock_wait.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using Brivon1::AddResult;
using Brivon1::SendMode;
using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;

namespace {

constexpr qint16 kPorts = 4;

// The store as "brivon.ini" is now, so that what was changed in it by hand is seen and kept.
const Brivon1::Configuration& FreshStore() {
  Brivon1::LoadConfiguration();
  return Brivon1::Store();
}

bool IsEnter(const QKeyEvent& press) {
  return press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter;
}

// Tab lands on the chosen option, as the arrow keys and the mouse keep it from then on; it would
// land on the first one, for Space to choose it.
void TabLandsOn(const QRadioButton* chosen, QRadioButton* option) {
  option->setFocusPolicy(option == chosen ? Qt::StrongFocus : Qt::ClickFocus);
}

}  // namespace

frmConfig::frmConfig(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmConfig>()), draft_(FreshStore()) {
  ui_->setupUi(this);
  SetUpCommunication();
  SetUpPorts();
  SetUpPanels();
  SetUpNotes();
  connect(ui_->butOK, &QPushButton::clicked, this, &frmConfig::accept);
  connect(ui_->butCancel, &QPushButton::clicked, this, &frmConfig::reject);
  LoadCaptions(this);
  UseLowScreen();
  ui_->ListComPort->setAccessibleName(WithoutShortcutMark(ui_->PanelSerial->title()));
  ui_->List1->setAccessibleName(WithoutShortcutMark(ui_->FrameIDConfig->title()));
  const QString why =
      TranslateMessage(u"Only the panels in the list are saved. Press \"%1\" to add this one."_s)
          .replace(u"%1"_s, WithoutShortcutMark(ui_->butAdd->text()));
  ui_->lblNotAdded->setToolTip(Brivon1::ToolTipText(why, Brivon1::LongLines::kBroken));
  ui_->lblNotAdded->setAccessibleDescription(why);
}

frmConfig::~frmConfig() = default;

void frmConfig::UseLowScreen() {
  if (!IsScreenTooLow(*this)) return;
  auto* side_by_side = new QHBoxLayout;
  for (QWidget* frame : {ui_->FrameSelection, ui_->FrameComm}) {
    ui_->layoutWindow->removeWidget(frame);
    side_by_side->addWidget(frame);
  }
  side_by_side->setStretch(1, 1);
  ui_->layoutWindow->insertLayout(0, side_by_side);
  ui_->layoutWindow->setStretch(1, 1);
  ui_->layoutWindow->setStretch(2, 0);
  int row = 0;
  for (QWidget* part :
       std::initializer_list<QWidget*>{ui_->optRS232, ui_->optTCPIP, ui_->lblNoLink}) {
    ui_->layoutSelection->removeWidget(part);
    ui_->layoutSelection->addWidget(part, row++, 0, 1, 2);
  }
  ui_->layoutSelection->setRowStretch(row, 1);
}

void frmConfig::SetUpCommunication() {
  const std::pair<QRadioButton*, SendMode> modes[] = {{ui_->optRS232, SendMode::kSerial},
                                                      {ui_->optTCPIP, SendMode::kTcp}};
  for (const auto& [option, mode] : modes) {
    connect(option, &QRadioButton::toggled, this, [this, mode = mode](bool chosen) {
      if (!chosen) return;
      draft_.ChooseMode(mode);
      ui_->txtIPAddress->setEnabled(mode == SendMode::kTcp);
      ui_->txtIPPortNo->setEnabled(mode == SendMode::kTcp);
      ShowNotes();
    });
    option->setChecked(draft_.Values().Mode() == mode);
    if (option->isChecked()) option->setFocus();
  }
  const std::pair<QRadioButton*, int> rates[] = {{ui_->Opt300, 300},   {ui_->Opt600, 600},
                                                 {ui_->opt1200, 1200}, {ui_->opt2400, 2400},
                                                 {ui_->opt4800, 4800}, {ui_->opt9600, 9600}};
  for (const auto& [option, rate] : rates) {
    option->setChecked(draft_.Values().baud_rate == rate);
    if (option->isChecked()) {
      for (const auto& other : rates) TabLandsOn(option, other.first);
    }
    connect(option, &QRadioButton::toggled, this, [this, rate = rate](bool chosen) {
      if (chosen) draft_.ChooseBaudRate(rate);
    });
  }
}

void frmConfig::SetUpPorts() {
  for (qint16 port = 1; port <= kPorts; ++port) {
    auto* item = new QListWidgetItem(TranslateText(u"Com %1"_s).arg(port), ui_->ListComPort);
    const QString device = Brivon1::SerialDevice(draft_.Values(), port);
    item->setToolTip(Brivon1::ToolTipText(device, Brivon1::LongLines::kWhole));
    item->setData(Qt::AccessibleDescriptionRole, device);
  }
  ShowPort();
  // The selection, not the current line: the keyboard alone makes a line the current one.
  connect(ui_->ListComPort, &QListWidget::itemSelectionChanged, this, [this] {
    const QList<QListWidgetItem*> selected = ui_->ListComPort->selectedItems();
    if (!selected.isEmpty()) {
      draft_.ChoosePort(static_cast<qint16>(ui_->ListComPort->row(selected.first()) + 1));
    }
    ShowPort();
  });
}

void frmConfig::ShowPort() {
  const int port = draft_.Values().com_port;
  if (port >= 1 && port <= kPorts) ui_->ListComPort->setCurrentRow(port - 1);
}

void frmConfig::SetUpPanels() {
  ui_->txtID->SetBounds(0, Brivon1::kHighestPanelId);
  ui_->txtRow->SetBounds(1, Brivon1::kMaxRows);
  ui_->txtcol->SetBounds(1, Brivon1::kMostColumns);
  ui_->ComboColorType->addItems({TranslateText(u"Mono"_s), TranslateText(u"Tri"_s)});
  IgnoreWheel(ui_->ComboColorType);
  ui_->txtIPAddress->GiveUpAt(ui_->butCancel);
  KeepPlaceWhenHidden(ui_->lblColumnsNote);
  ui_->lblColumnsNote->hide();
  connect(ui_->txtcol, &QLineEdit::textChanged, this, [this](const QString& text) {
    ui_->lblColumnsNote->setVisible(Brivon1::IsReadBackShort(text));
  });
  ui_->List1->installEventFilter(this);
  ui_->ComboColorType->installEventFilter(this);
  FillList(std::nullopt);
  connect(ui_->butAdd, &QPushButton::clicked, this, &frmConfig::Add);
  connect(ui_->butRemove, &QPushButton::clicked, this, &frmConfig::Remove);
  connect(ui_->List1, &QListWidget::itemSelectionChanged, this, &frmConfig::ShowSelected);
  connect(ui_->List1, &QListWidget::itemClicked, this, &frmConfig::ShowSelected);
}

void frmConfig::FillList(std::optional<int> id) {
  const QSignalBlocker blocker(ui_->List1);
  ui_->List1->clear();
  const QList<QByteArray> lines = Brivon1::PanelListLines(draft_.Values());
  const QStringList shown = ModuleLanguage::ShownPanelLines(lines);
  for (qsizetype i = 0; i < lines.size(); ++i) {
    auto* item = new QListWidgetItem(shown[i], ui_->List1);
    const int line_id = Brivon1::ReadPanelListLine(lines[i]).id;
    item->setData(Qt::UserRole, line_id);
    if (line_id == id) ui_->List1->setCurrentItem(item);
  }
  ShowNotes();
}

std::optional<int> frmConfig::SelectedId() const {
  const QList<QListWidgetItem*> selected = ui_->List1->selectedItems();
  if (selected.isEmpty()) return std::nullopt;
  return selected.first()->data(Qt::UserRole).toInt();
}

void frmConfig::ShowSelected() {
  const std::optional<int> id = SelectedId();
  if (!id) return;
  const Brivon1::PanelBoxes boxes = draft_.Boxes(*id);
  ui_->txtID->setText(boxes.id);
  ui_->txtRow->setText(boxes.rows);
  ui_->txtcol->setText(boxes.columns);
  ui_->ComboColorType->setCurrentIndex(boxes.colour_type);
  ui_->txtIPAddress->ShowStored(boxes.address);
  ui_->txtIPPortNo->setText(boxes.port);
}

void frmConfig::SetUpNotes() {
  KeepPlaceWhenHidden(ui_->lblNotAdded);
  KeepPlaceWhenHidden(ui_->lblNoAddress);
  KeepPlaceWhenHidden(ui_->lblNoLink);
  ui_->lblNotAdded->setText(TranslateMessage(u"Not added yet"_s));
  ui_->lblNoAddress->setText(TranslateMessage(u"No address yet"_s));
  ui_->lblNoLink->setText(TranslateMessage(u"No link is chosen yet"_s));
  for (QLineEdit* box : std::initializer_list<QLineEdit*>{ui_->txtID, ui_->txtRow, ui_->txtcol,
                                                          ui_->txtIPAddress, ui_->txtIPPortNo}) {
    connect(box, &QLineEdit::textChanged, this, &frmConfig::ShowNotes);
  }
  connect(ui_->ComboColorType, &QComboBox::currentIndexChanged, this, &frmConfig::ShowNotes);
  ShowNotes();
}

void frmConfig::ShowNotes() {
  const SendMode mode = draft_.Values().Mode();
  const bool lacks_address =
      mode == SendMode::kTcp && Brivon1::IsNoAddress(ui_->txtIPAddress->text());
  ui_->lblNotAdded->setVisible(!draft_.Holds(Boxes()));
  ui_->lblNoLink->setVisible(mode == SendMode::kNone);
  ui_->lblNoAddress->setVisible(lacks_address);
  ui_->txtIPAddress->setAccessibleDescription(lacks_address ? ui_->lblNoAddress->text()
                                                            : QString());
  MarkMissingAddresses();
}

void frmConfig::MarkMissingAddresses() {
  const bool over_network = draft_.Values().Mode() == SendMode::kTcp;
  const QString mark = TranslateMessage(u"No address yet"_s);
  for (int line = 0; line < ui_->List1->count(); ++line) {
    QListWidgetItem* item = ui_->List1->item(line);
    const int id = item->data(Qt::UserRole).toInt();
    const bool marked = over_network && Brivon1::IsNoAddress(draft_.Boxes(id).address);
    const QString text = marked ? mark : QString();
    item->setToolTip(Brivon1::ToolTipText(text, Brivon1::LongLines::kBroken));
    item->setData(Qt::AccessibleDescriptionRole, text);
  }
}

Brivon1::PanelBoxes frmConfig::Boxes() const {
  Brivon1::PanelBoxes boxes;
  boxes.id = ui_->txtID->text();
  boxes.rows = ui_->txtRow->text();
  boxes.columns = ui_->txtcol->text();
  boxes.colour_type = static_cast<qint16>(ui_->ComboColorType->currentIndex());
  boxes.address = ui_->txtIPAddress->text();
  boxes.port = ui_->txtIPPortNo->text();
  return boxes;
}

bool frmConfig::Add() {
  const Brivon1::PanelBoxes boxes = Boxes();
  switch (draft_.Add(boxes)) {
    case AddResult::kAdded:
      ui_->txtIPAddress->Check();  // the box shows the address as it was added
      FillList(boxes.id.toInt());
      return true;
    case AddResult::kInvalidAddress:
      ui_->txtIPAddress->Refuse();
      break;
    case AddResult::kInvalidInput:
      ShowRefusal(this, {TranslateMessage(u"Input is not Valid!"_s), Brivon1::InputRemedy(boxes)});
      break;
  }
  return false;
}

void frmConfig::Remove() {
  const std::optional<int> id = SelectedId();
  if (!id) return;
  FillList(draft_.Remove(*id));
  ShowSelected();
}

void frmConfig::AddTyped() {
  if (!Add()) return;
  ui_->txtID->setFocus();  // the next panel can be typed at once
  ui_->txtID->selectAll();
}

void frmConfig::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event) && qobject_cast<QLineEdit*>(focusWidget()) != nullptr) {
    AddTyped();
  } else {
    QDialog::keyPressEvent(event);
  }
}

bool frmConfig::eventFilter(QObject* list, QEvent* event) {
  const auto* press =
      event->type() == QEvent::KeyPress ? static_cast<const QKeyEvent*>(event) : nullptr;
  if (press != nullptr && list == ui_->List1 && press->key() == Qt::Key_Delete) {
    // A key that is held too long takes one panel out, not all.
    if (!press->isAutoRepeat()) Remove();
    return true;
  }
  if (press != nullptr && list == ui_->ComboColorType && IsEnter(*press)) {
    AddTyped();  // before the box, which some desktops open by Enter
    return true;
  }
  return QDialog::eventFilter(list, event);
}

void frmConfig::reject() {
  if (!is_saving_) QDialog::reject();
}

void frmConfig::accept() {
  if (is_saving_ || !ui_->txtIPAddress->Check()) return;
  is_saving_ = true;
  QString reason;
  const Brivon1::SaveResult result = draft_.Save(&reason, WaitWithBusyPointer());
  is_saving_ = false;
  if (result == Brivon1::SaveResult::kSaved) {
    QDialog::accept();
    return;
  }
  const QString button = WithoutShortcutMark(ui_->butOK->text());
  ShowRefusal(this, {TranslateMessage(Brivon1::SaveFailureText(result)),
                     Brivon1::ConfigurationRemedy(result, reason, button)});
}
