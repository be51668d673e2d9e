// What every message that is being edited has: the attributes of what is typed next, the selection
// and what can be done with it, the edits that can be taken back, and whether there is something to
// save.
#pragma once

#include <QByteArrayView>
#include <QString>

#include "base/modified_flag.h"
#include "row/edit_history.h"
#include "row/page_row.h"
#include "row/row_editing.h"

namespace Brivon1 {

class EditedMessage {
 public:
  virtual ~EditedMessage() = default;

  /// The row that has the keyboard, and its number.
  virtual const PageRow& EditedRow() const = 0;
  virtual int EditedNumber() const = 0;

  /// The attributes of characters typed from now on. The index is a place in kColourNames or
  /// kSizeNames; one outside is ignored. The selected characters get them too, as one edit, which
  /// goes on while another colour is chosen for the same ones, or another size, until
  /// EndChoosing(). False, and nothing is chosen, if they would not fit any more.
  const Attributes& CurrentAttributes() const { return attributes_; }
  bool ChooseColour(int index);
  bool ChooseSize(int index);
  bool ChooseBlink(bool blinking);
  void EndChoosing() { last_edit_ = Choice::kNone; }

  /// Makes row `number` the current one.
  void MakeCurrent(int number) { GoToRow(number); }

  /// Makes row `number` the current one and selects in it: from `anchor` to `cursor`, by a key that
  /// moves, as far as a mouse was dragged, or the word below it. `x` counts in pixels from the left
  /// edge of what is in sight.
  void Select(int number, qsizetype anchor, qsizetype cursor);
  void SelectByKey(int number, MoveKey key);
  void SelectTo(int number, double x);
  void SelectWord(int number, double x);

  /// Types characters into the current row by the typing rule; Undo() takes them back together. How
  /// many found no room.
  virtual qsizetype TypeAll(QByteArrayView characters) = 0;

  /// Makes row `number` the current one and types a text there as it came from the keyboard.
  LeftOut Type(int number, const QString& text);

  /// Removes the selected characters, or all of the current row. False, and no edit, where nothing
  /// is to be removed.
  bool RemoveSelected();
  bool ClearRow();

  /// Moves the characters of the current row to the middle of the panel. False, and no edit, where
  /// they stand there already or there is no middle.
  bool CentreRow();
  bool CanCentreRow() const;

  /// Pastes a text, or characters with their own attributes, as one edit by the typing rule: a
  /// second line goes to the beginning of the following row, and so on.
  LeftOut Paste(const QString& text);
  LeftOut Paste(const PageRow& characters);

  /// Takes the last edit back, or makes it again: its row, of several one of them, becomes the
  /// current one and the message modified. False, and nothing happens, without such an edit.
  bool Undo();
  bool Redo();
  bool CanUndo() const { return history_.CanUndo(); }
  bool CanRedo() const { return history_.CanRedo(); }

  bool IsModified() const { return static_cast<bool>(modified_); }
  void SetModified(bool modified) { modified_ = modified; }

  /// The flag itself, for whoever saves the message.
  ModifiedFlag& Modified() { return modified_; }

 protected:
  /// Remembers row `number` as it was `before`, if it is another one `now`. Says whether it is.
  bool RecordEdit(int number, const PageRow& before, const PageRow& now);

  void ForgetEdits();

 private:
  enum class Choice { kNone, kColour, kSize, kBlink };

  /// Makes row `number` the current one.
  virtual PageRow& GoToRow(int number) = 0;

  /// The number of the last row into which a paste goes on, and how many characters a row takes.
  virtual int LastNumber() const = 0;
  virtual qsizetype Places() const = 0;

  /// The column that a mouse dragged to `x` has come to, and the character below it.
  virtual qsizetype ColumnAt(double x) const { return NearestBoundary(x); }
  virtual qsizetype PositionAt(double x) const { return CellAt(x); }

  /// Whether a row, whose characters got another size, still has room where it was `before`.
  virtual bool HasRoomFor(const PageRow& /*row*/, const PageRow& /*before*/) const { return true; }

  /// The row with its characters moved to the middle.
  virtual PageRow Centred(const PageRow& row) const { return row; }

  /// Called once the current row, which was `before`, was edited or its cursor moved.
  virtual void ShowEditedRow(const PageRow& /*before*/) {}

  /// Called once the current row was brought back to another state.
  virtual void ShowRestoredRow() {}

  /// Something was typed, with an effect or without.
  virtual void MarkTyped() {}

  template <typename Change>
  bool Edit(const Change& change);
  template <typename Choose>
  bool Restyle(Choice choice, const Choose& choose);
  void EditRestyled(Choice choice, PageRow changed);

  Attributes attributes_;
  EditHistory history_;
  Choice last_edit_ = Choice::kNone;  // what was chosen, if the last edit did that and no more
  ModifiedFlag modified_;
};

}  // namespace Brivon1
