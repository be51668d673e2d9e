// How keys, clicks and pasted texts change a row, the same in the page editor and in the scrolling
// message editor.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include "row/page_row.h"

namespace Brivon1 {

/// The width of a character's cell on the screen, in pixels.
inline constexpr int kCellWidth = 12;

/// The control characters that typing knows.
inline constexpr char kBackspace = 8;
inline constexpr char kEnter = 13;

/// The keys that move in a row or between rows, or delete.
enum class MoveKey {
  kEnd,
  kHome,
  kLeft,
  kUp,
  kRight,
  kDown,
  kDelete,
  kWordLeft,
  kWordRight,
  kBackspaceWord,
  kDeleteWord
};

/// What became of characters that were typed.
struct TypingResult {
  bool is_typing = false;  ///< Whether any of them was typing.
  qsizetype left_out = 0;  ///< How many found no room.
};

/// What can be done with a row beside typing and moving in it.
enum class RowCommand {
  kUndo,
  kRedo,
  kCut,
  kCopy,
  kPaste,
  kSelectRow,
  kClearRow,
  kCentreRow,
  kCopyRow
};

/// The typing rule: Backspace removes, Enter does nothing, any other control character is no typing
/// at all; whatever else is inserted at the cursor if the row has room, which takes `most`
/// characters in all. A letter and the marks behind it are inserted whole or not at all, and behind
/// a letter without room no other one is: a text is cut at its end, not in its middle. What is
/// typed takes the place of the selected characters, and Backspace removes them; without room
/// nothing of them is lost.
TypingResult TypeAllInto(PageRow& row, QByteArrayView characters, const Attributes& attributes,
                         qsizetype most);

/// The same for characters that bring their own attributes.
TypingResult TypeAllInto(PageRow& row, const PageRow& characters, qsizetype most);

/// What the keys do within a row; those that lead to another row do nothing. A word is what a text
/// field takes for one: letters and digits, or the other characters between them. A selection is
/// removed by a key that deletes and ended by any other; Left and Right go to its ends.
void PressKeyIn(PageRow& row, MoveKey key);

/// Whether a key moves within a row, and so selects together with Shift.
bool MovesWithin(MoveKey key);

/// What such a key does together with Shift: the selection grows or shrinks to where it moves.
void SelectByKeyIn(PageRow& row, MoveKey key);

/// Selects the word that the character at `position` belongs to, as far as there is one. Blanks
/// between two words are taken for a word.
void SelectWordIn(PageRow& row, qsizetype position);

/// The cell boundary nearest to a click `x` pixels from the left edge, counted from 0.
qsizetype NearestBoundary(double x);

/// The cell that a place `x` pixels from the left edge lies in, counted from 0.
qsizetype CellAt(double x);

/// What is pasted of a text: its lines without control characters, because they would act as keys.
/// A line end behind the last line begins no other one.
struct PastedText {
  QList<QString> lines;     ///< At least one.
  qsizetype left_over = 0;  ///< The characters of the lines behind them.
};

/// The first lines of `text`, at most `most`, which is above 0.
PastedText PastedLines(const QString& text, qsizetype most);

/// A typed text in the system's code page, its letters composed as far as the page has them, and
/// whether it had characters without a byte there, which are left out.
struct TypedBytes {
  QByteArray bytes;
  bool refused = false;
  QString missing{};  ///< These characters.
};

TypedBytes BytesOf(const QString& text);

/// What of a typed or pasted text is not there, and why.
struct LeftOut {
  qsizetype no_room = 0;  ///< How many characters found no room in their row.
  QString missing{};      ///< Characters that the code page lacks.
  qsizetype no_row = 0;   ///< How many stood in lines for which there is no row.
  bool is_key = false;    ///< The text was a single letter.

  bool IsAnything() const { return no_room > 0 || no_row > 0 || !missing.isEmpty(); }
  bool operator==(const LeftOut&) const = default;
};

}  // namespace Brivon1
