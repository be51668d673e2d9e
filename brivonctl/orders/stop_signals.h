// SIGINT and SIGTERM, or on Windows Ctrl+C and Ctrl+Break: the first one asks for a stop, the
// second ends the program at once.
#pragma once

#include "orders/wake_up.h"

namespace BrivonCtl {

/// From now on the first signal wakes who sleeps at `waking_end`, which stays there until
/// ReleaseStopSignals().
void CatchStopSignals(const WakeUp& waking_end);

/// Returns to what the system does.
void ReleaseStopSignals();

/// Whether a signal has come.
bool IsStopRequested();

}  // namespace BrivonCtl
