#include "row/row_editing.h"

#include <algorithm>
#include <cmath>

#include "base/code_page.h"

namespace Brivon1 {
namespace {

/// A control character is a key and never text.
constexpr bool IsControlCharacter(char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

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
  TypingResult result;
  bool is_cut = false;
  while (!characters.isEmpty()) {
    const QByteArrayView letter = FirstLetter(characters);
    characters = characters.sliced(letter.size());
    is_cut = letter.front() != kBackspace && (is_cut || row.Length() + letter.size() > most);
    for (const char character : letter) {
      const bool is_typing = TypeInto(row, character, attributes, !is_cut);
      if (is_typing) result.is_typing = true;
      if (is_typing && is_cut && character != kEnter) ++result.left_out;
    }
  }
  return result;
}

void PressKeyIn(PageRow& row, MoveKey key) {
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

qsizetype NearestBoundary(double x) {
  return static_cast<qsizetype>(std::round(x + kCellWidth / 2.0)) / kCellWidth;
}

QString PastedText(const QString& text) {
  const auto is_line_end = [](QChar c) {
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
  };
  const auto is_key = [](QChar c) {
    return c.unicode() < 0x80 && IsControlCharacter(c.toLatin1());
  };
  const auto end = std::find_if(text.begin(), text.end(), is_line_end);
  QString line = text.left(end - text.begin());
  line.removeIf(is_key);
  return line;
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
