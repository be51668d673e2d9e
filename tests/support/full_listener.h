// A machine that takes no connection now: its port listens, but its queue is full, so that a
// request stays without an answer as it does at a panel that is slow to accept.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QtGlobal>

class FullListener {
 public:
  /// `port` on loopback is free.
  explicit FullListener(quint16 port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto* target = reinterpret_cast<const sockaddr*>(&address);
    const int reuse = 1;
    if (setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse) != 0 ||
        bind(listener_, target, sizeof address) != 0 || listen(listener_, 0) != 0 ||
        connect(guest_, target, sizeof address) != 0) {
      qFatal("cannot fill a queue of connections");
    }
  }

  ~FullListener() {
    close(guest_);
    close(listener_);
  }

  FullListener(const FullListener&) = delete;
  FullListener& operator=(const FullListener&) = delete;

 private:
  int listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  int guest_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);  // the one that fills it
};
