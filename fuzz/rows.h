// What a row of a message must come back as from a file.
#pragma once

#include <QByteArrayView>

namespace Fuzz {

/// Whether a text spells an attribute code, "<S?>" or "<C?>": no file can hold it as text.
inline bool SpellsACode(QByteArrayView text) {
  for (qsizetype at = 0; at + 4 <= text.size(); ++at) {
    const bool is_kind = text[at + 1] == 'S' || text[at + 1] == 'C';
    if (text[at] == '<' && is_kind && text[at + 3] == '>') return true;
  }
  return false;
}

/// The same of a row tag, "<L7>" or "<L07>".
inline bool SpellsARowTag(QByteArrayView text) {
  for (qsizetype at = 0; at + 4 <= text.size(); ++at) {
    if (text[at] != '<' || text[at + 1] != 'L') continue;
    const bool is_digit = text[at + 2] >= '0' && text[at + 2] <= '9';
    if (is_digit && text[at + 3] == '>') return true;
    if (at + 5 <= text.size() && text[at + 4] == '>') return true;
  }
  return false;
}

}  // namespace Fuzz
