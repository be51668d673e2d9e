#include "support/full_listener.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

FullListener::FullListener(quint16 port)
    : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)),
      guest_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const int listener = static_cast<int>(listener_);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const auto* target = reinterpret_cast<const sockaddr*>(&address);
  const int reuse = 1;
  if (setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse) != 0 ||
      bind(listener, target, sizeof address) != 0 || listen(listener, 0) != 0 ||
      connect(static_cast<int>(guest_), target, sizeof address) != 0) {
    qFatal("cannot fill a queue of connections");
  }
}

FullListener::~FullListener() {
  close(static_cast<int>(guest_));
  close(static_cast<int>(listener_));
}
