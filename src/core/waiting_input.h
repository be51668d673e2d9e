// Whether bytes wait in the system's buffer of a line, asked of the system directly.
#pragma once

#include <QtGlobal>

namespace Brivon1 {

/// Whether the descriptor of an open line has bytes to be read; true also where the system cannot
/// tell, so that the line itself is asked.
bool HasWaitingInput(qintptr descriptor);

}  // namespace Brivon1
