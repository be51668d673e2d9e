#include "lines/sockets.h"

#include <winsock2.h>

#include <mstcpip.h>

namespace VirtualPanel {

Call TakeCall(qintptr listener, qintptr* caller) {
  const SOCKET socket = ::accept(static_cast<SOCKET>(listener), nullptr, nullptr);
  if (socket != INVALID_SOCKET) {
    // Its events would go where the listener's go. Without any of its own it still does not block.
    ::WSAEventSelect(socket, nullptr, 0);
    u_long does_not_block = 1;
    ::ioctlsocket(socket, static_cast<long>(FIONBIO), &does_not_block);
    ::SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
    *caller = static_cast<qintptr>(socket);
    return Call::kTaken;
  }
  const int error = ::WSAGetLastError();
  if (error == WSAECONNRESET || error == WSAEINTR) return Call::kGivenUp;
  return error == WSAEWOULDBLOCK ? Call::kNoCaller : Call::kNoRoom;
}

void CloseSocket(qintptr socket) { ::closesocket(static_cast<SOCKET>(socket)); }

void AskSilentCaller(qintptr socket, const Asking& asking) {
  constexpr int kAskings = 10;  // fixed here; the intervals make up for it
  tcp_keepalive values = {};
  values.onoff = 1;
  values.keepalivetime = static_cast<ULONG>(asking.seconds_until_first) * 1000;
  values.keepaliveinterval =
      static_cast<ULONG>(asking.seconds_between * asking.most) * 1000 / kAskings;
  DWORD size = 0;
  ::WSAIoctl(static_cast<SOCKET>(socket), SIO_KEEPALIVE_VALS, &values, sizeof(values), nullptr, 0,
             &size, nullptr, nullptr);
}

}  // namespace VirtualPanel
