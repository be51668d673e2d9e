#include "schedule/frmSchedule.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QScreen>
#include <QValidator>

#include "base/code_page.h"
#include "language/display_feature.h"
#include "language/file_remedies.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "page/frmDimension.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSendSch.h"
#include "schedule/schedule_file.h"
#include "store/configuration_store.h"
#include "ui_frmSchedule.h"
#include "widgets/caption_loader.h"
#include "widgets/caption_room.h"
#include "widgets/enter_key.h"
#include "widgets/file_dialogs.h"
#include "widgets/file_shortcuts.h"
#include "widgets/fitted_text.h"
#include "widgets/ignore_wheel.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::CodePage;
using Brivon1::FeatureNames;
using Brivon1::Schedule;
using Brivon1::ScheduleSaveResult;
using Brivon1::Sequence;
using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;

/// With fewer sequences left, the table is scrolled to its top.
constexpr int kSequencesToScroll = 10;

constexpr int kRowsOnLowScreen = 4;

constexpr const char* kEmpty = "Empty schedule is not allowed!";
constexpr const char* kExceeded = "Cannot Exceed 26 different message file!";
constexpr const char* kExceededAtInsert = "Cannot Exceed 26 different Message Files!";

/// Keeps out what would not come back from the file's line: a control character, and a character
/// that the code page does not have.
class LineValidator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& /*position*/) const override {
    const bool has_control = std::any_of(
        text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; });
    return has_control || !CodePage::System().ToBytes(text) ? Invalid : Acceptable;
  }
};

QByteArray LineBytes(const QString& text) {
  return CodePage::System().ToBytes(text).value_or(QByteArray());
}

QString MessageFileFilter() { return TranslateMessage(u"Message File"_s) + u"(*.msg)|*.msg|"_s; }

}  // namespace

frmSchedule::frmSchedule(QWidget* parent, const Brivon1::FileLook::IsThere& is_there,
                         SchedulePreview::TimeSource now, const Brivon1::PanelPorts* ports)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSchedule>()), ports_(ports) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resize(size().boundedTo(screen()->availableSize()));
  file_ = new EditedFile(
      this, {ui_->lblfilename, ui_->lblNotSaved}, modified_,
      {.write = [this](const QString& path) { return CheckNotEmpty(kEmpty) && WriteFile(path); },
       .ask_for_name = [this] { return CheckNotEmpty(kEmpty) ? AskForName() : QString(); },
       .ask_what_to_open = [this] { return AskWhatToOpen(); },
       .open = [this](const QString& path) { OpenFile(path); },
       .is_complete = [this] { return schedule_.Count() > 0; }});
  FillWeekdays(Brivon1::kWeekdays);
  ConnectButtons();
  ConnectTimeSlot();
  ConnectTable();
  ui_->GridSeqTable->LookBy(is_there);
  preview_ = new SchedulePreview(ui_->GridSeqTable, ui_->panePreview, std::move(now), this);
  ShowSequences(1);
  UpdateButtons();
  ui_->butNew->setFocus();
  LoadCaptions(this);
  if (IsScreenTooLow(*this)) ui_->GridSeqTable->SetLeastRows(kRowsOnLowScreen);
  ui_->GridSeqTable->setAccessibleName(WithoutShortcutMark(ui_->FrameSchTable->title()));
}

frmSchedule::~frmSchedule() = default;

void frmSchedule::FillWeekdays(const Brivon1::WeekdayNames& names) {
  ui_->comboWeek->clear();
  for (const char* name : names) ui_->comboWeek->addItem(TranslateText(QLatin1String(name)));
}

void frmSchedule::ConnectButtons() {
  connect(ui_->butNew, &QPushButton::clicked, this, &frmSchedule::NewSchedule);
  connect(ui_->butOpen, &QPushButton::clicked, file_, &EditedFile::Open);
  connect(ui_->butSave, &QPushButton::clicked, file_, &EditedFile::Save);
  connect(ui_->butSaveAs, &QPushButton::clicked, file_, &EditedFile::SaveAs);
  connect(ui_->butSend, &QPushButton::clicked, this, &frmSchedule::OpenSendDialog);
  connect(ui_->butExit, &QPushButton::clicked, this, &frmSchedule::reject);
  connect(ui_->butAdd, &QPushButton::clicked, this, &frmSchedule::AddSequence);
  connect(ui_->butInsert, &QPushButton::clicked, this, &frmSchedule::InsertSequence);
  connect(ui_->butDelete, &QPushButton::clicked, this, &frmSchedule::DeleteSequence);
  connect(ui_->butClear, &QPushButton::clicked, this, &frmSchedule::ClearSequences);
  AddFileShortcuts({ui_->butNew, ui_->butOpen, ui_->butSave, ui_->butSaveAs, ui_->butSend});
  LetEnterPressButtons(this);
}

void frmSchedule::ConnectTimeSlot() {
  connect(ui_->comboWeek, &QComboBox::currentIndexChanged, this, &frmSchedule::SetModified);
  IgnoreWheel(ui_->comboWeek);
  for (QLineEdit* box : {ui_->txtHour, ui_->txtMin}) {
    box->setValidator(new LineValidator(box));
    connect(box, &QLineEdit::textChanged, this, &frmSchedule::SetModified);
  }
}

void frmSchedule::ConnectTable() {
  connect(ui_->GridSeqTable, &SequenceTable::FileWanted, this, &frmSchedule::ChangeFile);
  connect(ui_->GridSeqTable, &SequenceTable::PropertiesWanted, this,
          &frmSchedule::ChangeProperties);
  connect(ui_->GridSeqTable, &SequenceTable::InsertPressed, ui_->butInsert, &QPushButton::click);
  connect(ui_->GridSeqTable, &SequenceTable::DeletePressed, ui_->butDelete, &QPushButton::click);
  ui_->butInsert->setToolTip(QKeySequence(Qt::Key_Insert).toString(QKeySequence::NativeText));
  ui_->butDelete->setToolTip(QKeySequence(Qt::Key_Delete).toString(QKeySequence::NativeText));
}

void frmSchedule::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  // Files may have come and gone while another window was in front.
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    ui_->GridSeqTable->LookForFiles();
  }
}

void frmSchedule::Say(const QString& english, const QString& remedy) {
  ShowRefusal(this, {TranslateMessage(english), remedy});
}

bool frmSchedule::CheckNotEmpty(const char* refusal) {
  if (schedule_.Count() > 0) return true;
  Say(QLatin1String(refusal), TranslateMessage(u"Press \"%1\" and choose a message file."_s)
                                  .arg(WithoutShortcutMark(ui_->butAdd->text())));
  return false;
}

void frmSchedule::NewSchedule() {
  if (!MayLeave()) return;
  const auto dimension = frmDimension::Ask(this);
  if (!dimension) return;
  schedule_ = {};
  schedule_.dimension = *dimension;
  FillWeekdays(Brivon1::kWeekdaysOfNewSchedule);
  file_->BeginNew(Brivon1::InProgramFolder(u"NEW.SCH"_s));
  ShowSchedule();
  ui_->butAdd->setFocus();
}

QString frmSchedule::AskWhatToOpen() {
  const QString filter = TranslateMessage(u"Schedule File"_s) + u"(*.sch)|*.sch|All|*.*"_s;
  return ShowFileDialog(this, ModuleLanguage::DialogTitleOpen, filter, 1);
}

void frmSchedule::OpenFile(const QString& path) {
  Brivon1::FileFailure failure;
  auto loaded = Brivon1::LoadScheduleFile(path, &failure);
  if (!loaded) {
    ShowRefusal(this, {TranslateMessage(u"Error in opening file"_s) + u'!',
                       Brivon1::ScheduleFileRemedy(path, failure)});
    return;
  }
  schedule_ = *std::move(loaded);
  file_->SetPath(path);
  ShowSchedule();
  ui_->GridSeqTable->setFocus();
}

void frmSchedule::ShowSchedule() {
  const CodePage& code_page = CodePage::System();
  ui_->lblRow->setText(QString::number(schedule_.dimension.rows));
  ui_->lblCol->setText(QString::number(schedule_.dimension.columns));
  ui_->comboWeek->setCurrentIndex(schedule_.weekday);
  ui_->txtHour->setText(code_page.ToText(schedule_.hour));
  ui_->txtMin->setText(code_page.ToText(schedule_.minute));
  ShowSequences(1);
  UpdateButtons();
  modified_ = false;
}

QString frmSchedule::AskForName() {
  return ShowSaveDialog(this, ModuleLanguage::DialogTitleSaveAs, u"All|*.*|Sch File(*.Sch)|*.Sch"_s,
                        2);
}

bool frmSchedule::WriteFile(const QString& path, FailureWords words) {
  schedule_.weekday = ui_->comboWeek->currentIndex();
  schedule_.hour = LineBytes(ui_->txtHour->text());
  schedule_.minute = LineBytes(ui_->txtMin->text());
  QString remedy;
  const ScheduleSaveResult result = Brivon1::SaveScheduleFile(path, schedule_, &remedy);
  if (result == ScheduleSaveResult::kSaved) return true;
  Say(words(result), remedy);
  // Where to type what was wrong.
  if (result == ScheduleSaveResult::kHourWrong) ui_->txtHour->setFocus(Qt::TabFocusReason);
  if (result == ScheduleSaveResult::kMinuteWrong) ui_->txtMin->setFocus(Qt::TabFocusReason);
  return false;
}

void frmSchedule::OpenSendDialog() {
  const bool may_send = file_->MayLeave([this](const QString& path) {
    return CheckNotEmpty("Cannot Save: Empty Schedule!") &&
           WriteFile(path, &Brivon1::SaveFailureTextWhenSending);
  });
  if (!may_send) return;
  const QString refusal = Brivon1::SendingRefusal(file_->Path());
  if (!refusal.isEmpty()) {
    Say(refusal, Brivon1::MissingFileRemedy(file_->Path()));
    return;
  }
  frmSendSch(this, file_->Path(), ports_).exec();
}

void frmSchedule::reject() {
  preview_->Stop();
  if (MayLeave()) QDialog::reject();
}

void frmSchedule::AddSequence() { AddAt(schedule_.Count() + 1, kExceeded); }

void frmSchedule::InsertSequence() {
  AddAt(ui_->GridSeqTable->SelectedPosition(), kExceededAtInsert);
}

void frmSchedule::AddAt(int position, const char* exceeded) {
  if (schedule_.IsFull()) {
    Say(u"Schedule is full!"_s, TranslateMessage(u"%1 messages are the most. Delete one first."_s)
                                    .arg(Brivon1::kEditedSequences));
    return;
  }
  const auto path = ChooseFile(ModuleLanguage::DialogTitleAddMsg,
                               MessageFileFilter() + u"All|*.*"_s, schedule_, exceeded);
  if (!path) return;
  Sequence sequence;
  sequence.path = *path;
  sequence.delay = delay_;
  const FeatureNames features;
  if (!AskProperties(sequence, features, features.First())) return;
  delay_ = sequence.delay;
  const int added = schedule_.Holds(position) ? position : schedule_.Count() + 1;
  schedule_.Insert(position, sequence);
  ShowEdit(added);
}

std::optional<QByteArray> frmSchedule::ChooseFile(const QString& title, const QString& filter,
                                                  Schedule& schedule, const char* exceeded) {
  const QString path = ShowFileDialog(this, title, filter, 1);
  if (path.isEmpty()) return std::nullopt;
  QString remedy;
  QString refusal = Brivon1::MessageFileRefusal(path, schedule.dimension, &remedy);
  const auto field = Brivon1::PathField(path);
  if (refusal.isEmpty() && !(field && schedule.OfferFile(*field))) {
    refusal = QLatin1String(exceeded);
    remedy = TranslateMessage(
        u"Delete a message: files that have been chosen and are not in the table count no more then."_s);
  }
  if (refusal.isEmpty()) return field;
  Say(refusal, remedy);
  return std::nullopt;
}

bool frmSchedule::AskProperties(Sequence& sequence, const FeatureNames& features,
                                const QString& preselected) {
  const auto answer = frmDelay::Ask(this, {sequence.delay, preselected}, features);
  if (!answer) return false;
  const QString before = CodePage::System().ToText(sequence.feature).trimmed();
  const QString stored = features.ToStore(answer->feature, before);
  sequence.delay = answer->delay;
  if (stored != before) {
    sequence.feature = Brivon1::FixedField(LineBytes(stored), Brivon1::kFeatureField);
  }
  return true;
}

void frmSchedule::ChangeFile(int position) {
  if (!schedule_.Holds(position)) return;
  // The file in its place counts no more.
  Schedule others = schedule_;
  others.Remove(position);
  const auto path = ChooseFile(u"Message File"_s, MessageFileFilter(), others, kExceeded);
  if (!path) return;
  Sequence sequence = schedule_.Sequences()[position - 1];
  sequence.path = *path;
  ReplaceSequence(position, sequence);
}

void frmSchedule::ChangeProperties(int position) {
  if (!schedule_.Holds(position)) return;
  Sequence sequence = schedule_.Sequences()[position - 1];
  const FeatureNames features;
  const QString stored = CodePage::System().ToText(sequence.feature);
  if (!AskProperties(sequence, features, features.ToPreselect(stored))) return;
  ReplaceSequence(position, sequence);
}

void frmSchedule::ReplaceSequence(int position, const Sequence& sequence) {
  if (sequence == schedule_.Sequences()[position - 1]) return;
  schedule_.Replace(position, sequence);
  ShowEdit(position);
}

void frmSchedule::DeleteSequence() {
  const int position = ui_->GridSeqTable->SelectedPosition();
  if (!schedule_.Holds(position)) return;
  schedule_.Remove(position);
  // The sequence that moved up, or the one that is the last now.
  ShowEdit(std::clamp(position, 1, std::max(schedule_.Count(), 1)));
  if (schedule_.Count() < kSequencesToScroll) ui_->GridSeqTable->scrollToTop();
}

void frmSchedule::ClearSequences() {
  schedule_.Clear();
  ShowEdit(1);
}

void frmSchedule::ShowSequences(int position) {
  ui_->GridSeqTable->ShowSequences(schedule_, position);
  preview_->Show(schedule_);
}

void frmSchedule::ShowEdit(int position) {
  ShowSequences(position);
  SetModified();
  UpdateButtons();
}

void frmSchedule::UpdateButtons() {
  const bool has_dimension = schedule_.dimension != Brivon1::Dimension{};
  for (QWidget* control : std::initializer_list<QWidget*>{ui_->comboWeek, ui_->txtHour, ui_->txtMin,
                                                          ui_->butAdd, ui_->butInsert}) {
    control->setEnabled(has_dimension);
  }
  for (QPushButton* button :
       {ui_->butSave, ui_->butSaveAs, ui_->butSend, ui_->butDelete, ui_->butClear}) {
    button->setEnabled(schedule_.Count() > 0);
  }
}
