// Makes the panels' dot font out of two bitmap fonts of the X window system ("5x7" and "6x10" of
// the public-domain "fixed" family): reads them and writes a table of C++ for dot_glyphs.cpp.
//
//   make_dot_font 5x7.pcf.gz 6x10.pcf.gz dot_font_table.inc

#include <ft2build.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>
#include FT_FREETYPE_H

namespace {

constexpr int kHeight = 7;

/// One row of dots; bit x is column x.
using DotRow = unsigned;

/// A glyph as the font has it, without blank rows above and below.
struct Glyph {
  std::vector<DotRow> rows;
  int top = 0;  // the height of the first row above the base line; 1 stands on it
};

/// A font's window of seven rows: what it shows of a glyph.
class Font {
 public:
  /// The window's lowest row has the height `bottom`.
  Font(FT_Library library, const char* path, int width, int bottom)
      : width_(width), bottom_(bottom) {
    if (FT_New_Face(library, path, 0, &face_) != 0 || FT_Select_Size(face_, 0) != 0) {
      face_ = nullptr;
    }
  }

  ~Font() { FT_Done_Face(face_); }
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  bool IsLoaded() const { return face_ != nullptr; }

  std::optional<std::array<DotRow, kHeight>> Find(unsigned long character) const {
    const FT_UInt index = FT_Get_Char_Index(face_, character);
    if (index == 0 || FT_Load_Glyph(face_, index, FT_LOAD_RENDER) != 0) return std::nullopt;
    Glyph glyph = Trimmed(*face_->glyph);
    if (glyph.rows.empty()) return std::array<DotRow, kHeight>{};
    Shrink(glyph);
    const int highest = bottom_ + kHeight - 1;
    const int lowest_dot = glyph.top - static_cast<int>(glyph.rows.size()) + 1;
    // What hangs below the window is lifted as far as there is room.
    if (lowest_dot < bottom_) glyph.top = std::min(highest, glyph.top + bottom_ - lowest_dot);
    std::array<DotRow, kHeight> rows{};
    for (std::size_t i = 0; i < glyph.rows.size(); ++i) {
      const int at = highest - (glyph.top - static_cast<int>(i));
      if (at >= 0 && at < kHeight) rows[static_cast<std::size_t>(at)] = glyph.rows[i];
    }
    return rows;
  }

 private:
  Glyph Trimmed(const FT_GlyphSlotRec& slot) const {
    Glyph glyph;
    glyph.top = slot.bitmap_top;
    for (unsigned y = 0; y < slot.bitmap.rows; ++y) {
      const unsigned char* bytes =
          slot.bitmap.buffer + static_cast<std::ptrdiff_t>(y) * slot.bitmap.pitch;
      DotRow row = 0;
      for (unsigned x = 0; x < slot.bitmap.width; ++x) {
        const int column = slot.bitmap_left + static_cast<int>(x);
        const bool is_lit = (bytes[x / 8] >> (7 - x % 8) & 1) != 0;
        if (is_lit && column >= 0 && column < width_) row |= 1U << column;
      }
      glyph.rows.push_back(row);
    }
    while (!glyph.rows.empty() && glyph.rows.back() == 0) glyph.rows.pop_back();
    while (!glyph.rows.empty() && glyph.rows.front() == 0) {
      glyph.rows.erase(glyph.rows.begin());
      --glyph.top;
    }
    return glyph;
  }

  /// Takes rows out that repeat the one above, from the middle on, until the glyph fits.
  void Shrink(Glyph& glyph) const {
    const int highest = bottom_ + kHeight - 1;
    const auto is_too_tall = [&] {
      const int lowest_dot = glyph.top - static_cast<int>(glyph.rows.size()) + 1;
      return glyph.top > highest || lowest_dot < bottom_;
    };
    while (is_too_tall()) {
      const auto repeated = std::adjacent_find(glyph.rows.begin(), glyph.rows.end());
      if (repeated == glyph.rows.end()) break;
      glyph.rows.erase(repeated);
      if (glyph.top > highest) --glyph.top;
    }
    // An accent comes down, onto its letter where it must, rather than off the panel.
    while (glyph.rows.size() > kHeight && glyph.top > highest) {
      const auto gap = std::find(glyph.rows.begin(), glyph.rows.end(), 0U);
      glyph.rows.erase(gap == glyph.rows.end() ? glyph.rows.begin() : gap);
      --glyph.top;
    }
    glyph.top = std::min(glyph.top, highest);
  }

  FT_Face face_ = nullptr;
  int width_;
  int bottom_;
};

constexpr char kHeading[] =
    R"(// The panels' dot font: a character, its rows in the compressed sizes, its rows in the normal ones.
// Made out of the bitmap fonts "5x7" and "6x10" of the X window system's "fixed" family (Debian
// package xfonts-base), which are in the public domain: "Public domain font. Share and enjoy."
// `cmake --build build/release --target dot_font_table` makes it anew.
)";

void Print(const std::array<DotRow, kHeight>& rows) {
  std::printf("{");
  for (const DotRow row : rows) std::printf("0x%02X,", row);
  std::printf("}");
}

/// The characters of the single-byte code pages, and the symbols.
constexpr std::array<std::pair<unsigned, unsigned>, 5> kRanges = {
    {{0x20, 0x7E}, {0xA0, 0x5FF}, {0x1E00, 0x20CF}, {0x2100, 0x2266}, {0x25A0, 0x266F}}};

/// Stops that are crosses in the wide font, which run together in seven rows.
struct Stop {
  unsigned character;
  std::array<DotRow, kHeight> rows;
};
constexpr std::array<Stop, 3> kStops = {{{'.', {0, 0, 0, 0, 0, 0x0C, 0x0C}},
                                         {':', {0, 0x0C, 0x0C, 0, 0x0C, 0x0C, 0}},
                                         {';', {0, 0x0C, 0x0C, 0, 0x0C, 0x04, 0x02}}}};

/// False where a font cannot be read.
bool PrintTable(FT_Library library, const char* compressed_path, const char* normal_path) {
  const Font compressed(library, compressed_path, 5, 0);
  const Font normal(library, normal_path, 6, 1);
  if (!compressed.IsLoaded() || !normal.IsLoaded()) return false;
  std::printf("%s", kHeading);
  for (const auto& [first, last] : kRanges) {
    for (unsigned character = first; character <= last; ++character) {
      auto wide = normal.Find(character);
      if (!wide) continue;
      const auto* stop = std::find_if(
          kStops.begin(), kStops.end(),
          [character](const Stop& candidate) { return candidate.character == character; });
      if (stop != kStops.end()) wide = stop->rows;
      std::printf("{0x%04X,", character);
      Print(compressed.Find(character).value_or(*wide));
      std::printf(",");
      Print(*wide);
      std::printf("},\n");
    }
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  FT_Library library = nullptr;
  if (argc != 4 || FT_Init_FreeType(&library) != 0) return 2;
  if (std::freopen(argv[3], "w", stdout) == nullptr) return 2;
  const bool is_printed = PrintTable(library, argv[1], argv[2]);
  FT_Done_FreeType(library);
  if (!is_printed) std::fprintf(stderr, "Cannot be read: %s or %s\n", argv[1], argv[2]);
  return is_printed ? 0 : 1;
}
