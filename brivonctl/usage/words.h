// The words of a command line: whole numbers without anything around them, and the one line that
// says what is wrong with a word.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <QString>

namespace BrivonCtl {

/// The number that `word` is when it is nothing but decimal digits and lies within the bounds.
std::optional<int> WholeNumber(std::string_view word, int lowest, int highest);

/// A word of the command line as text: names of files are in the system's own encoding.
QString TextOf(const std::string& word);

/// A character that no terminal is to get: "\x1B".
QString Escaped(char32_t character);

/// A text for the terminal: what would move its cursor or change its colours is escaped.
QString Harmless(const QString& text);

/// A name for the terminal: harmless; a long one is cut, and one of nothing is two quotation marks.
QString Printable(const QString& name);

/// Writes "brivonctl: " and `text` as one line to standard error.
void Complain(const QString& text);

}  // namespace BrivonCtl
