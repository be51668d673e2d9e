// What the program asks of its system at its start.
#pragma once

#include <QCoreApplication>
#include <QString>

namespace VirtualPanel {

// Gives a program with windows the console that it was started from, where it has no other streams.
void OpenStreams();

// Whether a window can be shown.
bool HasDisplay();

// Ends the event loop in an orderly way on SIGINT and SIGTERM; on Windows on Ctrl+C and what else
// ends programs there.
void QuitOnSignals(QCoreApplication* application);

// What the option "--pty" does on this system.
QString PtyHelp();

}  // namespace VirtualPanel
