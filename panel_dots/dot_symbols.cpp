#include "panel_dots/dot_symbols.h"

#include <cstddef>
#include <string_view>
#include <tuple>

namespace PanelDots {
namespace {

constexpr std::size_t kSymbolsOfALine = 13;
constexpr std::size_t kHeight = std::tuple_size_v<SymbolRows>;

// The symbols side by side: arrows, triangles, circles, squares and diamonds, card suits, notes,
// faces, sun, woman, man.
using Pictures = std::array<std::string_view, 2 * kHeight>;

// clang-format off
constexpr Pictures kNormal = {
    // A     B     C     D     E     F     G     H     I     J     K     L     M
    "..... ..#.. ..... ..#.. ..... ..#.. ..... ..... ..... ..... ..... ..... .....",
    "..... .###. ..... ..#.. ..... .###. ..#.. ..... ##### ..... ..... ..... ..#..",
    "..#.. #.#.# ..#.. ..#.. ..... #.#.# ..#.. #.... ##### ....# .###. .###. .###.",
    ".#... ..#.. ...#. ..#.. .#.#. ..#.. .###. ###.. .###. ..### #...# ##### #####",
    "##### ..#.. ##### #.#.# ##### #.#.# .###. ##### .###. ##### #...# ##### .###.",
    ".#... ..#.. ...#. .###. .#.#. .###. ##### ###.. ..#.. ..### #...# ##### ..#..",
    "..#.. ..#.. ..#.. ..#.. ..... ..#.. ##### #.... ..#.. ....# .###. .###. .....",
    // N     O     P     Q     R     S     T     U     V     W     X     Y     Z
    "..... ..... ..#.. .###. ..... ..#.. ..... .##.. .###. .###. ..#.. ..... .....",
    "..... ..... ..#.. ..#.. .#.#. .###. ..##. .#.#. #...# ##### #.#.# .###. ..###",
    "##### ##### .###. #.#.# ##### ##### ..#.# .#..# ##.## #.#.# .###. #...# ...##",
    "##### #...# ##### ##### ##### ##### ..#.. .#..# #...# ##### ##.## .###. .##.#",
    "##### #...# ##### #.#.# ##### .###. .##.. ##..# ##.## #.#.# .###. ..#.. #..#.",
    "##### #...# ..#.. ..#.. .###. .###. ###.. ##.## #.#.# ##.## #.#.# .###. #..#.",
    "##### ##### .###. .###. ..#.. ..#.. .##.. ...## .###. .###. ..#.. ..#.. .##..",
};

constexpr Pictures kCompressed = {
    // A    B    C    D    E    F    G    H    I    J    K    L    M
    ".... ..#. .... ..#. .... ..#. .... .... .... .... .... .... ....",
    ".... .### .... ..#. .#.. .### .##. #... #### ...# .##. .##. ....",
    ".#.. ..#. ..#. ..#. #### ..#. .##. ##.. #### ..## #..# #### .##.",
    "#### ..#. #### ..#. .... ..#. #### #### .##. #### #..# #### ####",
    ".#.. ..#. ..#. .### #### .### #### ##.. .##. ..## .##. .##. .##.",
    ".... ..#. .... ..#. ..#. ..#. .... #... .... ...# .... .... ....",
    ".... .... .... .... .... .... .... .... .... .... .... .... ....",
    // N    O    P    Q    R    S    T    U    V    W    X    Y    Z
    ".... .... .... .##. .... .##. ..#. .... .... .##. .... .... ....",
    ".... .... .#.. .##. #..# .##. ..## .### .#.# #### #..# ..#. .###",
    "#### #### ###. #### #### #### ..## .#.# .... .##. .##. .#.# ..##",
    "#### #..# ###. #### #### #### ..#. .#.# .#.# #### #### ..#. .#.#",
    "#### #..# .#.. .##. .##. .##. ###. #### ..#. #..# .##. .### #.#.",
    "#### #### ###. #### .... .##. ##.. #.#. .... .##. #..# ..#. .#..",
    ".... .... .... .... .... .... .... .... .... .... .... .... ....",
};
// clang-format on

constexpr SymbolRows RowsOf(const Pictures& pictures, std::size_t symbol) {
  const std::size_t width = (pictures[0].size() + 1) / kSymbolsOfALine;  // and the blank behind it
  const std::size_t left = symbol % kSymbolsOfALine * width;
  const std::size_t top = symbol / kSymbolsOfALine * kHeight;
  SymbolRows rows{};
  for (std::size_t y = 0; y < kHeight; ++y) {
    for (std::size_t x = 0; x + 1 < width; ++x) {
      if (pictures[top + y][left + x] == '#') rows[y] |= static_cast<quint8>(1U << x);
    }
  }
  return rows;
}

}  // namespace

SymbolRows SymbolRowsOf(char letter, bool compressed) {
  return RowsOf(compressed ? kCompressed : kNormal, static_cast<std::size_t>(letter - 'A'));
}

}  // namespace PanelDots
