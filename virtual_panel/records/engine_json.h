// The engine's records as JSON, for whoever watches a panel from outside.
#pragma once

#include <QByteArray>

#include "engine/panel_engine.h"

namespace VirtualPanel {

// One frame as one line: "time" (ISO 8601 with milliseconds), "line", "panel" (an ID, "all" or
// null), "frame" (each byte as the character of the same number), "meaning", "answered", "answer".
QByteArray LogLine(const FrameRecord& record);

// All panels: "id", "rows", "columns", "colour" ("mono" or "tri"), "running_page" and "shown_page"
// (a number or null), "clock_offset_seconds"; "pages": page number -> row number -> text as it was
// sent; "schedules": letter -> "weekday", "hour" and "minute" as they were sent and "entries", each
// with "page", "delay" in seconds and "feature"; "playing": null, or "letter", "entry" (from 1),
// "page" and "effect"; "scrolling": row number -> text as it was sent.
QByteArray StateDocument(const PanelEngine& engine);

}  // namespace VirtualPanel
