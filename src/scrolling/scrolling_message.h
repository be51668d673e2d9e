// The message that the scrolling message editor works on: one line of up to 1000 characters, of
// which a span is in sight, and the rules by which keys and clicks change it.
#pragma once

#include <QByteArrayView>

#include "row/edited_message.h"
#include "row/page_row.h"
#include "row/row_editing.h"

namespace Brivon1 {

class ScrollingMessage : public EditedMessage {
 public:
  /// The most characters that typing makes of a message; a file may hold more.
  static constexpr qsizetype kMostCharacters = 1000;

  /// How many characters are in sight.
  static constexpr qsizetype kSpan = 30;

  /// Starts an empty message. The attributes stay as they are.
  void Begin();

  /// Replaces the message by one that was read from a file: the cursor stands at its end, and
  /// nothing is modified.
  void TakeOver(PageRow row);

  const PageRow& Row() const { return row_; }
  const PageRow& EditedRow() const override { return row_; }
  int EditedNumber() const override { return kTheOneRow; }

  /// The number of characters in front of the leftmost one in sight. The cursor is never in front
  /// of that one, nor more than kSpan characters behind.
  qsizetype FirstVisible() const { return first_visible_; }

  /// Whether the message takes no further character.
  bool IsFull() const { return row_.Length() >= kMostCharacters; }

  /// Typing marks the message modified if it has changed.
  qsizetype TypeAll(QByteArrayView characters) override;

  /// What a key does that moves or deletes; up and down do nothing.
  void PressMoveKey(MoveKey key);

  /// A click `x` pixels from the left edge of the span: puts the cursor to the nearest cell
  /// boundary within the text.
  void Click(double x);

 private:
  static constexpr int kTheOneRow = 1;

  PageRow& GoToRow(int /*number*/) override { return row_; }
  int LastNumber() const override { return kTheOneRow; }
  qsizetype Places() const override { return kMostCharacters; }
  qsizetype ColumnAt(double x) const override;
  qsizetype PositionAt(double x) const override { return first_visible_ + CellAt(x); }
  void ShowEditedRow(const PageRow& before) override;
  void ShowRestoredRow() override;

  /// Brings the cursor into sight, and takes note if the message is not what it was `before`.
  void Finish(const PageRow& before);
  void FollowCursor();

  /// Brings what stands in front of the cursor into sight where nothing of it is.
  void LookBack();

  /// The same where characters in front of the cursor were removed from what was `before`: whoever
  /// removes them sees which ones come next.
  void LookBackAfter(const PageRow& before);

  PageRow row_{PageRow::kEveryColumn};
  qsizetype first_visible_ = 0;
};

}  // namespace Brivon1
