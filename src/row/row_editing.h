// How keys, clicks and pasted texts change a row, the same in the page editor and in the scrolling
// message editor.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include "row/page_row.h"

namespace Brivon1 {

/// The width of a character's cell on the screen, in pixels.
inline constexpr int kCellWidth = 12;

/// The control characters that typing knows.
inline constexpr char kBackspace = 8;
inline constexpr char kEnter = 13;

/// The keys that move in a row or between rows, or delete; with their codes on the keyboard. Those
/// for a word are two keys together and have none.
enum class MoveKey {
  kEnd = 35,
  kHome = 36,
  kLeft = 37,
  kUp = 38,
  kRight = 39,
  kDown = 40,
  kDelete = 46,
  kWordLeft,
  kWordRight,
  kBackspaceWord,
  kDeleteWord
};

/// Whether a character is a control character, which is a key and never text.
constexpr bool IsControlCharacter(char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

/// The typing rule for one character: Backspace removes, Enter does nothing, whatever else is
/// inserted at the cursor if the row has room. False for any other control character, which is no
/// typing at all.
bool TypeInto(PageRow& row, char character, const Attributes& attributes, bool has_room);

/// The same for several characters and a row that takes `most` of them in all. A letter and the
/// marks behind it are inserted whole or not at all, and behind a letter without room no other one
/// is: a text is cut at its end, not in its middle. Whether any character was typing.
bool TypeAllInto(PageRow& row, QByteArrayView characters, const Attributes& attributes,
                 qsizetype most);

/// The start of the next and of the previous word, as a text field counts them: letters and digits
/// are a word, and so are other characters between them. The row's end or 0 where there is none.
qsizetype NextWord(const PageRow& row);
qsizetype PreviousWord(const PageRow& row);

/// What the keys do within a row; those that lead to another row do nothing.
void PressKeyIn(PageRow& row, MoveKey key);

/// The cell boundary nearest to a click `x` pixels from the left edge, counted from 0.
qsizetype NearestBoundary(double x);

/// What is pasted of a text: its first line, because a row is one, without control characters,
/// because they would act as keys.
QString PastedText(const QString& text);

/// A typed text in the system's code page, its letters composed as far as the page has them, and
/// whether it had characters without a byte there, which are left out.
struct TypedBytes {
  QByteArray bytes;
  bool refused = false;
};

TypedBytes BytesOf(const QString& text);

}  // namespace Brivon1
