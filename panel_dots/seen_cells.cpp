#include "panel_dots/seen_cells.h"

#include <algorithm>

#include "panel_dots/dot_glyphs.h"

namespace PanelDots {
namespace {

// More than the parts of a date take that are characters for themselves.
constexpr int kMargin = 128;

}  // namespace

qsizetype UsualLength(int columns) { return columns / kCompressedColumns + kMargin; }

QList<Cell> BeginningOf(qsizetype length, int columns, const RowLook& look,
                        const std::function<QList<Cell>(qsizetype characters)>& cells_of) {
  for (qsizetype characters = UsualLength(columns);; characters *= 2) {
    const QList<Cell> cells = cells_of(std::min(characters, length));
    if (characters >= length) return cells;
    if (ColumnsOf(cells, look.clock) >= columns + kMargin &&
        FirstCut(cells, columns, look) < cells.size()) {
      return cells;
    }
  }
}

QList<Cell> UpToCut(QList<Cell> cells, int columns, const RowLook& look) {
  const qsizetype cut = FirstCut(cells, columns, look);
  const qsizetype most = cut < cells.size() ? cut + 1 : columns / kCompressedColumns + 1;
  cells.resize(std::min(cells.size(), most));
  cells.squeeze();
  return cells;
}

}  // namespace PanelDots
