// A panel's dots: which LEDs are lit, and in which colour. What is shown is worked out here, dot by
// dot, before anything is painted.
#pragma once

#include <algorithm>
#include <vector>

#include <QDateTime>
#include <QList>
#include <QString>

#include "panel_dots/message_text.h"

namespace PanelDots {

// A dot has a red and a green LED; both together are yellow.
enum Dot : quint8 { kDarkDot = 0, kRedDot = 1, kGreenDot = 2, kYellowDot = 3 };

// Dots of a text row: a character's seven and one below them, for the edge of the "3D" colours.
inline constexpr int kRowDots = 8;

class DotMatrix {
 public:
  DotMatrix() = default;
  DotMatrix(int columns, int rows)
      : columns_(columns),
        rows_(rows),
        dots_(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), kDarkDot) {}

  int Columns() const { return columns_; }
  int Rows() const { return rows_; }

  // Outside the matrix everything is dark, and nothing can be set.
  Dot At(int x, int y) const { return Contains(x, y) ? dots_[Index(x, y)] : kDarkDot; }
  void Set(int x, int y, Dot dot) {
    if (Contains(x, y)) dots_[Index(x, y)] = dot;
  }

  // The dots of one row, `Columns()` of them.
  const Dot* Line(int y) const { return dots_.data() + Index(0, y); }
  Dot* Line(int y) { return dots_.data() + Index(0, y); }

  // `count` rows from `first` on, all inside the matrix.
  void DarkenRows(int first, int count) {
    std::fill_n(Line(first), static_cast<std::size_t>(count) * static_cast<std::size_t>(columns_),
                kDarkDot);
  }

  friend bool operator==(const DotMatrix&, const DotMatrix&) = default;

 private:
  bool Contains(int x, int y) const { return x >= 0 && x < columns_ && y >= 0 && y < rows_; }
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(x);
  }

  int columns_ = 0;
  int rows_ = 0;
  std::vector<Dot> dots_;
};

// How a row is shown.
struct RowLook {
  bool tri_colour = true;    // a panel of one colour shows everything in plain red
  bool blinking_lit = true;  // blinking characters are in their lit half
  QDateTime clock;           // for date and time
};

// What a cell shows as text: its character, or the date or time in the panel's form.
QString TextOf(const Cell& cell, const QDateTime& clock);

// The dot columns that the cells take.
int ColumnsOf(const QList<Cell>& cells, const QDateTime& clock);

// Puts cells into the text row whose uppermost dots have the height `top`, the first one at column
// `left`, which may lie outside; the row lies inside. What does not fit is cut.
void PutCells(DotMatrix* matrix, int top, int left, const QList<Cell>& cells, const RowLook& look);

// Of cells put at column 0, the first one that has light at column `columns` or behind it; their
// number where there is none.
qsizetype FirstCut(const QList<Cell>& cells, int columns, const RowLook& look);
bool HasLightBehind(const QList<Cell>& cells, int columns, const RowLook& look);

// One picture turning into another by entry effect `code` ("A" Appear to "H" Shift; any other is
// Appear), at `progress` 0 (still `before`) to 1 (all `after`). A `before` of another size
// turns into `after` at once.
DotMatrix Transition(const DotMatrix& before, const DotMatrix& after, char code, double progress);

}  // namespace PanelDots
