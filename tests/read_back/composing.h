// Random rows, typed by an editor's own rules and remembered by hand, and what a panel must show of
// them, told from the keys alone.
#pragma once

#include <random>
#include <vector>

#include <QByteArray>
#include <QByteArrayView>

#include "read_back/shown_character.h"
#include "row/edited_message.h"

/// A random choice that is the same again for the same start number.
class Choice {
 public:
  explicit Choice(unsigned start) : random_(start) {}

  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  int Between(int least, int most) { return least + Below(most - least + 1); }
  bool OneIn(int bound) { return Below(bound) == 0; }

 private:
  std::mt19937 random_;
};

/// A character as it was typed.
struct TypedCharacter {
  char character = ' ';
  char size = 'A';
  char colour = 'A';
  bool blinking = false;
};

using TypedRow = std::vector<TypedCharacter>;

/// Somebody who types into a row and remembers what must stand there.
template <typename Message>
class Typist {
 public:
  /// `most`: how many characters the row takes.
  Typist(Choice& choice, Message& message, qsizetype most)
      : choice_(choice), message_(message), most_(static_cast<std::size_t>(most)) {}

  /// Begins an empty row; the attributes stay.
  void BeginRow() {
    row_.clear();
    cursor_ = 0;
  }

  const TypedRow& Row() const { return row_; }

  void Type(QByteArrayView bytes) {
    message_.TypeAll(bytes);
    for (const char byte : bytes) {
      if (row_.size() >= most_) break;
      row_.insert(At(cursor_++), {byte, size_, colour_, blinking_});
    }
  }

  /// A key, a choice or some typing.
  void DoSomething() {
    switch (choice_.Below(12)) {
      case 0:
        return ChooseAttributes();
      case 1:
        return Move();
      case 2:
        return Remove();
      case 3:
        return Type(Placeholder());
      case 4:
        return Type(QByteArray(choice_.Between(1, 4), ' '));
      case 5:
        return Type(Tricky());
      default:
        QByteArray bytes;
        for (int left = choice_.Between(1, 9); left > 0; --left) bytes.append(AnyByte());
        return Type(bytes);
    }
  }

  void FillUp() {
    message_.PressMoveKey(Brivon1::MoveKey::kEnd);
    cursor_ = row_.size();
    while (row_.size() < most_) {
      if (choice_.OneIn(4)) ChooseAttributes();
      Type(QByteArray(choice_.Between(1, 20), AnyByte()));
    }
  }

 private:
  TypedRow::iterator At(std::size_t place) {
    return row_.begin() + static_cast<TypedRow::difference_type>(place);
  }

  /// Every byte that is no key.
  char AnyByte() {
    const int value = choice_.Between(0x20, 0xFE);
    return static_cast<char>(value >= 0x7F ? value + 1 : value);
  }

  QByteArray Placeholder() {
    switch (choice_.Below(3)) {
      case 0:
        return "DD MMM YYYY";
      case 1:
        return "HH:MM";
      default:
        return QByteArray("~").append(static_cast<char>('A' + choice_.Below(26)));
    }
  }

  QByteArray Tricky() {
    const std::vector<QByteArray> texts = {"<",    ">",    "~",    "~~",    "<SE>",   "<CB>",
                                           "<CC>", "<GA>", "<DD>", "<L02>", "<P001>", "HH:M"};
    return texts[static_cast<std::size_t>(choice_.Below(static_cast<int>(texts.size())))];
  }

  void ChooseAttributes() {
    const int size = choice_.Below(4);
    const int colour = choice_.Below(16);
    blinking_ = choice_.OneIn(2);
    size_ = "ABCD"[size];
    colour_ = "ABCDEFGHIJKLMNOP"[colour];
    message_.ChooseSize(size);
    message_.ChooseColour(colour);
    message_.ChooseBlink(blinking_);
  }

  void Move() {
    using Brivon1::MoveKey;
    switch (choice_.Below(4)) {
      case 0:
        cursor_ = 0;
        return message_.PressMoveKey(MoveKey::kHome);
      case 1:
        cursor_ = row_.size();
        return message_.PressMoveKey(MoveKey::kEnd);
      case 2:
        if (cursor_ > 0) --cursor_;
        return message_.PressMoveKey(MoveKey::kLeft);
      default:
        if (cursor_ < row_.size()) ++cursor_;
        return message_.PressMoveKey(MoveKey::kRight);
    }
  }

  void Remove() {
    if (choice_.OneIn(2)) {
      if (cursor_ < row_.size()) row_.erase(At(cursor_));
      message_.PressMoveKey(Brivon1::MoveKey::kDelete);
    } else {
      if (cursor_ > 0) row_.erase(At(--cursor_));
      message_.TypeAll("\b");
    }
  }

  Choice& choice_;
  Message& message_;
  std::size_t most_;
  TypedRow row_;
  std::size_t cursor_ = 0;
  char size_ = 'A';
  char colour_ = 'A';
  bool blinking_ = false;
};

/// Whether a panel is told the row as it was typed. It is not where typed characters stand together
/// as a code, and where in a page the placeholder of a symbol is broken by a code.
bool IsToldAsTyped(const TypedRow& row, bool is_page, bool tri_colour);

/// What a panel must show of such a row.
ShownRow ShownOf(const TypedRow& row, bool is_page, bool tri_colour);
