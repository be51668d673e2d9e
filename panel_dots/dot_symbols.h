// The symbols of graphics A to Z, as they are drawn into the cell of a character. Like a letter,
// none of them has light in its cell's last column, so that it stands apart from what follows it.
#pragma once

#include <array>

#include <QtGlobal>

namespace PanelDots {

using SymbolRows = std::array<quint8, 7>;  // from the top; bit x is column x

// Of `letter`, "A" to "Z".
SymbolRows SymbolRowsOf(char letter, bool compressed);

}  // namespace PanelDots
