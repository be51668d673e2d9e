#include "core/waiting_input.h"

#ifdef Q_OS_UNIX
#include <sys/ioctl.h>
#endif

namespace Brivon1 {

bool HasWaitingInput([[maybe_unused]] qintptr descriptor) {
#ifdef Q_OS_UNIX
  int size = 0;
  return ioctl(static_cast<int>(descriptor), FIONREAD, &size) != 0 || size > 0;
#else
  return true;
#endif
}

}  // namespace Brivon1
