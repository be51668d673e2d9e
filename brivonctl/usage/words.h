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

/// Writes "brivonctl: " and `text` as one line to standard error.
void Complain(const QString& text);

}  // namespace BrivonCtl
