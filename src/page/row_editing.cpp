#include "page/row_editing.h"

#include <algorithm>
#include <cmath>

#include "core/code_page.h"

namespace Brivon1 {
namespace {

enum class CharacterKind { kBlank, kLetter, kOther };

CharacterKind KindOf(QChar character) {
  if (character.isSpace()) return CharacterKind::kBlank;
  return character.isLetterOrNumber() || character.isMark() ? CharacterKind::kLetter
                                                            : CharacterKind::kOther;
}

}  // namespace

bool TypeInto(PageRow& row, char character, const Attributes& attributes, bool has_room) {
  if (character == kBackspace) {
    row.Backspace();
  } else if (character != kEnter) {
    if (IsControlCharacter(character)) return false;
    if (has_room) row.Insert(character, attributes);
  }
  return true;
}

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
  TypedBytes typed;
  for (const QChar character : text) {
    if (const auto byte = CodePage::System().ToByte(character)) {
      typed.bytes.append(*byte);
    } else {
      typed.refused = true;
    }
  }
  return typed;
}

void EditedMessage::ChooseColour(int index) {
  if (index < 0 || index >= static_cast<int>(kColourNames.size())) return;
  attributes_.colour = static_cast<char>('A' + index);
}

void EditedMessage::ChooseSize(int index) {
  if (index < 0 || index >= static_cast<int>(kSizeNames.size())) return;
  attributes_.size = static_cast<char>('A' + index);
}

}  // namespace Brivon1
