#include "lines/sockets.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace VirtualPanel {

Call TakeCall(qintptr listener, qintptr* caller) {
  const int descriptor =
      ::accept4(static_cast<int>(listener), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (descriptor >= 0) {
    *caller = descriptor;
    return Call::kTaken;
  }
  if (errno == ECONNABORTED || errno == EINTR) return Call::kGivenUp;
  return errno == EAGAIN ? Call::kNoCaller : Call::kNoRoom;
}

void CloseSocket(qintptr socket) { ::close(static_cast<int>(socket)); }

void AskSilentCaller(qintptr socket, const Asking& asking) {
  const auto set = [socket](int option, int value) {
    ::setsockopt(static_cast<int>(socket), IPPROTO_TCP, option, &value, sizeof value);
  };
  set(TCP_KEEPIDLE, asking.seconds_until_first);
  set(TCP_KEEPINTVL, asking.seconds_between);
  set(TCP_KEEPCNT, asking.most);
}

}  // namespace VirtualPanel
