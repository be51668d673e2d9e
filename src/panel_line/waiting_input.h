// What both kinds of line share in reading: how much is taken in, how long an answer is waited for
// directly, and whether bytes wait in the system's buffer.
#pragma once

#include <QtGlobal>

namespace Brivon1 {

/// What a panel may send while nobody reads, in bytes.
inline constexpr qint64 kReadBuffer = qint64{64} * 1024;

/// A panel beside the PC answers within a millisecond: the first read behind a frame waits for
/// that, which is cheaper than a round through the event loop.
inline constexpr int kPromptAnswer = 1;

/// Whether the descriptor of an open line has bytes to be read; true also where the system cannot
/// tell, so that the line itself is asked.
bool HasWaitingInput(qintptr descriptor);

}  // namespace Brivon1
