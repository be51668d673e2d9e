#include "support/abrupt_end.h"

#include <sys/socket.h>

void ResetOnClose(qintptr socket) {
  const linger at_once{1, 0};
  ::setsockopt(static_cast<int>(socket), SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
}
