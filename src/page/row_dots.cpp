#include "page/row_dots.h"

#include <algorithm>

#include "page/page_picture.h"
#include "page/row_line.h"
#include "panel_dots/dot_matrix.h"

namespace Brivon1 {
namespace {

using PanelDots::Cell;

PageRow FirstOf(const PageRow& row, qsizetype characters) {
  return row.Part(0, std::min(characters, row.Length()));
}

QList<Cell> CellsOf(const PageRow& row, const RowPanel& panel) {
  return PanelCells(RowLine(1, row), panel.colour_type);
}

qsizetype FirstCutOf(const QList<Cell>& cells, const RowPanel& panel) {
  return PanelDots::FirstCut(cells, panel.columns, {panel.colour_type != kMono, true, panel.clock});
}

}  // namespace

QList<Cell> SeenCells(const PageRow& row, const RowPanel& panel) {
  // More than the parts of a date take that are characters for themselves.
  constexpr int kMargin = 128;
  for (qsizetype characters = panel.columns / kDotsPerCharacter + kMargin;; characters *= 2) {
    const QList<Cell> cells = CellsOf(FirstOf(row, characters), panel);
    if (characters >= row.Length()) return cells;
    if (PanelDots::ColumnsOf(cells, panel.clock) >= panel.columns + kMargin &&
        FirstCutOf(cells, panel) < cells.size()) {
      return cells;
    }
  }
}

int DotsOfCharacters(const PageRow& row, qsizetype characters, const RowPanel& panel) {
  return PanelDots::ColumnsOf(CellsOf(FirstOf(row, characters), panel), panel.clock);
}

qsizetype SeenCharacters(const PageRow& row, const RowPanel& panel) {
  const QList<Cell> cells = SeenCells(row, panel);
  const qsizetype seen = FirstCutOf(cells, panel);
  if (seen == cells.size()) return row.Length();
  // Characters and cells do not go one by one: a date is eleven of the ones and one of the others.
  // What is looked for is the shortest beginning of the row that gives the cells that are seen.
  const auto gives_them = [&](qsizetype characters) {
    PageRow beginning = FirstOf(row, characters);
    beginning.Append('!', row.AttributesAt(0));  // blanks at the end might be taken away
    const QList<Cell> given = CellsOf(beginning, panel);
    return given.size() > seen && std::equal(given.begin(), given.begin() + seen, cells.begin());
  };
  qsizetype too_few = -1;
  qsizetype enough = std::min(seen, row.Length());
  while (enough < row.Length() && !gives_them(enough)) {
    too_few = enough;
    enough = std::min(2 * enough + 1, row.Length());
  }
  while (enough - too_few > 1) {
    const qsizetype middle = (too_few + enough) / 2;
    (gives_them(middle) ? enough : too_few) = middle;
  }
  return enough;
}

}  // namespace Brivon1
