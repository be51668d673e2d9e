#include "scrolling/scrolling_message.h"

#include <algorithm>
#include <utility>

namespace Brivon1 {

void ScrollingMessage::Begin() { TakeOver(PageRow(PageRow::kEveryColumn)); }

void ScrollingMessage::TakeOver(PageRow row) {
  row_ = std::move(row);
  row_.End();
  first_visible_ = 0;
  FollowCursor();
  ForgetEdits();
  SetModified(false);
}

qsizetype ScrollingMessage::TypeAll(QByteArrayView characters) {
  const PageRow before = row_;
  const qsizetype left_out =
      TypeAllInto(row_, characters, CurrentAttributes(), kMostCharacters).left_out;
  LookBackAfter(before);
  Finish(before);
  return left_out;
}

void ScrollingMessage::ShowEditedRow(const PageRow& before) {
  if (row_.Length() < before.Length()) LookBackAfter(before);
  FollowCursor();
}

qsizetype ScrollingMessage::ColumnAt(double x) const {
  // A mouse beside the span reaches one character more.
  return first_visible_ + std::clamp<qsizetype>(NearestBoundary(x), -1, kSpan + 1);
}

void ScrollingMessage::ShowRestoredRow() {
  LookBack();
  FollowCursor();
}

void ScrollingMessage::PressMoveKey(MoveKey key) {
  const PageRow before = row_;
  PressKeyIn(row_, key);
  if (row_.Length() < before.Length()) LookBackAfter(before);
  Finish(before);
}

void ScrollingMessage::Click(double x) {
  row_.SetCursor(first_visible_ + std::clamp<qsizetype>(NearestBoundary(x), 0, kSpan));
}

void ScrollingMessage::Finish(const PageRow& before) {
  FollowCursor();
  if (RecordEdit(kTheOneRow, before, row_)) SetModified(true);
}

void ScrollingMessage::LookBackAfter(const PageRow& before) {
  const bool was_removed = before.HasSelection() && row_.Length() < before.Length();
  if (was_removed || row_.Cursor() < before.Cursor()) LookBack();
}

void ScrollingMessage::LookBack() {
  if (row_.Cursor() > first_visible_) return;
  first_visible_ = std::max<qsizetype>(row_.Cursor() - kSpan / 2, 0);
}

void ScrollingMessage::FollowCursor() {
  first_visible_ =
      std::clamp(first_visible_, std::max<qsizetype>(row_.Cursor() - kSpan, 0), row_.Cursor());
}

}  // namespace Brivon1
