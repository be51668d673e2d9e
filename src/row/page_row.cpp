#include "row/page_row.h"

#include <algorithm>

namespace Brivon1 {

Attributes PageRow::AttributesAt(qsizetype position) const {
  return {size_[position], colour_[position], blink_[position]};
}

PageRow PageRow::First(qsizetype characters) const {
  PageRow first(last_column_);
  first.text_ = text_.left(characters);
  first.size_ = size_.left(characters);
  first.colour_ = colour_.left(characters);
  first.blink_ = blink_.left(characters);
  return first;
}

void PageRow::SetCursor(qsizetype column) {
  // A file may hold a longer row than its cursor reaches.
  cursor_ = std::clamp<qsizetype>(column, 0, std::min(Length(), last_column_));
}

void PageRow::InsertAt(qsizetype position, char character, const Attributes& attributes) {
  text_.insert(position, character);
  size_.insert(position, attributes.size);
  colour_.insert(position, attributes.colour);
  blink_.insert(position, attributes.blink);
}

void PageRow::Insert(char character, const Attributes& attributes) {
  InsertAt(cursor_, character, attributes);
  Right();
}

void PageRow::Append(char character, const Attributes& attributes) {
  InsertAt(Length(), character, attributes);
}

void PageRow::Backspace() {
  if (cursor_ == 0) return;
  Left();
  Delete();
}

void PageRow::Delete(qsizetype count) {
  for (QByteArray* part : {&text_, &size_, &colour_, &blink_}) part->remove(cursor_, count);
}

}  // namespace Brivon1
