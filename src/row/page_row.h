// One line of text in which every character has its own size, colour and blinking, and the cursor
// and selection of whoever edits it. A page has twelve, a scrolling message is one.
#pragma once

#include <algorithm>
#include <limits>

#include <QByteArray>

#include "row/attributes.h"

namespace Brivon1 {

/// A control character is a key and never text.
constexpr bool IsControlCharacter(char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

class PageRow {
 public:
  /// The last column that the cursor of a page's row reaches: it is held in 16 bits.
  static constexpr qsizetype kLastPageColumn = std::numeric_limits<qint16>::max();

  /// The last column of a row whose cursor reaches its end, however long it is.
  static constexpr qsizetype kEveryColumn = std::numeric_limits<qsizetype>::max();

  PageRow() = default;
  explicit PageRow(qsizetype last_column) : last_column_(last_column) {}

  /// Four texts of equal length; position p of each belongs to character p.
  const QByteArray& Text() const { return text_; }
  const QByteArray& Size() const { return size_; }
  const QByteArray& Colour() const { return colour_; }
  const QByteArray& Blink() const { return blink_; }

  qsizetype Length() const { return text_.size(); }

  /// The attributes of the character at `position`, 0 to Length() - 1.
  Attributes AttributesAt(qsizetype position) const;

  /// Whether the characters and their attributes are those of `other`.
  bool ShowsTheSameAs(const PageRow& other) const {
    return text_ == other.text_ && size_ == other.size_ && colour_ == other.colour_ &&
           blink_ == other.blink_;
  }

  /// The number of characters in front of the cursor.
  qsizetype Cursor() const { return cursor_; }

  /// Puts the cursor to a column; one outside the text is cut to its nearest end. Nothing is
  /// selected any more.
  void SetCursor(qsizetype column);

  /// Selects what lies between two columns, the cursor standing at the second one. Both are cut as
  /// SetCursor() cuts them.
  void Select(qsizetype anchor, qsizetype cursor);
  void EndSelection() { anchor_ = cursor_; }

  /// The end of the selection at which the cursor is not; the cursor's column without one.
  qsizetype Anchor() const { return anchor_; }
  bool HasSelection() const { return anchor_ != cursor_; }

  /// The first selected character, and the one behind the last; equal where nothing is selected.
  qsizetype SelectionBegin() const { return std::min(anchor_, cursor_); }
  qsizetype SelectionEnd() const { return std::max(anchor_, cursor_); }
  qsizetype SelectionLength() const { return SelectionEnd() - SelectionBegin(); }

  /// The characters from `begin` to the one in front of `end`, both within the text, as a row.
  PageRow Part(qsizetype begin, qsizetype end) const;

  void Home() { SetCursor(0); }
  void End() { SetCursor(Length()); }
  void Left() { SetCursor(cursor_ - 1); }
  void Right() { SetCursor(cursor_ + 1); }

  /// Inserts a character at the cursor and moves the cursor behind it.
  void Insert(char character, const Attributes& attributes);

  /// Adds a character behind the last one; the cursor stays.
  void Append(char character, const Attributes& attributes);

  /// Gives the character at `position`, 0 to Length() - 1, other attributes.
  void SetAttributes(qsizetype position, const Attributes& attributes);

  /// Removes the character left of the cursor; nothing at column 0.
  void Backspace();

  /// Removes the `count` characters right of the cursor, fewer where there are not so many.
  /// Nothing is selected any more.
  void Delete(qsizetype count = 1);

  /// Removes the selected characters, if any; the cursor stands where they were.
  void RemoveSelection();

 private:
  void InsertAt(qsizetype position, char character, const Attributes& attributes);

  /// A file may hold a longer row than its cursor reaches.
  qsizetype Column(qsizetype column) const {
    return std::clamp<qsizetype>(column, 0, std::min(Length(), last_column_));
  }

  QByteArray text_;
  QByteArray size_;
  QByteArray colour_;
  QByteArray blink_;
  qsizetype cursor_ = 0;
  qsizetype anchor_ = 0;
  qsizetype last_column_ = kLastPageColumn;
};

}  // namespace Brivon1
