#include "row/edited_message.h"

#include <utility>
#include <vector>

#include "base/code_page.h"

namespace Brivon1 {

bool EditedMessage::ChooseColour(int index) {
  if (index < 0 || index >= static_cast<int>(kColourNames.size())) return true;
  return Restyle(Choice::kColour,
                 [&](Attributes& chosen) { chosen.colour = static_cast<char>('A' + index); });
}

bool EditedMessage::ChooseSize(int index) {
  if (index < 0 || index >= static_cast<int>(kSizeNames.size())) return true;
  return Restyle(Choice::kSize,
                 [&](Attributes& chosen) { chosen.size = static_cast<char>('A' + index); });
}

bool EditedMessage::ChooseBlink(bool blinking) {
  return Restyle(Choice::kBlink,
                 [&](Attributes& chosen) { chosen.blink = blinking ? kBlinking : kSteady; });
}

template <typename Choose>
bool EditedMessage::Restyle(Choice choice, const Choose& choose) {
  const PageRow& row = EditedRow();
  if (row.HasSelection()) {
    PageRow changed = row;
    for (qsizetype at = row.SelectionBegin(); at < row.SelectionEnd(); ++at) {
      Attributes attributes = row.AttributesAt(at);
      choose(attributes);
      changed.SetAttributes(at, attributes);
    }
    if (changed.Size() != row.Size() && !HasRoomFor(changed, row)) return false;
    EditRestyled(choice, std::move(changed));
  }
  choose(attributes_);
  return true;
}

void EditedMessage::EditRestyled(Choice choice, PageRow changed) {
  // On and off are two choices.
  const bool goes_on = last_edit_ == choice && choice != Choice::kBlink;
  if (goes_on && !changed.ShowsTheSameAs(EditedRow())) history_.JoinNext();
  const bool is_edit = Edit([&](PageRow& row) { row = std::move(changed); });
  if (is_edit || goes_on) last_edit_ = choice;
}

template <typename Change>
bool EditedMessage::Edit(const Change& change) {
  const int number = EditedNumber();
  PageRow& row = GoToRow(number);
  const PageRow before = row;
  change(row);
  ShowEditedRow(before);
  if (!RecordEdit(number, before, row)) return false;
  SetModified(true);
  return true;
}

void EditedMessage::Select(int number, qsizetype anchor, qsizetype cursor) {
  last_edit_ = Choice::kNone;
  PageRow& row = GoToRow(number);
  const PageRow before = row;
  row.Select(anchor, cursor);
  ShowEditedRow(before);
}

void EditedMessage::SelectByKey(int number, MoveKey key) {
  last_edit_ = Choice::kNone;
  PageRow& row = GoToRow(number);
  const PageRow before = row;
  SelectByKeyIn(row, key);
  ShowEditedRow(before);
}

void EditedMessage::SelectTo(int number, double x) {
  const qsizetype anchor = GoToRow(number).Anchor();
  Select(number, anchor, ColumnAt(x));
}

void EditedMessage::SelectWord(int number, double x) {
  last_edit_ = Choice::kNone;
  PageRow& row = GoToRow(number);
  const PageRow before = row;
  SelectWordIn(row, PositionAt(x));
  ShowEditedRow(before);
}

bool EditedMessage::RemoveSelected() {
  return Edit([](PageRow& row) { row.RemoveSelection(); });
}

bool EditedMessage::ClearRow() {
  return Edit([](PageRow& row) {
    row.Home();
    row.Delete(row.Length());
  });
}

bool EditedMessage::CentreRow() {
  return Edit([this](PageRow& row) { row = Centred(row); });
}

bool EditedMessage::CanCentreRow() const {
  return !Centred(EditedRow()).ShowsTheSameAs(EditedRow());
}

LeftOut EditedMessage::Type(int number, const QString& text) {
  GoToRow(number);
  const TypedBytes typed = BytesOf(text);
  if (typed.refused) MarkTyped();
  // A key's letter may stand in the places of its parts.
  const bool is_key = !text.isEmpty() && LetterLength(text) == text.size();
  return {.no_room = TypeAll(typed.bytes), .missing = typed.missing, .is_key = is_key};
}

LeftOut EditedMessage::Paste(const QString& text) {
  const int first = EditedNumber();
  const PastedText pasted = PastedLines(text, LastNumber() - first + 1);
  LeftOut left_out{.no_row = pasted.left_over};
  std::vector<RowState> edited;
  bool is_typing = false;
  for (int at = 0; at < pasted.lines.size(); ++at) {
    const TypedBytes typed = BytesOf(pasted.lines[at]);
    PageRow& row = GoToRow(first + at);
    const PageRow before = row;
    if (at > 0) row.Home();
    // Of several lines an empty first one takes the place of the selection too.
    if (at == 0 && typed.bytes.isEmpty() && !typed.refused && pasted.lines.size() > 1) {
      is_typing = row.HasSelection();
      row.RemoveSelection();
    }
    const TypingResult result = TypeAllInto(row, typed.bytes, attributes_, Places());
    ShowEditedRow(before);
    is_typing = is_typing || result.is_typing || typed.refused;
    left_out.no_room += result.left_out;
    left_out.missing += typed.missing;
    if (!row.ShowsTheSameAs(before)) edited.push_back({first + at, before});
  }
  if (is_typing) MarkTyped();
  if (!edited.empty()) {
    last_edit_ = Choice::kNone;
    history_.Record(std::move(edited));
    SetModified(true);
  }
  return left_out;
}

LeftOut EditedMessage::Paste(const PageRow& characters) {
  TypingResult result;
  Edit([&](PageRow& row) { result = TypeAllInto(row, characters, Places()); });
  if (result.is_typing) MarkTyped();
  return {.no_room = result.left_out};
}

bool EditedMessage::Undo() {
  if (!history_.CanUndo()) return false;
  while (history_.Undo(GoToRow(history_.UndoRow()))) {
  }
  last_edit_ = Choice::kNone;
  ShowRestoredRow();
  SetModified(true);
  return true;
}

bool EditedMessage::Redo() {
  if (!history_.CanRedo()) return false;
  while (history_.Redo(GoToRow(history_.RedoRow()))) {
  }
  last_edit_ = Choice::kNone;
  ShowRestoredRow();
  SetModified(true);
  return true;
}

void EditedMessage::ForgetEdits() {
  last_edit_ = Choice::kNone;
  history_.Clear();
}

bool EditedMessage::RecordEdit(int number, const PageRow& before, const PageRow& now) {
  last_edit_ = Choice::kNone;
  if (now.ShowsTheSameAs(before)) return false;
  history_.Record({number, before});
  modified_.TellChanged();
  return true;
}

}  // namespace Brivon1
