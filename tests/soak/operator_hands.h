// What an operator does all day: opens the window for a work, fills it in, sends, and closes it;
// opens an editor, types something, and leaves it.
#pragma once

#include <QWidget>

#include "soak/box_clicker.h"
#include "soak/hostile_lines.h"
#include "soak/told.h"

/// Sends `work` from its own window and presses "Stop" `stop_after` milliseconds later, unless that
/// is negative. Returns what the window's message boxes have said.
Told SendFromItsWindow(const Work& work, const HostileLines& lines, int stop_after);

/// Opens one of the three editors, loads or types something, and leaves it without saving.
void VisitAnEditor(Random& random, const HostileLines& lines);

/// Shows more different characters than an editor keeps the pictures of: what it keeps does not
/// grow from then on.
void ShowEveryCharacter(const HostileLines& lines);
