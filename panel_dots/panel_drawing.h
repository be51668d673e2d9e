// Draws a panel's dots with the panel around them: what it shows, at a time, in a size. A function
// of these three alone, apart from whatever holds the pages and from the widget that shows them.
#pragma once

#include <QPainter>
#include <QRectF>
#include <QSizeF>

#include "panel_dots/panel_picture.h"

namespace PanelDots {

// The size of a panel with its frame, counted in dots.
QSizeF SizeInDots(const PanelShape& shape);

// The distance between two dots of a panel that is drawn in `size`, for a screen of so many pixels
// to each unit of size: a whole number of its pixels where the dots have room for one each.
double DotDistance(const QSizeF& size, const PanelShape& shape, double pixels = 1);

// Where row `row` (from 1) lies when the panel is drawn in `size`.
QRectF RowRect(const QSizeF& size, const PanelShape& shape, int row, double pixels = 1);

// Draws the panel into (0, 0, size), as large as whole pixels for each dot allow, centred. `now_ms`
// sets the phase of blinking and how far scrolling texts and an entering page have come. What does
// not fit the panel's dot columns is cut, with an amber mark in the frame beside it; what a clip of
// the painter hides takes no time.
void DrawPanel(QPainter* painter, const QSizeF& size, const PanelPicture& picture, qint64 now_ms);

}  // namespace PanelDots
