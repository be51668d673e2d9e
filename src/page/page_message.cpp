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

void PageMessage::TypeKey(char character) {
  if (character == kBackspace) {
    Current().Backspace();
  } else if (character != kEnter) {
    if (IsControlCharacter(character)) return;
    if (!IsRowFull()) Current().Insert(character, attributes_);
  }
  modified_ = true;
}

void PageMessage::InsertGraphic(char letter) {
  TypeKey('~');
  TypeKey(letter);
}

void PageMessage::TypeAll(QByteArrayView characters) {
  for (const char character : characters) TypeKey(character);
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
    case MoveKey::kDelete:
      return Current().Delete();
  }
}

void PageMessage::Click(int number, double x) {
  if (number < 1 || number > Rows()) return;
  SetCurrentRow(number);
  Current().SetCursor(static_cast<qsizetype>(std::round(x + kCellWidth / 2.0)) / kCellWidth);
}

}  // namespace Brivon1
