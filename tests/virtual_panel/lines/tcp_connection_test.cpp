#include "lines/tcp_connection.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <QPointer>
#include <QTcpServer>

#include <gtest/gtest.h>

#include "support/wait_until.h"

namespace VirtualPanel {
namespace {

class TcpConnectionTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(server_.listen(QHostAddress(QHostAddress::LocalHost)));
    caller_.connectToHost(server_.serverAddress(), server_.serverPort());
    ASSERT_TRUE(WaitUntil([&] { return server_.hasPendingConnections(); }));
    socket_ = server_.nextPendingConnection();
    connection_ = new TcpConnection(&engine_, socket_, &server_);
  }

  /// What the system says of a number that can be set at the caller's socket; -1 for nothing.
  int Option(int level, int option) const {
    int value = -1;
    socklen_t size = sizeof value;
    const int descriptor = static_cast<int>(socket_->socketDescriptor());
    return ::getsockopt(descriptor, level, option, &value, &size) == 0 ? value : -1;
  }

  PanelEngine engine_{{{26, 4, 96, true}}};
  QTcpServer server_;
  QTcpSocket caller_;
  QPointer<QTcpSocket> socket_;
  QPointer<TcpConnection> connection_;
};

TEST_F(TcpConnectionTest, AsksWhetherASilentCallerIsStillThereAndGivesItUpAfterAMinuteAndAHalf) {
  EXPECT_EQ(Option(SOL_SOCKET, SO_KEEPALIVE), 1);
  EXPECT_EQ(Option(IPPROTO_TCP, TCP_KEEPIDLE), 60);
  EXPECT_EQ(Option(IPPROTO_TCP, TCP_KEEPINTVL), 10);
  EXPECT_EQ(Option(IPPROTO_TCP, TCP_KEEPCNT), 3);
}

TEST_F(TcpConnectionTest, GoesWhenItIsCut) {
  connection_->Cut();
  EXPECT_TRUE(WaitUntil([&] { return connection_.isNull(); }));
  EXPECT_TRUE(socket_.isNull());
}

TEST_F(TcpConnectionTest, GoesWhenItIsCutAfterItsCallerHasLeftUnheard) {
  caller_.write("<ID1A><?>\r\n");
  caller_.disconnectFromHost();
  ASSERT_TRUE(WaitUntil([&] { return socket_->state() == QAbstractSocket::UnconnectedState; }));
  ASSERT_TRUE(connection_->HasInput()) << "nobody has heard it";
  connection_->Cut();
  EXPECT_TRUE(WaitUntil([&] { return connection_.isNull(); }));
  EXPECT_TRUE(socket_.isNull());
}

}  // namespace
}  // namespace VirtualPanel
