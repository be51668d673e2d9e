#include "row/edited_message.h"

namespace Brivon1 {

void EditedMessage::ChooseColour(int index) {
  if (index < 0 || index >= static_cast<int>(kColourNames.size())) return;
  attributes_.colour = static_cast<char>('A' + index);
}

void EditedMessage::ChooseSize(int index) {
  if (index < 0 || index >= static_cast<int>(kSizeNames.size())) return;
  attributes_.size = static_cast<char>('A' + index);
}

bool EditedMessage::Undo() {
  if (!history_.CanUndo()) return false;
  history_.Undo(GoToRow(history_.UndoRow()));
  ShowRestoredRow();
  SetModified(true);
  return true;
}

bool EditedMessage::Redo() {
  if (!history_.CanRedo()) return false;
  history_.Redo(GoToRow(history_.RedoRow()));
  ShowRestoredRow();
  SetModified(true);
  return true;
}

bool EditedMessage::RecordEdit(int number, const PageRow& before, const PageRow& now) {
  if (now.ShowsTheSameAs(before)) return false;
  history_.Record({number, before});
  return true;
}

}  // namespace Brivon1
