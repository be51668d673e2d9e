#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include "tcp_connection_fixture.h"

namespace VirtualPanel {
namespace {

/// What the system says of a number that can be set at the caller's socket; -1 for nothing.
int OptionOf(const QTcpSocket& caller, int level, int option) {
  int value = -1;
  socklen_t size = sizeof value;
  const int descriptor = static_cast<int>(caller.socketDescriptor());
  return ::getsockopt(descriptor, level, option, &value, &size) == 0 ? value : -1;
}

TEST_F(TcpConnectionTest, AsksWhetherASilentCallerIsStillThereAndGivesItUpAfterAMinuteAndAHalf) {
  EXPECT_EQ(OptionOf(*socket_, SOL_SOCKET, SO_KEEPALIVE), 1);
  EXPECT_EQ(OptionOf(*socket_, IPPROTO_TCP, TCP_KEEPIDLE), 60);
  EXPECT_EQ(OptionOf(*socket_, IPPROTO_TCP, TCP_KEEPINTVL), 10);
  EXPECT_EQ(OptionOf(*socket_, IPPROTO_TCP, TCP_KEEPCNT), 3);
}

}  // namespace
}  // namespace VirtualPanel
