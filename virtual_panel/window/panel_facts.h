// What the window says of a panel in words: what it is, holds and plays.
#pragma once

#include <optional>

#include <QDateTime>
#include <QString>

#include "engine/panel.h"

namespace VirtualPanel {

// Stands between two facts of a line.
QString Separator();

// What a panel is and holds, in one line.
QString Facts(const Panel& panel, const QDateTime& now);

QString PlayingText(const std::optional<Playing>& playing);

// As long as Facts and PlayingText can become, for the room that they need.
QString LongestFacts(const PanelDescription& description);
QString LongestPlayingText();

// "B · Mon 08:30 · 2 entries".
QString ScheduleCaption(char letter, const Schedule& schedule);

// What the schedule would show: page by page.
QString ScheduleToolTip(const Schedule& schedule);

// What is on a page, row by row, of each as much as the widest panel can show.
QString PageText(const StoredPage& page, const QDateTime& clock);

}  // namespace VirtualPanel
