// SIGINT and SIGTERM: the first one asks for a stop, the second ends the program at once.
#pragma once

namespace BrivonCtl {

/// From now on the first signal writes a byte to `waking_end`, a descriptor that stays open until
/// ReleaseStopSignals().
void CatchStopSignals(int waking_end);

/// Returns to what the system does.
void ReleaseStopSignals();

/// Whether a signal has come.
bool IsStopRequested();

}  // namespace BrivonCtl
