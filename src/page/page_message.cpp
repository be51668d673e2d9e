#include "page/page_message.h"

#include <algorithm>
#include <cmath>
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
  modified_ = false;
}

void PageMessage::SetCurrentRow(int number) {
  if (number >= 1 && number <= Rows()) current_row_ = static_cast<qint16>(number);
}

bool PageMessage::IsRowFull() const {
  // A page of no rows has no place for a character either.
  return current_row_ > Rows() || Row(current_row_).Length() >= MaxCharsPerRow();
}

void PageMessage::ChooseColour(int index) {
  if (index < 0 || index >= static_cast<int>(kColourNames.size())) return;
  attributes_.colour = static_cast<char>('A' + index);
}

void PageMessage::ChooseSize(int index) {
  if (index < 0 || index >= static_cast<int>(kSizeNames.size())) return;
  attributes_.size = static_cast<char>('A' + index);
}

void PageMessage::ChooseBlink(bool blinking) { attributes_.blink = blinking ? kBlinking : kSteady; }

void PageMessage::TypeOne(char character) {
  if (character == kBackspace) {
    Current().Backspace();
  } else if (character != kEnter) {
    if (IsControlCharacter(character)) return;
    if (!IsRowFull()) Current().Insert(character, attributes_);
  }
  modified_ = true;
}

void PageMessage::TypeAll(QByteArrayView characters) {
  const PageRow before = Current();
  for (const char character : characters) TypeOne(character);
  Record(before);
}

void PageMessage::InsertGraphic(char letter) {
  const char placeholder[] = {'~', letter};
  TypeAll({placeholder, 2});
}

void PageMessage::Record(const PageRow& before) {
  if (before.Text() != Current().Text()) history_.Record({current_row_, before});
}

bool PageMessage::Undo() {
  if (!history_.CanUndo()) return false;
  SetCurrentRow(history_.UndoRow());
  history_.Undo(Current());
  modified_ = true;
  return true;
}

bool PageMessage::Redo() {
  if (!history_.CanRedo()) return false;
  SetCurrentRow(history_.RedoRow());
  history_.Redo(Current());
  modified_ = true;
  return true;
}

void PageMessage::PressMoveKey(MoveKey key) {
  switch (key) {
    case MoveKey::kEnd:
      return Current().End();
    case MoveKey::kHome:
      return Current().Home();
    case MoveKey::kLeft:
      return Current().Left();
    case MoveKey::kUp:
      return SetCurrentRow(current_row_ - 1);
    case MoveKey::kRight:
      return Current().Right();
    case MoveKey::kDown:
      return SetCurrentRow(current_row_ + 1);
    case MoveKey::kDelete: {
      const PageRow before = Current();
      Current().Delete();
      return Record(before);
    }
  }
}

void PageMessage::Click(int number, double x) {
  if (number < 1 || number > Rows()) return;
  SetCurrentRow(number);
  Current().SetCursor(static_cast<qsizetype>(std::round(x + kCellWidth / 2.0)) / kCellWidth);
}

}  // namespace Brivon1
