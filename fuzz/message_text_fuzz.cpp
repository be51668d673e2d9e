// What a panel makes of a row of text: cells, and the dots that they light. The first byte of an
// input chooses the panel's width, the second one its colours and the moment.
#include <QTimeZone>

#include "fuzz/must.h"
#include "fuzz/targets.h"
#include "panel_dots/dot_matrix.h"
#include "panel_dots/message_text.h"
#include "panel_dots/panel_picture.h"

namespace Fuzz {
namespace {

using PanelDots::Cell;
using PanelDots::DotMatrix;
using PanelDots::kRowDots;

const QDateTime& TheClock() {
  static const QDateTime clock(QDate(2026, 3, 2), QTime(8, 30), QTimeZone::utc());
  return clock;
}

/// A text that says the same as `cells`.
QByteArray TextOf(const QList<Cell>& cells) {
  QByteArray text;
  Cell last;
  for (const Cell& cell : cells) {
    if (cell.size != last.size || cell.blinking != last.blinking) {
      text += "<S";
      text += static_cast<char>(cell.size + (cell.blinking ? 4 : 0));
      text += '>';
    }
    if (cell.colour != last.colour) text.append("<C").append(cell.colour).append('>');
    switch (cell.kind) {
      case Cell::Kind::kCharacter:
        text += cell.character;
        break;
      case Cell::Kind::kGraphic:
        text.append("<G").append(cell.character).append('>');
        break;
      case Cell::Kind::kDate:
        text += "<DD>";
        break;
      case Cell::Kind::kTime:
        text += "<DT>";
        break;
    }
    last = cell;
  }
  return text;
}

/// Whether a character could be read as the beginning of a code.
bool HasOpenBracket(const QList<Cell>& cells) {
  for (const Cell& cell : cells) {
    if (cell.kind == Cell::Kind::kCharacter && cell.character == '<') return true;
  }
  return false;
}

bool HasRainbow(const QList<Cell>& cells) {
  for (const Cell& cell : cells) {
    if (cell.colour == 'P') return true;
  }
  return false;
}

DotMatrix RowDots(const QList<Cell>& cells, int columns, int left, const PanelDots::RowLook& look) {
  DotMatrix dots(columns, kRowDots);
  PanelDots::PutCells(&dots, 0, left, cells, look);
  return dots;
}

template <typename Holds>
void MustHoldAtEachDot(const DotMatrix& dots, const char* what, const Holds& holds) {
  for (int y = 0; y < dots.Rows(); ++y) {
    for (int x = 0; x < dots.Columns(); ++x) Must(holds(x, y), what);
  }
}

/// A row is a window on one that is wide enough for all of it.
void MustBeAWindow(const QList<Cell>& cells, int columns, const PanelDots::RowLook& look) {
  const int whole = PanelDots::ColumnsOf(cells, look.clock);
  constexpr int kMostColumns = 4000;
  if (whole > kMostColumns) return;
  const DotMatrix wide = RowDots(cells, qMax(whole, columns) + 10, 0, look);
  bool is_light_behind = false;
  MustHoldAtEachDot(wide, "no light behind the last cell", [&](int x, int y) {
    const bool is_lit = wide.At(x, y) != PanelDots::kDarkDot;
    is_light_behind = is_light_behind || (is_lit && x >= columns);
    return !is_lit || x < whole;
  });
  Must(PanelDots::HasLightBehind(cells, columns, look) == is_light_behind,
       "what does not fit is known");
  const DotMatrix dots = RowDots(cells, columns, 0, look);
  MustHoldAtEachDot(dots, "what does not fit is cut",
                    [&](int x, int y) { return dots.At(x, y) == wide.At(x, y); });
  if (HasRainbow(cells)) return;  // its colours stand still while the text moves
  constexpr int kShift = 7;
  const DotMatrix moved = RowDots(cells, columns, -kShift, look);
  MustHoldAtEachDot(moved, "a text that moves stays the same",
                    [&](int x, int y) { return moved.At(x, y) == wide.At(x + kShift, y); });
}

void MustBeLit(const QList<Cell>& cells, int columns) {
  const DotMatrix tri = RowDots(cells, columns, 0, {true, true, TheClock()});
  const DotMatrix mono = RowDots(cells, columns, 0, {false, true, TheClock()});
  MustHoldAtEachDot(mono, "one colour is red",
                    [&](int x, int y) { return mono.At(x, y) <= PanelDots::kRedDot; });
  MustHoldAtEachDot(tri, "two LEDs", [&](int x, int y) { return tri.At(x, y) <= 3; });
  const DotMatrix dark_half = RowDots(cells, columns, 0, {true, false, TheClock()});
  MustHoldAtEachDot(dark_half, "what does not blink stays", [&](int x, int y) {
    return dark_half.At(x, y) == PanelDots::kDarkDot || dark_half.At(x, y) == tri.At(x, y);
  });
  const qsizetype cut = PanelDots::FirstCut(cells, columns, {true, true, TheClock()});
  Must(cut >= 0 && cut <= cells.size(), "a cut cell is one of them");
}

void MustEnter(const QList<Cell>& cells, int columns) {
  PanelDots::PanelPicture picture{{2, columns, true}};
  picture.clock = TheClock();
  const DotMatrix before = PanelDots::DotsOf(picture, 0);
  picture.rows = {{0, cells}, {1, cells}, {2, cells}, {3, cells}};
  const DotMatrix after = PanelDots::DotsOf(picture, 0);
  Must(after.Columns() == columns && after.Rows() == 2 * kRowDots, "a picture of the panel's size");
  for (int y = 0; y < kRowDots; ++y) {
    for (int x = 0; x < columns; ++x) {
      Must(after.At(x, y) == after.At(x, y + kRowDots), "the same text in another row");
    }
  }
  for (char effect = 'A'; effect <= 'I'; ++effect) {
    Must(PanelDots::Transition(before, after, effect, 1) == after, "an effect ends with the page");
    Must(PanelDots::Transition(before, after, effect, 0) == before, "and begins with the old one");
    const DotMatrix between = PanelDots::Transition(before, after, effect, 0.4);
    Must(between.Columns() == columns && between.Rows() == after.Rows(), "and keeps its size");
  }
}

void MustScroll(const QList<Cell>& cells, int columns, qint64 now_ms) {
  PanelDots::PanelPicture picture{{1, columns, true}};
  picture.clock = TheClock();
  picture.scrolling_texts = {{1, {cells, 0}}};
  const PanelDots::ScrollingText& text = picture.scrolling_texts.first();
  const qint64 gone = PanelDots::ScrolledDots(text, picture, now_ms);
  Must(gone >= 0 && gone < columns + PanelDots::ColumnsOf(cells, picture.clock), "it comes round");
  const qint64 wait = PanelDots::MsToNextDot(text, picture, now_ms);
  Must(wait >= 1 && wait <= 1000, "it moves on");
  Must(PanelDots::DotsOf(picture, now_ms).Columns() == columns, "it is drawn");
}

}  // namespace

void CheckMessageText(const QByteArray& input) {
  const int columns = input.isEmpty() ? 96 : static_cast<unsigned char>(input.front()) + 1;
  const int choice = input.size() < 2 ? 0 : static_cast<unsigned char>(input.at(1));
  const QList<Cell> cells = PanelDots::ParseCells(input.mid(2));
  Must(cells.size() <= input.size(), "no more cells than bytes");
  if (!HasOpenBracket(cells)) {
    Must(PanelDots::ParseCells(TextOf(cells)) == cells, "cells that are written are read again");
  }
  MustBeAWindow(cells, columns, {(choice & 1) != 0, (choice & 2) != 0, TheClock()});
  MustBeLit(cells, columns);
  MustEnter(cells, columns);
  MustScroll(cells, columns, (choice - 128) * qint64{997});
  Must(PanelDots::RowText(cells, TheClock()).size() >= cells.size(), "a row can be read out");
}

}  // namespace Fuzz
