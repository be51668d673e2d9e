// One place of a row as who looks at a panel has it: a character or what stands for one, and how it
// looks. Both what was composed and what was sent are told in it, each by its own hand.
#pragma once

#include <ostream>
#include <vector>

struct ShownCharacter {
  enum class Kind { kCharacter, kSymbol, kDate, kTime };

  Kind kind = Kind::kCharacter;
  char character = ' ';  // a blank for a date and a time
  char size = 'A';
  char colour = 'A';
  bool blinking = false;

  bool operator==(const ShownCharacter&) const = default;
};

using ShownRow = std::vector<ShownCharacter>;

inline void PrintTo(const ShownCharacter& shown, std::ostream* stream) {
  *stream << "csDT"[static_cast<int>(shown.kind)] << std::hex
          << static_cast<int>(static_cast<unsigned char>(shown.character)) << std::dec << ':'
          << shown.size << shown.colour << (shown.blinking ? 'B' : 'N');
}
