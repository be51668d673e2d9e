#include "support/abrupt_end.h"

#include <winsock2.h>

void ResetOnClose(qintptr socket) {
  const linger at_once{1, 0};
  ::setsockopt(static_cast<SOCKET>(socket), SOL_SOCKET, SO_LINGER,
               reinterpret_cast<const char*>(&at_once), sizeof at_once);
}
