// The panels' dot font: every character is seven dots high, five columns wide in the compressed
// sizes and six in the normal ones, its last column usually dark.
#pragma once

#include <array>

#include <QChar>

namespace PanelDots {

inline constexpr int kGlyphHeight = 7;
inline constexpr int kNormalColumns = 6;
inline constexpr int kCompressedColumns = 5;

struct DotGlyph {
  int columns = kNormalColumns;
  std::array<quint8, kGlyphHeight> rows{};  // from the top; bit x is column x

  bool IsLit(int x, int y) const {
    return (rows[static_cast<std::size_t>(y)] >> static_cast<unsigned>(x) & 1U) != 0;
  }
};

// A character's glyph; an empty box for a character that the font lacks. In bold every stroke
// is doubled as far as there is room: gaps within the character, and the last column, stay dark.
DotGlyph GlyphOf(QChar character, bool compressed, bool bold);

// The symbol that a panel shows for graphic `letter`, "A" to "Z"; an empty box for any other.
DotGlyph SymbolOf(char letter, bool compressed, bool bold);

}  // namespace PanelDots
