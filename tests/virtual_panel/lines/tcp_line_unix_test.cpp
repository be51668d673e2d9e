#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

#include "tcp_line_fixture.h"

namespace VirtualPanel {
namespace {

TEST_F(TcpLineTest, AcceptsAgainWhenTheSystemHasDescriptorsAgain) {
  QTcpSocket known;
  Connect(&known);
  EXPECT_EQ(Exchange(&known, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  const int caller = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_GE(caller, 0);
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  const int next = ::dup(caller);
  ASSERT_EQ(::close(next), 0);
  const rlimit none_left{static_cast<rlim_t>(next), limit.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none_left), 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(line_.Port());
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  EXPECT_EQ(::connect(caller, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  // Its turn comes and goes, and the one that is there is served all the same.
  for (int poll = 0; poll < 20; ++poll) {
    EXPECT_EQ(Exchange(&known, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  }
  EXPECT_EQ(line_.ConnectionCount(), 1);
  // It waits, asleep.
  int awakenings = 0;
  QEventLoop loop;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
                   [&] { ++awakenings; });
  QTimer::singleShot(300, &loop, &QEventLoop::quit);
  loop.exec();
  EXPECT_LT(awakenings, 50);
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  EXPECT_TRUE(WaitUntil([&] { return line_.ConnectionCount() == 2; }));
  ::close(caller);
}

}  // namespace
}  // namespace VirtualPanel
