// The schedule editor: composes when a panel shows which message files, for how long and with which
// entry effect, and keeps it in a schedule file.
#pragma once

#include <memory>
#include <optional>

#include <QDialog>

#include "base/modified_flag.h"
#include "language/display_feature.h"
#include "panel_line/panel_connection.h"
#include "schedule/file_look.h"
#include "schedule/schedule.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_preview.h"
#include "schedule/weekdays.h"
#include "widgets/edited_file.h"
#include "widgets/unsaved_work.h"

namespace Ui {
class frmSchedule;
}

class frmSchedule : public QDialog, public UnsavedWork {
  Q_OBJECT

 public:
  /// `is_there` looks for the message files that the table names, beside the window. The preview
  /// has the date and time of `now`, and plays by it. `ports` are those of the window that sends
  /// the schedule, as SendingSession takes them.
  explicit frmSchedule(
      QWidget* parent = nullptr,
      const Brivon1::FileLook::IsThere& is_there = &Brivon1::IsMessageFileThere,
      SchedulePreview::TimeSource now = [] { return QDateTime::currentDateTime(); },
      const Brivon1::PanelPorts* ports = nullptr);
  ~frmSchedule() override;

  /// Leaves the window as Exit does: Escape and the close box ask about unsaved work too.
  void reject() override;

  bool IsModified() const override { return file_->IsModified(); }
  bool MayLeave() override { return file_->MayLeave(); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ConnectButtons();
  void ConnectTimeSlot();
  void ConnectTable();
  void FillWeekdays(const Brivon1::WeekdayNames& names);

  void NewSchedule();
  void OpenFile(const QString& path);
  void OpenSendDialog();

  using FailureWords = QString (*)(Brivon1::ScheduleSaveResult);

  /// Writes the schedule with what the controls show of it. False where that failed, which is said
  /// in the English message that `words` has for it.
  bool WriteFile(const QString& path, FailureWords words = &Brivon1::SaveFailureText);
  QString AskForName();
  QString AskWhatToOpen();

  /// Whether there is a sequence to save. Where there is none, says so in the English `refusal`.
  bool CheckNotEmpty(const char* refusal);

  void AddSequence();
  void InsertSequence();
  void DeleteSequence();
  void ClearSequences();

  /// Adds a chosen message file at `position`, as Schedule::Insert() does; `exceeded` is the
  /// English message for one different message file too many.
  void AddAt(int position, const char* exceeded);
  void ChangeFile(int position);
  void ChangeProperties(int position);
  void ReplaceSequence(int position, const Brivon1::Sequence& sequence);

  /// Lets the operator choose a message file that fits the schedule, and enters it in the list of
  /// different files of `schedule`. Its path field; nothing where none was chosen or it does not
  /// fit, which is said.
  std::optional<QByteArray> ChooseFile(const QString& title, const QString& filter,
                                       Brivon1::Schedule& schedule, const char* exceeded);

  /// Asks for delay and feature, starting with the delay of `sequence` and the entry `preselected`,
  /// and puts the answer there. False where the dialog was cancelled.
  bool AskProperties(Brivon1::Sequence& sequence, const Brivon1::FeatureNames& features,
                     const QString& preselected);

  /// Shows schedule_ as the work to go on with; nothing is modified.
  void ShowSchedule();

  /// Shows the sequences of schedule_ with the one at `position` selected.
  void ShowSequences(int position);

  /// Shows an edit of the sequences.
  void ShowEdit(int position);

  void SetModified() { modified_ = true; }
  void UpdateButtons();
  void Say(const QString& english, const QString& remedy);

  std::unique_ptr<Ui::frmSchedule> ui_;
  const Brivon1::PanelPorts* ports_;
  EditedFile* file_;
  SchedulePreview* preview_;
  Brivon1::Schedule schedule_;
  Brivon1::ModifiedFlag modified_;
  qint16 delay_ = 1;  // seconds, at which a new sequence's dialog starts: those given last
};
