// Draws a panel: what it shows, at a time, in a size. A function of these three alone, apart from
// the engine that holds the pages and from the widget that shows them.
#pragma once

#include <QDateTime>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include "panel_description.h"
#include "panel_engine.h"

namespace VirtualPanel {

// Blinking characters are lit for so long and then dark for so long, all panels in step.
inline constexpr qint64 kBlinkMs = 500;

// Dots a second by which a scrolling text moves: a usual one, and what can be set.
inline constexpr int kUsualScrollSpeed = 30;
inline constexpr int kMostScrollSpeed = 1000;

// What a panel shows.
struct PanelPicture {
  PanelDescription description;
  StoredPage rows;
  QDateTime clock;                   // the panel's own date and time
  ScrollingLines scrolling_lines{};  // each in place of the page's row
  int scroll_speed = kUsualScrollSpeed;
};

// The size of a panel with its frame, counted in dots.
QSizeF SizeInDots(const PanelDescription& description);

// Where row `row` (from 1) lies when the panel is drawn in `size`.
QRectF RowRect(const QSizeF& size, const PanelDescription& description, int row);

bool HasBlinkingCells(const PanelPicture& picture);

// What a row says as plain text, with the panel's date and time filled in and graphics as "[A]".
QString RowText(const StoredRow& row, const QDateTime& clock);

// How many dots of its way a scrolling text has gone: 0 when its first dot is about to come in at
// the right edge; when its last one has gone out at the left edge, it is 0 again.
qint64 ScrolledDots(const ScrollingLine& line, const PanelPicture& picture, qint64 now_ms);

// How long it stays there, at least 1 ms.
qint64 MsToNextDot(const ScrollingLine& line, const PanelPicture& picture, qint64 now_ms);

// Draws the panel into (0, 0, size), as large as its shape allows, centred. `now_ms`, in the
// milliseconds of the scrolling lines' beginning, sets the phase of blinking and how far they have
// come. What does not fit the panel's dot columns is cut; what a clip of the painter hides takes
// no time.
void DrawPanel(QPainter* painter, const QSizeF& size, const PanelPicture& picture, qint64 now_ms);

}  // namespace VirtualPanel
