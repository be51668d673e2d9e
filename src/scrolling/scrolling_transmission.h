// Sending a scrolling message to one line of one panel over an open link, as a single frame.
#pragma once

#include <QByteArray>

#include "panel_line/transmission.h"

namespace Brivon1 {

/// What a panel of `colour_type` is sent of a message's text: for kMono without its colour codes
/// and without the blanks at its ends.
QByteArray ScrollingPanelText(const QByteArray& text, qint16 colour_type);

/// Sends the scrolling message file at `path` to line `line_number` of panel `id`. True when the
/// panel has acknowledged it; false for a refused file, with nothing sent, and after five attempts
/// without an acknowledgement. Shows no message.
bool SendScrollingFile(OpenLine& line, const QString& path, int id, int line_number);

}  // namespace Brivon1
