#include "panel_dots/dot_glyphs.h"

#include <algorithm>
#include <iterator>

#include "panel_dots/dot_symbols.h"

namespace PanelDots {
namespace {

using Rows = std::array<quint8, kGlyphHeight>;

struct FontEntry {
  char16_t character;
  Rows compressed;
  Rows normal;
};

// In ascending order of the characters.
constexpr FontEntry kFont[] = {
#include "panel_dots/dot_font_table.inc"
};

constexpr Rows kCompressedBox = {0x0F, 0x09, 0x09, 0x09, 0x09, 0x0F, 0x00};
constexpr Rows kNormalBox = {0x1F, 0x11, 0x11, 0x11, 0x11, 0x11, 0x1F};

const FontEntry* Find(char16_t character) {
  const auto* found = std::lower_bound(
      std::begin(kFont), std::end(kFont), character,
      [](const FontEntry& entry, char16_t wanted) { return entry.character < wanted; });
  return found != std::end(kFont) && found->character == character ? found : nullptr;
}

// Doubles every stroke: to the right, or to the left where it would close the gap to the next
// stroke or reach the last column.
void MakeBold(DotGlyph* glyph) {
  for (std::size_t y = 0; y < glyph->rows.size(); ++y) {
    const DotGlyph thin = *glyph;
    unsigned row = glyph->rows[y];
    const auto is_lit = [&row](int x) { return x >= 0 && (row >> static_cast<unsigned>(x) & 1U); };
    for (int x = 0; x < glyph->columns; ++x) {
      if (!thin.IsLit(x, static_cast<int>(y))) continue;
      const auto light = [&row](int column) { row |= 1U << static_cast<unsigned>(column); };
      if (x + 1 >= glyph->columns - 1) continue;
      if (!is_lit(x + 2)) {
        light(x + 1);
      } else if (x > 0 && !is_lit(x - 2)) {
        light(x - 1);
      }
    }
    glyph->rows[y] = static_cast<quint8>(row);
  }
}

DotGlyph MakeGlyph(const Rows& rows, bool compressed, bool bold) {
  DotGlyph glyph{compressed ? kCompressedColumns : kNormalColumns, rows};
  if (bold) MakeBold(&glyph);
  return glyph;
}

}  // namespace

DotGlyph GlyphOf(QChar character, bool compressed, bool bold) {
  const FontEntry* entry = Find(character.unicode());
  if (compressed) {
    return MakeGlyph(entry != nullptr ? entry->compressed : kCompressedBox, compressed, bold);
  }
  return MakeGlyph(entry != nullptr ? entry->normal : kNormalBox, compressed, bold);
}

DotGlyph SymbolOf(char letter, bool compressed, bool bold) {
  if (letter < 'A' || letter > 'Z') return GlyphOf(QChar(), compressed, bold);
  return MakeGlyph(SymbolRowsOf(letter, compressed), compressed, bold);
}

}  // namespace PanelDots
