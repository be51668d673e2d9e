#include "panel_dots/message_text.h"

namespace PanelDots {

QList<Cell> ParseCells(QByteArrayView text) {
  QList<Cell> cells;
  Cell attributes;
  const auto append = [&](Cell::Kind kind, char character) {
    Cell cell = attributes;
    cell.kind = kind;
    cell.character = character;
    cells.append(cell);
  };
  while (!text.isEmpty()) {
    // Every code is four bytes: "<", a letter, its value, ">".
    if (text.size() >= 4 && text[0] == '<' && text[3] == '>') {
      const char code = text[1];
      const char value = text[2];
      bool is_code = true;
      if (code == 'S') {
        if (value >= 'A' && value <= 'H') {
          attributes.blinking = value >= 'E';
          attributes.size = attributes.blinking ? static_cast<char>(value - 4) : value;
        }
      } else if (code == 'C') {
        attributes.colour = value;
      } else if (code == 'G') {
        append(Cell::Kind::kGraphic, value);
      } else if (code == 'D' && value == 'D') {
        append(Cell::Kind::kDate, ' ');
      } else if (code == 'D' && value == 'T') {
        append(Cell::Kind::kTime, ' ');
      } else {
        is_code = false;
      }
      if (is_code) {
        text = text.sliced(4);
        continue;
      }
    }
    append(Cell::Kind::kCharacter, text[0]);
    text = text.sliced(1);
  }
  return cells;
}

}  // namespace PanelDots
