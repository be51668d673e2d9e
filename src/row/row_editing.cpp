#include "row/row_editing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/code_page.h"

namespace Brivon1 {
namespace {

enum class CharacterKind { kBlank, kLetter, kOther };

CharacterKind KindOf(QChar character) {
  if (character.isSpace()) return CharacterKind::kBlank;
  return character.isLetterOrNumber() || character.isMark() ? CharacterKind::kLetter
                                                            : CharacterKind::kOther;
}

/// The first letter of characters in the code page, with the marks behind it.
QByteArrayView FirstLetter(QByteArrayView characters) {
  qsizetype length = 1;
  if (!IsControlCharacter(characters.front())) {
    const CodePage& code_page = CodePage::System();
    while (length < characters.size() && code_page.ToCharacter(characters[length]).isMark()) {
      ++length;
    }
  }
  return characters.first(length);
}

/// A letter with its marks in fewer characters where there are such; as it is where composing would
/// do no more than change the order of the marks.
QString Composed(const QString& letter) {
  const QString composed = letter.normalized(QString::NormalizationForm_C);
  return composed.size() < letter.size() ? composed : letter;
}

/// The typing rule for one character. False where that was no typing.
bool TypeInto(PageRow& row, char character, const Attributes& attributes, bool has_room) {
  if (character == kBackspace) {
    row.Backspace();
  } else if (character != kEnter) {
    if (IsControlCharacter(character)) return false;
    if (has_room) row.Insert(character, attributes);
  }
  return true;
}

/// The typing rule. `attributes_at` gives those of the character at a position.
template <typename AttributesAt>
TypingResult TypeLetters(PageRow& row, QByteArrayView characters, const AttributesAt& attributes_at,
                         qsizetype most) {
  TypingResult result;
  bool is_cut = false;
  for (qsizetype at = 0; at < characters.size();) {
    const QByteArrayView letter = FirstLetter(characters.sliced(at));
    const bool is_backspace = letter.front() == kBackspace;
    const qsizetype kept = row.Length() - row.SelectionLength();
    is_cut = !is_backspace && (is_cut || kept + letter.size() > most);
    if (row.HasSelection()) {
      if (is_backspace) {
        row.RemoveSelection();
        result.is_typing = true;
        ++at;
        continue;
      }
      if (!is_cut && !IsControlCharacter(letter.front())) row.RemoveSelection();
    }
    for (const char character : letter) {
      const bool is_typing = TypeInto(row, character, attributes_at(at++), !is_cut);
      if (is_typing) result.is_typing = true;
      if (is_typing && is_cut && character != kEnter) ++result.left_out;
    }
  }
  return result;
}

/// The start of the next word, or the row's end.
qsizetype NextWord(const PageRow& row) {
  const QString text = CodePage::System().ToText(row.Text());
  qsizetype position = row.Cursor();
  const auto skip = [&](CharacterKind kind) {
    while (position < text.size() && KindOf(text[position]) == kind) ++position;
  };
  if (position < text.size()) skip(KindOf(text[position]));
  skip(CharacterKind::kBlank);
  return position;
}

/// The start of the word in front of the cursor, or 0.
qsizetype PreviousWord(const PageRow& row) {
  const QString text = CodePage::System().ToText(row.Text());
  qsizetype position = row.Cursor();
  const auto skip = [&](CharacterKind kind) {
    while (position > 0 && KindOf(text[position - 1]) == kind) --position;
  };
  skip(CharacterKind::kBlank);
  if (position > 0) skip(KindOf(text[position - 1]));
  return position;
}

}  // namespace

TypingResult TypeAllInto(PageRow& row, QByteArrayView characters, const Attributes& attributes,
                         qsizetype most) {
  return TypeLetters(
      row, characters, [&](qsizetype /*at*/) -> const Attributes& { return attributes; }, most);
}

TypingResult TypeAllInto(PageRow& row, const PageRow& characters, qsizetype most) {
  return TypeLetters(
      row, characters.Text(), [&](qsizetype at) { return characters.AttributesAt(at); }, most);
}

void PressKeyIn(PageRow& row, MoveKey key) {
  if (row.HasSelection()) {
    switch (key) {
      case MoveKey::kLeft:
        return row.SetCursor(row.SelectionBegin());
      case MoveKey::kRight:
        return row.SetCursor(row.SelectionEnd());
      case MoveKey::kDelete:
      case MoveKey::kBackspaceWord:
      case MoveKey::kDeleteWord:
        return row.RemoveSelection();
      default:
        row.EndSelection();
    }
  }
  switch (key) {
    case MoveKey::kEnd:
      return row.End();
    case MoveKey::kHome:
      return row.Home();
    case MoveKey::kLeft:
      return row.Left();
    case MoveKey::kRight:
      return row.Right();
    case MoveKey::kDelete:
      return row.Delete();
    case MoveKey::kWordLeft:
      return row.SetCursor(PreviousWord(row));
    case MoveKey::kWordRight:
      return row.SetCursor(NextWord(row));
    case MoveKey::kBackspaceWord: {
      const qsizetype end = row.Cursor();
      row.SetCursor(PreviousWord(row));
      return row.Delete(end - row.Cursor());
    }
    case MoveKey::kDeleteWord:
      return row.Delete(NextWord(row) - row.Cursor());
    case MoveKey::kUp:
    case MoveKey::kDown:
      return;
  }
}

bool MovesWithin(MoveKey key) {
  switch (key) {
    case MoveKey::kEnd:
    case MoveKey::kHome:
    case MoveKey::kLeft:
    case MoveKey::kRight:
    case MoveKey::kWordLeft:
    case MoveKey::kWordRight:
      return true;
    default:
      return false;
  }
}

void SelectByKeyIn(PageRow& row, MoveKey key) {
  if (!MovesWithin(key)) return;
  const qsizetype anchor = row.Anchor();
  row.EndSelection();
  PressKeyIn(row, key);
  row.Select(anchor, row.Cursor());
}

void SelectWordIn(PageRow& row, qsizetype position) {
  if (position < 0 || position >= row.Length()) return;
  const QString text = CodePage::System().ToText(row.Text());
  const CharacterKind kind = KindOf(text[position]);
  qsizetype begin = position;
  while (begin > 0 && KindOf(text[begin - 1]) == kind) --begin;
  qsizetype end = position + 1;
  while (end < text.size() && KindOf(text[end]) == kind) ++end;
  row.Select(begin, end);
}

qsizetype NearestBoundary(double x) {
  return static_cast<qsizetype>(std::round(x + kCellWidth / 2.0)) / kCellWidth;
}

qsizetype CellAt(double x) { return static_cast<qsizetype>(std::floor(x / kCellWidth)); }

PastedText PastedLines(const QString& text, qsizetype most) {
  const auto is_line_end = [](QChar c) {
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
  };
  const auto is_key = [](QChar c) {
    return c.unicode() < 0x80 && IsControlCharacter(c.toLatin1());
  };
  PastedText pasted;
  auto begin = text.begin();
  do {
    const auto end = std::find_if(begin, text.end(), is_line_end);
    QString line(begin, end - begin);
    line.removeIf(is_key);
    pasted.lines.append(std::move(line));
    if (end == text.end()) return pasted;
    const bool is_pair =
        *end == QLatin1Char('\r') && end + 1 != text.end() && *(end + 1) == QLatin1Char('\n');
    begin = end + (is_pair ? 2 : 1);
  } while (begin != text.end() && pasted.lines.size() < most);
  pasted.left_over = std::count_if(begin, text.end(), [&](QChar c) {
    return !is_line_end(c) && !is_key(c) && !c.isLowSurrogate();  // a pair is one character
  });
  return pasted;
}

TypedBytes BytesOf(const QString& text) {
  const CodePage& code_page = CodePage::System();
  TypedBytes typed;
  const auto type = [&](QStringView characters) {
    const auto bytes = code_page.ToBytes(characters);
    typed.bytes += bytes.value_or(QByteArray());
    return bytes.has_value();
  };
  const auto refuse = [&](QStringView characters) {
    typed.refused = true;
    typed.missing += characters;
  };
  QStringView rest = text;
  while (!rest.isEmpty()) {
    const QStringView written = rest.first(LetterLength(rest));
    rest = rest.sliced(written.size());
    if (written.size() == 1) {
      if (const auto byte = code_page.ToByte(written.front())) {
        typed.bytes.append(*byte);
      } else if (!type(written)) {
        refuse(written);
      }
      continue;
    }
    const QString letter = Composed(written.toString());
    if (type(letter)) continue;
    // Of a letter that the code page lacks, what it has.
    for (const QChar character : letter) {
      if (!type(QStringView(&character, 1))) refuse(QStringView(&character, 1));
    }
  }
  return typed;
}

}  // namespace Brivon1
