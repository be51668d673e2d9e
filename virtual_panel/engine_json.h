// The engine's records as JSON, for whoever watches a panel from outside.
#pragma once

#include <QByteArray>

#include "panel_engine.h"

namespace VirtualPanel {

// One frame as one line: "time" (ISO 8601 with milliseconds), "line", "panel" (an ID, "all" or
// null), "frame" (each byte as the character of the same number), "meaning", "answered", "answer".
QByteArray LogLine(const FrameRecord& record);

// All panels: "id", "rows", "columns", "colour" ("mono" or "tri"), "running_page" and "shown_page"
// (a number or null), "clock_offset_seconds", and "pages": page number -> row number -> text as it
// was sent.
QByteArray StateDocument(const PanelEngine& engine);

}  // namespace VirtualPanel
