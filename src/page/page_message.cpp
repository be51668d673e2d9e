#include "page/page_message.h"

#include <algorithm>
#include <utility>

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
  if (number >= 1 && number <= Rows()) current_row_ = static_cast<qint16>(number);
}

PageRow& PageMessage::GoToRow(int number) {
  SetCurrentRow(number);
  return Current();
}

qsizetype PageMessage::TypeAll(QByteArrayView characters) {
  // A page of no rows has no place for a character either.
  const qsizetype places = Rows() > 0 ? MaxCharsPerRow() : 0;
  const PageRow before = Current();
  const TypingResult result = TypeAllInto(Current(), characters, CurrentAttributes(), places);
  if (result.is_typing) SetModified(true);
  RecordEdit(current_row_, before, Current());
  return result.left_out;
}

void PageMessage::PressMoveKey(MoveKey key) {
  if (key == MoveKey::kUp) return SetCurrentRow(current_row_ - 1);
  if (key == MoveKey::kDown) return SetCurrentRow(current_row_ + 1);
  if (key == MoveKey::kBackspaceWord) SetModified(true);
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
