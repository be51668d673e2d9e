// The table of a schedule's sequences, as SequenceModel has them: which one is selected, the keys
// and double clicks that change one, and the look for the message files on the disk.
#pragma once

#include <optional>

#include <QTableView>

#include "schedule/file_look.h"
#include "schedule/schedule.h"
#include "schedule/schedule_page.h"

class SequenceModel;

class SequenceTable : public QTableView {
  Q_OBJECT

 public:
  explicit SequenceTable(QWidget* parent = nullptr);

  /// How message files are looked for from now on; at first it is IsMessageFileThere().
  void LookBy(const Brivon1::FileLook::IsThere& is_there) { is_there_ = is_there; }

  /// Gives the table room for `rows` rows at least; for ten at first.
  void SetLeastRows(int rows);

  /// Shows the sequences and "End" anew, with the row at `position` selected: 1 to the count of the
  /// sequences, and one more for "End"; without sequences none is. That row is in sight afterwards.
  void ShowSequences(const Brivon1::Schedule& schedule, int position);

  /// The selected row's position; 0 where none is selected.
  int SelectedPosition() const;

  /// Looks again which message files are there. The others turn grey as soon as that is known; a
  /// drive that does not answer keeps nobody waiting.
  void LookForFiles();

  /// Whether a look reads the files' pages too; if so from now on, it begins one.
  void ReadPages(bool reads);

  /// The full path of the message file at `position`; empty where it names none.
  QString PathAt(int position) const;

  /// Makes the row at `position` look like the selected one, in its place, while a schedule is
  /// played; with 0 the selected one looks so again.
  void ShowPlaying(int position);
  int PlayingPosition() const { return playing_; }

 Q_SIGNALS:
  /// A look has read the message file at `path`, one of PathAt().
  void PageRead(const QString& path, const Brivon1::SchedulePage& page);

  /// The operator wants to choose another message file for the sequence at `position`, or to set
  /// its delay and feature; by double click or by key. `position` may also be that of "End", or 0.
  void FileWanted(int position);
  void PropertiesWanted(int position);

  /// The operator has pressed the key for one more sequence, or for one fewer.
  void InsertPressed();
  void DeletePressed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  /// What a look finds at a path.
  struct FoundFile {
    bool is_there;
    std::optional<Brivon1::SchedulePage> page;  // nothing where none was to be read
  };

  bool PressKey(int key);

  SequenceModel* model_;
  Brivon1::Dimension dimension_;  // of the schedule
  Brivon1::FileLook::IsThere is_there_;
  bool reads_pages_ = false;
  int playing_ = 0;
  Brivon1::PathLook<FoundFile> look_;
};
