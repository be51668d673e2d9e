// What a panel shows, and the dots that it lights for it at a time: a function of these two alone,
// apart from whatever holds the pages and whatever paints the dots.
//
//   PanelPicture picture{{4, 96, true}};
//   picture.rows.insert(1, ParseCells("<SA><CB>Drive safely"));
//   const DotMatrix dots = DotsOf(picture, 0);  // or DrawPanel, which paints them
#pragma once

#include <optional>

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>

#include "panel_dots/dot_matrix.h"
#include "panel_dots/message_text.h"

namespace PanelDots {

// Blinking characters are lit for so long and then dark for so long, all panels in step.
inline constexpr qint64 kBlinkMs = 500;

// Dots a second by which a scrolling text moves: a usual one, and what can be set.
inline constexpr int kUsualScrollSpeed = 30;
inline constexpr int kMostScrollSpeed = 1000;

// An entry effect takes so long, whatever the panel's size.
inline constexpr qint64 kEntranceMs = 800;

struct PanelShape {
  int rows = 4;      // of text
  int columns = 96;  // of dots
  bool tri_colour = true;

  friend bool operator==(const PanelShape&, const PanelShape&) = default;
};

using PageRows = QMap<int, QList<Cell>>;  // by row, from 1

// A text that runs across a row from right to left, again and again.
struct ScrollingText {
  QList<Cell> cells;
  qint64 began_ms = 0;
};

using ScrollingTexts = QMap<int, ScrollingText>;  // by row, from 1

// A page on its way in. All moments are in the milliseconds of the scrolling texts' beginning.
struct Entrance {
  DotMatrix before;  // what was shown when it began
  char effect = 'A';
  qint64 began_ms = 0;
};

struct PanelPicture {
  PanelShape shape;
  PageRows rows{};                   // those that the panel lacks are not shown
  QDateTime clock{};                 // the panel's own date and time
  ScrollingTexts scrolling_texts{};  // each in place of the page's row
  int scroll_speed = kUsualScrollSpeed;
  std::optional<Entrance> entrance{};
};

// The dots, kRowDots of them for each text row. Of the rows, counted from 1, those outside of
// `first_row` to `last_row` need not be right.
DotMatrix DotsOf(const PanelPicture& picture, qint64 now_ms, int first_row, int last_row);
DotMatrix DotsOf(const PanelPicture& picture, qint64 now_ms);

// Whether something of it blinks, or shows the date or the time.
bool HasBlinkingCells(const PanelPicture& picture);
bool HasClockCells(const PanelPicture& picture);

// Whether a row of the page has light beyond the panel's last dot column. A text that scrolls is
// seen whole in the end and is never cut.
bool IsCut(const PanelPicture& picture, int row);

// What a row says as plain text, with the panel's date and time filled in and graphics as "[A]".
QString RowText(const QList<Cell>& row, const QDateTime& clock);

// How many dots of its way a scrolling text has gone: 0 when its first dot is about to come in at
// the right edge; when its last one has gone out at the left edge, it is 0 again.
qint64 ScrolledDots(const ScrollingText& text, const PanelPicture& picture, qint64 now_ms);

// How long it stays there, at least 1 ms.
qint64 MsToNextDot(const ScrollingText& text, const PanelPicture& picture, qint64 now_ms);

// How long until an entering page should be drawn again, the last time when it is all there; none:
// no page is entering.
std::optional<qint64> MsToNextFrame(const PanelPicture& picture, qint64 now_ms);

}  // namespace PanelDots
