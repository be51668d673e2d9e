#include "ports/waiting_bytes.h"

#include <poll.h>
#include <sys/ioctl.h>

namespace Ports {

bool HasWaitingInput(qintptr descriptor) {
  pollfd line{static_cast<int>(descriptor), POLLIN, 0};
  return poll(&line, 1, 0) != 0;
}

qint64 BytesInSystem(qintptr descriptor) {
  const int file = static_cast<int>(descriptor);
  int bytes = 0;
  if (::ioctl(file, TIOCOUTQ, &bytes) != 0) return 0;
#ifdef TIOCSERGETLSR
  // What the port or adapter itself still holds is no longer counted; it says only that there is
  // some.
  int state = 0;
  if (bytes == 0 && ::ioctl(file, TIOCSERGETLSR, &state) == 0 && (state & TIOCSER_TEMT) == 0) {
    return 1;
  }
#endif
  return bytes;
}

}  // namespace Ports
