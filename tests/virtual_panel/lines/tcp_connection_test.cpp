#include "tcp_connection_fixture.h"

namespace VirtualPanel {
namespace {

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
