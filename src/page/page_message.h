// The page that the page editor works on: up to twelve rows, the attributes for what is typed next,
// and the rules by which keys, clicks and insertions change them.
#pragma once

#include <array>

#include <QByteArrayView>

#include "base/dimension.h"
#include "row/edited_message.h"
#include "row/page_row.h"
#include "row/row_editing.h"
#include "store/configuration_store.h"

namespace Brivon1 {

/// A page always has all rows, of which its dimension says how many are shown.
using PageRows = std::array<PageRow, kMaxRows>;

/// The width, in dots, that a panel needs for one character.
inline constexpr int kDotsPerCharacter = 5;

class PageMessage : public EditedMessage {
 public:
  static constexpr QByteArrayView kDate = "DD MMM YYYY";
  static constexpr QByteArrayView kTime = "HH:MM";

  /// The placeholder of a graphic symbol, "~" and its letter.
  static QByteArray Graphic(char letter) { return QByteArray("~").append(letter); }

  /// Starts an empty page of this size. The modified flag and the attributes stay as they are.
  void Begin(Dimension dimension);

  /// Replaces the page by one that was read from a file: the cursor of each row stands at its end,
  /// and nothing is modified.
  void TakeOver(Dimension dimension, PageRows rows);

  qint16 Rows() const { return dimension_.rows; }
  qint16 Columns() const { return dimension_.columns; }

  /// How many characters a row may hold.
  qint16 MaxCharsPerRow() const {
    return static_cast<qint16>(dimension_.columns / kDotsPerCharacter);
  }

  /// Row `number`, counted from 1 to kMaxRows.
  const PageRow& Row(int number) const { return rows_[static_cast<std::size_t>(number - 1)]; }

  /// The row that has the keyboard, counted from 1.
  qint16 CurrentRow() const { return current_row_; }
  const PageRow& EditedRow() const override { return Row(current_row_); }
  int EditedNumber() const override { return current_row_; }

  /// Makes a shown row the current one; any other number is ignored. In the row that was current
  /// nothing is selected any more.
  void SetCurrentRow(int number);

  /// Typing marks the page modified, whatever the effect, also a key whose character cannot be
  /// stored.
  qsizetype TypeAll(QByteArrayView characters) override;

  /// Types the placeholder of a graphic symbol.
  void InsertGraphic(char letter) { TypeAll(Graphic(letter)); }

  /// Types the placeholder of the date or of the time.
  void InsertDate() { TypeAll(kDate); }
  void InsertTime() { TypeAll(kTime); }

  /// What a key does that moves or deletes. Of them, Backspace alone is typing and marks the page
  /// modified, whatever the effect; Delete marks it where it removes a selection.
  void PressMoveKey(MoveKey key);

  /// A click on row `number`, `x` pixels from its left edge: makes the row current and puts its
  /// cursor to the nearest cell boundary within the text.
  void Click(int number, double x);

 private:
  PageRow& Current() { return rows_[static_cast<std::size_t>(current_row_ - 1)]; }

  PageRow& GoToRow(int number) override;
  int LastNumber() const override { return dimension_.rows; }
  qsizetype Places() const override;
  bool HasRoomFor(const PageRow& row, const PageRow& before) const override;
  PageRow Centred(const PageRow& row) const override;
  void MarkTyped() override { SetModified(true); }

  Dimension dimension_;
  PageRows rows_;
  qint16 current_row_ = 1;
};

}  // namespace Brivon1
