// What every message that is being edited has: the attributes of what is typed next, the edits that
// can be taken back, and whether there is something to save.
#pragma once

#include "base/modified_flag.h"
#include "row/edit_history.h"
#include "row/page_row.h"

namespace Brivon1 {

class EditedMessage {
 public:
  virtual ~EditedMessage() = default;

  /// The attributes of characters typed from now on. The index is a place in kColourNames or
  /// kSizeNames; one outside is ignored.
  const Attributes& CurrentAttributes() const { return attributes_; }
  void ChooseColour(int index);
  void ChooseSize(int index);
  void ChooseBlink(bool blinking) { attributes_.blink = blinking ? kBlinking : kSteady; }

  /// Takes the last edit back, or makes it again: its row becomes the current one and the message
  /// modified. False, and nothing happens, without such an edit.
  bool Undo();
  bool Redo();

  bool IsModified() const { return static_cast<bool>(modified_); }
  void SetModified(bool modified) { modified_ = modified; }

  /// The flag itself, for whoever saves the message.
  ModifiedFlag& Modified() { return modified_; }

 protected:
  /// Remembers row `number` as it was `before`, if it is another one `now`. Says whether it is.
  bool RecordEdit(int number, const PageRow& before, const PageRow& now);

  void ForgetEdits() { history_.Clear(); }

 private:
  /// Makes row `number` the current one.
  virtual PageRow& GoToRow(int number) = 0;

  /// Called once the current row was brought back to another state.
  virtual void ShowRestoredRow() {}

  Attributes attributes_;
  EditHistory history_;
  ModifiedFlag modified_;
};

}  // namespace Brivon1
