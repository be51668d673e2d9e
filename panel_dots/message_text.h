// The text of one panel row as it arrives on the wire, taken apart into what the panel shows:
// characters with their size, colour and blinking, graphic symbols, and the places of the panel's
// own date and time.
#pragma once

#include <QByteArrayView>
#include <QList>
#include <QtGlobal>

namespace PanelDots {

struct Cell {
  enum class Kind : quint8 { kCharacter, kGraphic, kDate, kTime };

  Kind kind = Kind::kCharacter;
  char character = ' ';  // of a graphic its letter; of a date or time a blank
  char size = 'A';       // A Normal, B Compressed, C Normal Bold, D Compressed Bold
  char colour = 'A';     // A to P; other letters are kept as they came
  bool blinking = false;

  bool IsBold() const { return size == 'C' || size == 'D'; }
  bool IsCompressed() const { return size == 'B' || size == 'D'; }

  friend bool operator==(const Cell&, const Cell&) = default;
};

// Takes the text of one row apart. The text starts in size A, colour A, steady. A size code with a
// letter other than A to H changes nothing and is not shown. Bytes that form no code are
// characters.
QList<Cell> ParseCells(QByteArrayView text);

}  // namespace PanelDots
