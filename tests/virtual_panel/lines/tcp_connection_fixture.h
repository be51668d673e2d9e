// A caller who is connected with the panels.
#pragma once

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include "lines/tcp_connection.h"
#include "support/wait_until.h"

namespace VirtualPanel {

class TcpConnectionTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(server_.listen(QHostAddress(QHostAddress::LocalHost)));
    caller_.connectToHost(server_.serverAddress(), server_.serverPort());
    ASSERT_TRUE(WaitUntil([&] { return server_.hasPendingConnections(); }));
    socket_ = server_.nextPendingConnection();
    connection_ = new TcpConnection(&engine_, socket_, &server_);
  }

  PanelEngine engine_{{{26, 4, 96, true}}};
  QTcpServer server_;
  QTcpSocket caller_;
  QPointer<QTcpSocket> socket_;
  QPointer<TcpConnection> connection_;
};

}  // namespace VirtualPanel
