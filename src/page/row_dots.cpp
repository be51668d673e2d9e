#include "page/row_dots.h"

#include <algorithm>
#include <numeric>

#include "page/page_picture.h"
#include "page/row_line.h"
#include "panel_dots/dot_matrix.h"
#include "panel_dots/seen_cells.h"

namespace Brivon1 {
namespace {

using PanelDots::Cell;

PageRow FirstOf(const PageRow& row, qsizetype characters) {
  return row.Part(0, std::min(characters, row.Length()));
}

QList<Cell> CellsOf(const PageRow& row, const RowPanel& panel) {
  return PanelCells(RowLine(1, row), panel.colour_type);
}

PanelDots::RowLook LookOf(const RowPanel& panel) {
  return {panel.colour_type != kMono, true, panel.clock};
}

qsizetype FirstCutOf(const QList<Cell>& cells, const RowPanel& panel) {
  return PanelDots::FirstCut(cells, panel.columns, LookOf(panel));
}

/// The row's characters that became a cell.
qsizetype CharactersOf(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::kGraphic:
      return 2;
    case Cell::Kind::kDate:
      return PageMessage::kDate.size();
    case Cell::Kind::kTime:
      return PageMessage::kTime.size();
    case Cell::Kind::kCharacter:
      break;
  }
  return 1;
}

qsizetype CharactersOf(QList<Cell>::const_iterator begin, QList<Cell>::const_iterator end) {
  return std::accumulate(begin, end, qsizetype{0},
                         [](qsizetype sum, const Cell& cell) { return sum + CharactersOf(cell); });
}

/// The length of the shortest beginning of the row that gives the panel the first `count` of
/// `cells`. What was typed like a code is none of them.
qsizetype LengthThatGives(const QList<Cell>& cells, qsizetype count, const PageRow& row,
                          const RowPanel& panel) {
  const auto gives_them = [&](qsizetype characters) {
    PageRow beginning = FirstOf(row, characters);
    beginning.Append('!', row.AttributesAt(0));  // blanks at the end might be taken away
    const QList<Cell> given = CellsOf(beginning, panel);
    return given.size() > count && std::equal(given.begin(), given.begin() + count, cells.begin());
  };
  qsizetype too_few = -1;
  qsizetype enough = std::min(count, row.Length());
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

qsizetype SeenOf(const QList<Cell>& cells, const PageRow& row, const RowPanel& panel) {
  const qsizetype seen = FirstCutOf(cells, panel);
  if (seen == cells.size()) return row.Length();
  const bool goes_one_by_one = CharactersOf(cells.begin(), cells.end()) == row.Length();
  return goes_one_by_one ? CharactersOf(cells.begin(), cells.begin() + seen)
                         : LengthThatGives(cells, seen, row, panel);
}

}  // namespace

QList<Cell> SeenCells(const PageRow& row, const RowPanel& panel) {
  return PanelDots::BeginningOf(
      row.Length(), panel.columns, LookOf(panel),
      [&](qsizetype characters) { return CellsOf(FirstOf(row, characters), panel); });
}

RowUse UseOf(const PageRow& row, const RowPanel& panel) {
  const QList<Cell> cells = SeenCells(row, panel);
  const bool is_whole = row.Length() <= PanelDots::UsualLength(panel.columns);
  return {is_whole ? PanelDots::ColumnsOf(cells, panel.clock)
                   : DotsOfCharacters(row, row.Length(), panel),
          SeenOf(cells, row, panel)};
}

int DotsOfCharacters(const PageRow& row, qsizetype characters, const RowPanel& panel) {
  return PanelDots::ColumnsOf(CellsOf(FirstOf(row, characters), panel), panel.clock);
}

qsizetype SeenCharacters(const PageRow& row, const RowPanel& panel) {
  return SeenOf(SeenCells(row, panel), row, panel);
}

}  // namespace Brivon1
