#include "row/page_row.h"

namespace Brivon1 {

Attributes PageRow::AttributesAt(qsizetype position) const {
  return {size_[position], colour_[position], blink_[position]};
}

void PageRow::SetCursor(qsizetype column) { cursor_ = anchor_ = Column(column); }

void PageRow::Select(qsizetype anchor, qsizetype cursor) {
  anchor_ = Column(anchor);
  cursor_ = Column(cursor);
}

PageRow PageRow::Part(qsizetype begin, qsizetype end) const {
  PageRow part;
  part.text_ = text_.sliced(begin, end - begin);
  part.size_ = size_.sliced(begin, end - begin);
  part.colour_ = colour_.sliced(begin, end - begin);
  part.blink_ = blink_.sliced(begin, end - begin);
  return part;
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

void PageRow::SetAttributes(qsizetype position, const Attributes& attributes) {
  size_[position] = attributes.size;
  colour_[position] = attributes.colour;
  blink_[position] = attributes.blink;
}

void PageRow::Backspace() {
  if (cursor_ == 0) return;
  Left();
  Delete();
}

void PageRow::Delete(qsizetype count) {
  for (QByteArray* part : {&text_, &size_, &colour_, &blink_}) part->remove(cursor_, count);
  EndSelection();
}

void PageRow::RemoveSelection() {
  const qsizetype count = SelectionLength();
  if (count == 0) return;
  SetCursor(SelectionBegin());
  Delete(count);
}

}  // namespace Brivon1
