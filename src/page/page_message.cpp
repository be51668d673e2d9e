#include "page/page_message.h"

#include <algorithm>
#include <utility>

namespace Brivon1 {

void PageMessage::Begin(Dimension dimension) {
  dimension_.rows = std::clamp<qint16>(dimension.rows, 0, kMaxRows);
  dimension_.columns = std::max<qint16>(dimension.columns, 0);
  rows_ = PageRows();
  current_row_ = 1;
  history_.Clear();
}

void PageMessage::TakeOver(Dimension dimension, PageRows rows) {
  Begin(dimension);
  rows_ = std::move(rows);
  for (PageRow& row : rows_) row.End();
  SetModified(false);
}

void PageMessage::SetCurrentRow(int number) {
  if (number >= 1 && number <= Rows()) current_row_ = static_cast<qint16>(number);
}

qsizetype PageMessage::Places() const {
  // A page of no rows has no place for a character either.
  return current_row_ > Rows() ? 0 : MaxCharsPerRow();
}

void PageMessage::TypeAll(QByteArrayView characters) {
  const PageRow before = Current();
  if (TypeAllInto(Current(), characters, CurrentAttributes(), Places())) SetModified(true);
  Record(before);
}

void PageMessage::Record(const PageRow& before) {
  if (!before.ShowsTheSameAs(Current())) history_.Record({current_row_, before});
}

bool PageMessage::Undo() {
  if (!history_.CanUndo()) return false;
  SetCurrentRow(history_.UndoRow());
  history_.Undo(Current());
  SetModified(true);
  return true;
}

bool PageMessage::Redo() {
  if (!history_.CanRedo()) return false;
  SetCurrentRow(history_.RedoRow());
  history_.Redo(Current());
  SetModified(true);
  return true;
}

void PageMessage::PressMoveKey(MoveKey key) {
  if (key == MoveKey::kUp) return SetCurrentRow(current_row_ - 1);
  if (key == MoveKey::kDown) return SetCurrentRow(current_row_ + 1);
  if (key == MoveKey::kBackspaceWord) SetModified(true);
  const PageRow before = Current();
  PressKeyIn(Current(), key);
  Record(before);
}

void PageMessage::Click(int number, double x) {
  if (number < 1 || number > Rows()) return;
  SetCurrentRow(number);
  Current().SetCursor(NearestBoundary(x));
}

}  // namespace Brivon1
