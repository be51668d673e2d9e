// What was typed can be taken back: keeps the rows as they were before each edit.
#pragma once

#include <deque>

#include "row/page_row.h"

namespace Brivon1 {

/// A row of a page, or the one of a scrolling message, and what stood in it.
struct RowState {
  int number = 0;
  PageRow row;
};

/// The edits that can be taken back, and those that can be done again. Bounded in memory: the
/// oldest edits are forgotten first.
class EditHistory {
 public:
  /// Forgets all edits.
  void Clear();

  /// An edit was made of the row that was `before`.
  void Record(RowState before);

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }

  /// The number of the row that the next Undo() or Redo() will change; there must be one.
  int UndoRow() const { return undo_.back().number; }
  int RedoRow() const { return redo_.back().number; }

  /// Exchanges `row`, which is row UndoRow() or RedoRow(), for its earlier or later state.
  void Undo(PageRow& row) { Exchange(undo_, redo_, row); }
  void Redo(PageRow& row) { Exchange(redo_, undo_, row); }

 private:
  static void Exchange(std::deque<RowState>& from, std::deque<RowState>& to, PageRow& row);

  std::deque<RowState> undo_;
  std::deque<RowState> redo_;
};

}  // namespace Brivon1
