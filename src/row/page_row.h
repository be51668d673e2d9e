// One line of text in which every character has its own size, colour and blinking, and the cursor
// of whoever edits it. A page has twelve, a scrolling message is one.
#pragma once

#include <limits>

#include <QByteArray>

#include "row/attributes.h"

namespace Brivon1 {

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

  /// The row's first `characters` characters, the cursor in front of them; all of it where it has
  /// no more.
  PageRow First(qsizetype characters) const;

  /// The number of characters in front of the cursor.
  qsizetype Cursor() const { return cursor_; }

  /// Puts the cursor to a column; one outside the text is cut to its nearest end.
  void SetCursor(qsizetype column);

  void Home() { SetCursor(0); }
  void End() { SetCursor(Length()); }
  void Left() { SetCursor(cursor_ - 1); }
  void Right() { SetCursor(cursor_ + 1); }

  /// Inserts a character at the cursor and moves the cursor behind it.
  void Insert(char character, const Attributes& attributes);

  /// Adds a character behind the last one; the cursor stays.
  void Append(char character, const Attributes& attributes);

  /// Removes the character left of the cursor; nothing at column 0.
  void Backspace();

  /// Removes the `count` characters right of the cursor, fewer where there are not so many.
  void Delete(qsizetype count = 1);

 private:
  void InsertAt(qsizetype position, char character, const Attributes& attributes);

  QByteArray text_;
  QByteArray size_;
  QByteArray colour_;
  QByteArray blink_;
  qsizetype cursor_ = 0;
  qsizetype last_column_ = kLastPageColumn;
};

}  // namespace Brivon1
