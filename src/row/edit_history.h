// What was typed can be taken back: keeps the rows as they were before each edit.
#pragma once

#include <deque>
#include <vector>

#include "row/page_row.h"

namespace Brivon1 {

/// A row of a page, or the one of a scrolling message, and what stood in it.
struct RowState {
  int number = 0;
  PageRow row;
  bool goes_on = false;  ///< It belongs to the same edit as the state before it.
};

/// The edits that can be taken back, and those that can be done again. Bounded in memory: the
/// oldest edits are forgotten first.
class EditHistory {
 public:
  /// Forgets all edits.
  void Clear();

  /// An edit was made of the row that was `before`.
  void Record(RowState before);

  /// One edit was made of several rows, of at least one.
  void Record(std::vector<RowState> before);

  /// The next edit, made of the same row as the last one, goes on with that.
  void JoinNext() { joins_next_ = true; }

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }

  /// The number of the row that the next Undo() or Redo() will change; there must be one.
  int UndoRow() const { return undo_.back().number; }
  int RedoRow() const { return redo_.back().number; }

  /// Exchanges `row`, which is row UndoRow() or RedoRow(), for its earlier or later state. Whether
  /// the same edit goes on with another row.
  bool Undo(PageRow& row) { return Exchange(undo_, redo_, row); }
  bool Redo(PageRow& row) { return Exchange(redo_, undo_, row); }

 private:
  bool Exchange(std::deque<RowState>& from, std::deque<RowState>& to, PageRow& row);
  void ForgetOldest();

  std::deque<RowState> undo_;
  std::deque<RowState> redo_;
  bool joins_next_ = false;
  bool in_edit_ = false;  // an edit of several rows is exchanged in part
};

}  // namespace Brivon1
