// The symbols on the launcher's buttons, drawn in the colours of the palette so that they are sharp
// at any resolution and readable in any theme.
#pragma once

#include <QColor>
#include <QList>
#include <QRectF>

class QPainter;

enum class LauncherSymbol { kNone, kMessage, kScrolling, kSchedule, kConfig, kCommand, kExit };

/// `wanted`, made darker or lighter where it has not a contrast of 3:1 against all of `grounds`,
/// the shades that it is drawn on.
QColor ReadableOn(const QList<QColor>& grounds, const QColor& wanted);

/// Draws a symbol into the square `area`: its outline in `line`, what it holds in `accent`.
void DrawLauncherSymbol(QPainter* painter, LauncherSymbol symbol, const QRectF& area,
                        const QColor& line, const QColor& accent);
