// A connection that is reset, not closed.
#pragma once

#include <QtGlobal>

/// Lets the system reset the connection of `socket` when it is closed.
void ResetOnClose(qintptr socket);
