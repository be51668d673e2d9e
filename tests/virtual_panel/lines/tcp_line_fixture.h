// Panels that are reached over TCP.
#pragma once

#include <QTcpSocket>

#include <gtest/gtest.h>

#include "lines/tcp_line.h"
#include "support/wait_until.h"

namespace VirtualPanel {

class TcpLineTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(line_.Listen()) << line_.ErrorString().toStdString(); }

  void Connect(QTcpSocket* socket) {
    socket->connectToHost(QHostAddress(QHostAddress::LocalHost), line_.Port());
    ASSERT_TRUE(WaitUntil([&] { return socket->state() == QAbstractSocket::ConnectedState; }));
  }

  // Sends a frame and waits until `size` bytes have come back.
  static QByteArray Exchange(QTcpSocket* socket, const QByteArray& frame, int size = 8) {
    socket->write(frame);
    EXPECT_TRUE(WaitUntil([&] { return socket->bytesAvailable() >= size; }));
    return socket->readAll();
  }

  void SetFault(const char* text) {
    Faults faults;
    ASSERT_TRUE(ParseFault(QString::fromLatin1(text), &faults, nullptr));
    engine_.SetFaults(faults);
  }

  PanelEngine engine_{{{26, 4, 96, true}}};
  TcpLine line_{&engine_};
};

}  // namespace VirtualPanel
