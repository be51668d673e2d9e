// The table of a schedule's sequences, as SequenceModel has them: which one is selected, the keys
// and double clicks that change one, and the look for the message files on the disk.
#pragma once

#include <QTableView>

#include "schedule/file_look.h"
#include "schedule/schedule.h"

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

 Q_SIGNALS:
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
  bool PressKey(int key);

  SequenceModel* model_;
  Brivon1::FileLook::IsThere is_there_;
  Brivon1::FileLook look_;
};
