// How a window waits for a file that another program is saving.
#pragma once

#include "base/file_lock.h"

/// As Brivon1::SleepBetweenTries(), but the windows live meanwhile, the pointer busy; what is typed
/// and clicked waits.
Brivon1::LockWait WaitWithBusyPointer();
