#include "support/full_listener.h"

#include <winsock2.h>

// The toolkit has started the system's sockets before the first test.
FullListener::FullListener(quint16 port)
    : listener_(static_cast<qintptr>(socket(AF_INET, SOCK_STREAM, 0))),
      guest_(static_cast<qintptr>(socket(AF_INET, SOCK_STREAM, 0))) {
  const auto listener = static_cast<SOCKET>(listener_);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const auto* target = reinterpret_cast<const sockaddr*>(&address);
  if (bind(listener, target, sizeof address) != 0 || listen(listener, 0) != 0 ||
      connect(static_cast<SOCKET>(guest_), target, sizeof address) != 0) {
    qFatal("cannot fill a queue of connections");
  }
}

FullListener::~FullListener() {
  closesocket(static_cast<SOCKET>(guest_));
  closesocket(static_cast<SOCKET>(listener_));
}
