#include "page/page_message.h"

#include <algorithm>
#include <utility>

#include "page/row_width.h"

namespace Brivon1 {

void PageMessage::Begin(Dimension dimension) {
  dimension_.rows = std::clamp<qint16>(dimension.rows, 0, kMaxRows);
  dimension_.columns = std::max<qint16>(dimension.columns, 0);
  rows_ = PageRows();
  current_row_ = 1;
  ForgetEdits();
}

void PageMessage::TakeOver(Dimension dimension, PageRows rows) {
  Begin(dimension);
  rows_ = std::move(rows);
  for (PageRow& row : rows_) row.End();
  SetModified(false);
}

void PageMessage::SetCurrentRow(int number) {
  if (number < 1 || number > Rows() || number == current_row_) return;
  Current().EndSelection();
  current_row_ = static_cast<qint16>(number);
}

PageRow& PageMessage::GoToRow(int number) {
  SetCurrentRow(number);
  return Current();
}

qsizetype PageMessage::Places() const {
  // A page of no rows has no place for a character either.
  return Rows() > 0 ? MaxCharsPerRow() : 0;
}

bool PageMessage::HasRoomFor(const PageRow& row, const PageRow& before) const {
  // Whoever typed more than the panel shows may still make it narrower.
  const qsizetype dots = DotsOf(row);
  return dots <= Columns() || dots <= DotsOf(before);
}

PageRow PageMessage::Centred(const PageRow& row) const {
  return CentredRow(row, Columns(), Places());
}

qsizetype PageMessage::TypeAll(QByteArrayView characters) {
  const PageRow before = Current();
  const TypingResult result = TypeAllInto(Current(), characters, CurrentAttributes(), Places());
  if (result.is_typing) SetModified(true);
  RecordEdit(current_row_, before, Current());
  return result.left_out;
}

void PageMessage::PressMoveKey(MoveKey key) {
  if (key == MoveKey::kUp || key == MoveKey::kDown) {
    Current().EndSelection();
    return SetCurrentRow(current_row_ + (key == MoveKey::kUp ? -1 : 1));
  }
  if (key == MoveKey::kBackspaceWord) SetModified(true);
  if (EditedRow().HasSelection() && !MovesWithin(key)) SetModified(true);
  const PageRow before = Current();
  PressKeyIn(Current(), key);
  RecordEdit(current_row_, before, Current());
}

void PageMessage::Click(int number, double x) {
  if (number < 1 || number > Rows()) return;
  SetCurrentRow(number);
  Current().SetCursor(NearestBoundary(x));
}

}  // namespace Brivon1
