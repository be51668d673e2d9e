#include "panel_line/waiting_input.h"

#ifdef Q_OS_UNIX
#include <poll.h>
#endif

namespace Brivon1 {

bool HasWaitingInput([[maybe_unused]] qintptr descriptor) {
#ifdef Q_OS_UNIX
  pollfd line{static_cast<int>(descriptor), POLLIN, 0};
  return poll(&line, 1, 0) != 0;
#else
  return true;
#endif
}

}  // namespace Brivon1
