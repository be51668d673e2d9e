#include "dot_glyphs.h"

#include <algorithm>
#include <iterator>

namespace VirtualPanel {
namespace {

using Rows = std::array<quint8, kGlyphHeight>;

struct FontEntry {
  char16_t character;
  Rows compressed;
  Rows normal;
};

// In ascending order of the characters.
constexpr FontEntry kFont[] = {
#include "dot_font_table.inc"
};

// The symbols of graphics A to Z.
constexpr char16_t kSymbols[] = u"←↑→↓↔↕▲►▼◄○●◆■□♠♣♥♦♪♫☺☻☼♀♂";
static_assert(std::size(kSymbols) == 26 + 1);

constexpr Rows kCompressedBox = {0x0F, 0x09, 0x09, 0x09, 0x09, 0x0F, 0x00};
constexpr Rows kNormalBox = {0x1F, 0x11, 0x11, 0x11, 0x11, 0x11, 0x1F};

const FontEntry* Find(char16_t character) {
  const auto* found = std::lower_bound(
      std::begin(kFont), std::end(kFont), character,
      [](const FontEntry& entry, char16_t wanted) { return entry.character < wanted; });
  return found != std::end(kFont) && found->character == character ? found : nullptr;
}

void MakeBold(DotGlyph* glyph) {
  const unsigned kept = (1U << static_cast<unsigned>(glyph->columns - 1)) - 1;
  for (quint8& row : glyph->rows) row = static_cast<quint8>(row | (row << 1U & kept));
}

}  // namespace

DotGlyph GlyphOf(QChar character, bool compressed, bool bold) {
  const FontEntry* entry = Find(character.unicode());
  DotGlyph glyph;
  if (compressed) {
    glyph.columns = kCompressedColumns;
    glyph.rows = entry != nullptr ? entry->compressed : kCompressedBox;
  } else {
    glyph.rows = entry != nullptr ? entry->normal : kNormalBox;
  }
  if (bold) MakeBold(&glyph);
  return glyph;
}

DotGlyph SymbolOf(char letter, bool compressed, bool bold) {
  const char16_t symbol = letter >= 'A' && letter <= 'Z' ? kSymbols[letter - 'A'] : u'\0';
  return GlyphOf(QChar(symbol), compressed, bold);
}

}  // namespace VirtualPanel
