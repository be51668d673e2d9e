// How characters look on the screen: a preview of what a panel shows. One character cell, a whole
// row, and the cursor line are drawn here for both editors. Every distinct cell is drawn once for a
// screen's resolution and kept, so that a row is a series of copies.
#pragma once

#include <limits>

#include <QColor>
#include <QRect>

#include "row/row_editing.h"

class QPainter;

/// The height of a cell and of a row's surface, in pixels.
inline constexpr int kCellHeight = 20;

/// A surface's room behind its last cell, in pixels.
inline constexpr int kRowMargin = 5;

inline constexpr QColor kSurfaceBackground{0, 0, 0};

/// The width of the surface of a row of `characters` places.
constexpr int RowWidth(int characters) { return characters * Brivon1::kCellWidth + kRowMargin; }

/// Draws `character`, in the system's code page, with the upper left corner of its cell at (x, y).
/// Only "On", "Shadow" and blank cells have a ground of their own. A colour letter that is none
/// blanks the cell, a size letter that is none is "A".
void DrawCell(QPainter& painter, char character, char size, char colour, int x, int y);

/// The part of a row that is shown: at most `most` characters, from the one at `first` on.
struct RowSpan {
  qsizetype first = 0;
  qsizetype most = std::numeric_limits<qsizetype>::max();

  /// The position behind the last character shown of `row`.
  qsizetype Behind(const Brivon1::PageRow& row) const {
    return most < row.Length() - first ? first + most : row.Length();
  }

  bool operator==(const RowSpan&) const = default;
};

/// Draws the characters of `row` that lie in `span` and touch `exposed`, the span's left end at x
/// 0; blinking ones as blank cells if `blinking_hidden`.
void DrawRow(QPainter& painter, const Brivon1::PageRow& row, const QRect& exposed,
             bool blinking_hidden, RowSpan span = {});

/// Draws the cursor line in front of the cell `column`, white or as if erased.
void DrawCursorLine(QPainter& painter, int column, bool shown);
