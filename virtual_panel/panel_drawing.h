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

// What a panel shows.
struct PanelPicture {
  PanelDescription description;
  StoredPage rows;
  QDateTime clock;  // the panel's own date and time
};

// The size of a panel with its frame, counted in dots.
QSizeF SizeInDots(const PanelDescription& description);

// Where row `row` (from 1) lies when the panel is drawn in `size`.
QRectF RowRect(const QSizeF& size, const PanelDescription& description, int row);

bool HasBlinkingCells(const PanelPicture& picture);

// What a row says as plain text, with the panel's date and time filled in and graphics as "[A]".
QString RowText(const StoredRow& row, const QDateTime& clock);

// Draws the panel into (0, 0, size), as large as its shape allows, centred. `now_ms` (since any
// fixed moment) sets the phase of blinking. What does not fit the panel's dot columns is cut.
void DrawPanel(QPainter* painter, const QSizeF& size, const PanelPicture& picture, qint64 now_ms);

}  // namespace VirtualPanel
