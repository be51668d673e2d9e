// Small rules for the text of files, frames and lists, where every character is one byte: blanks,
// numbers and "name=value" lines are read here and nowhere else.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace Brivon1 {

/// The length of a code for size or colour in a text: "<S" or "<C", a letter, ">".
inline constexpr qsizetype kAttributeCodeLength = 4;

/// True for a blank: a space or a tab.
constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }

/// `text` without the blanks at both ends.
QByteArray TrimBlanks(QByteArrayView text);

/// The number at the start of `text`: blanks are skipped, an optional sign and digits are taken up
/// to the first other character. No digits give 0; what lies outside `lowest`..`highest` is clamped
/// to the nearest bound.
int LeadingNumber(QByteArrayView text, int lowest, int highest);

/// The same, held in 16 bits as the files' numbers are.
qint16 LeadingNumber16(QByteArrayView text);

/// What stands right of the first "=" of a line; the whole line where there is none.
QByteArray ValueAfterEquals(QByteArrayView line);

/// `number` in decimal, with leading zeros up to `digits` places; a sign comes before them.
QByteArray ZeroPadded(int number, int digits);

}  // namespace Brivon1
