// What waits in the system's buffers of an open line, a port or a socket: bytes that have arrived,
// and bytes that have not left.
#pragma once

#include <QtGlobal>

namespace Ports {

/// What may arrive while nobody reads, in bytes.
inline constexpr qint64 kReadBuffer = qint64{64} * 1024;

/// Whether the descriptor of an open line has bytes to be read; true also where the system cannot
/// tell, so that the line itself is asked.
bool HasWaitingInput(qintptr descriptor);

/// How many bytes the system holds that the descriptor of an open line has been given and that have
/// not left; 0 where it cannot tell, as on a pseudo-terminal.
qint64 BytesInSystem(qintptr descriptor);

}  // namespace Ports
