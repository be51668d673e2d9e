#include <memory>
#include <vector>

#include <QSignalSpy>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include "tcp_line_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(TcpLineTest, ListensOnLoopbackAtAnyFreePort) {
  EXPECT_NE(line_.Port(), 0);
  EXPECT_EQ(line_.Address(), QHostAddress(QHostAddress::LocalHost));
}

TEST_F(TcpLineTest, AnswersOverASocket) {
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID1A><L01><P001>x \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.Page(26, 1).value(1), "x ");
  EXPECT_EQ(engine_.Frames().last().line, u"tcp"_s);
}

TEST_F(TcpLineTest, ServesConnectionsAtOnceAndOneAfterAnother) {
  QTcpSocket first;
  QTcpSocket second;
  Connect(&first);
  Connect(&second);
  ASSERT_TRUE(WaitUntil([&] { return line_.ConnectionCount() == 2; }));
  first.write("<ID1A>");
  EXPECT_EQ(Exchange(&second, "<ID1A><L01><P001>two \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(Exchange(&first, "<RP001>\r\n"), "<ID1A>\r\n");
  first.disconnectFromHost();
  second.disconnectFromHost();
  ASSERT_TRUE(WaitUntil([&] { return line_.ConnectionCount() == 0; }));
  QTcpSocket third;
  Connect(&third);
  EXPECT_EQ(Exchange(&third, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "two ");
}

TEST_F(TcpLineTest, ReportsAPortThatIsTaken) {
  PanelEngine other_engine({{1, 4, 96, true}});
  TcpLine other(&other_engine);
  EXPECT_FALSE(other.Listen(QHostAddress(QHostAddress::LocalHost), line_.Port()));
  EXPECT_FALSE(other.ErrorString().isEmpty());
}

TEST_F(TcpLineTest, SendsAnAnswerInPieces) {
  SetFault("pieces:4");
  QTcpSocket socket;
  Connect(&socket);
  socket.write("<ID1A><?>\r\n");
  QList<QByteArray> pieces;
  QByteArray all;
  ASSERT_TRUE(WaitUntil([&] {
    if (socket.bytesAvailable() > 0) {
      pieces.append(socket.readAll());
      all += pieces.last();
    }
    return all.size() >= 8;
  }));
  EXPECT_EQ(all, "<ID1A>\r\n");
  EXPECT_GT(pieces.size(), 1);
}

TEST_F(TcpLineTest, SendsALateAnswerAfterItsTime) {
  SetFault("late:300");
  QTcpSocket socket;
  Connect(&socket);
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(Exchange(&socket, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  EXPECT_GE(timer.elapsed(), 295);
}

TEST_F(TcpLineTest, ClosesTheConnectionOnceTheLastAnswerIsOut) {
  SetFault("close-after:2");
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  socket.write("<ID1A><?>\r\n<ID1A><D*>\r\n");
  ASSERT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_EQ(socket.readAll(), "<ID1A>\r\n");
  // It takes the next connection and works on it.
  QTcpSocket next;
  Connect(&next);
  EXPECT_EQ(Exchange(&next, "<ID1A><?>\r\n"), "<ID1A>\r\n");
}

TEST_F(TcpLineTest, FloodsWithoutFillingItsMemoryAndStopsWhenTheFaultIsTakenAway) {
  SetFault("flood");
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_GE(Exchange(&socket, "<ID1A><?>\r\n", 1'000'000).size(), 1'000'000);
  engine_.SetFaults(Faults{});
  // Reads the rest: it has an end.
  QByteArray last;
  ASSERT_TRUE(WaitUntil([&] {
    socket.write("<ID1A><?>\r\n");
    last += socket.readAll();
    last = last.right(8);
    return last == "<ID1A>\r\n";
  }));
}

TEST_F(TcpLineTest, DropsAndRefusesConnections) {
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  line_.DropConnections();
  ASSERT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  Connect(&socket);
  const quint16 port = line_.Port();
  line_.Close();
  EXPECT_EQ(line_.Port(), 0);
  ASSERT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
  ASSERT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_EQ(socket.error(), QAbstractSocket::ConnectionRefusedError);
}

TEST_F(TcpLineTest, CutsMoreConnectionsThanItCanServe) {
  std::vector<std::unique_ptr<QTcpSocket>> sockets;
  for (int i = 0; i < 250; ++i) {
    sockets.push_back(std::make_unique<QTcpSocket>());
    Connect(sockets.back().get());
  }
  ASSERT_TRUE(WaitUntil([&] { return line_.ConnectionCount() == 250; }));
  QTcpSocket one_more;
  const QSignalSpy cuts(&one_more, &QTcpSocket::disconnected);
  one_more.connectToHost(QHostAddress(QHostAddress::LocalHost), line_.Port());
  EXPECT_TRUE(WaitUntil([&] { return cuts.count() == 1; }));
  EXPECT_EQ(line_.ConnectionCount(), 250);
  EXPECT_EQ(Exchange(sockets.back().get(), "<ID1A><?>\r\n"), "<ID1A>\r\n");
  // Whoever goes makes room.
  sockets.front()->abort();
  ASSERT_TRUE(WaitUntil([&] { return line_.ConnectionCount() == 249; }));
  Connect(&one_more);
  EXPECT_EQ(Exchange(&one_more, "<ID1A><?>\r\n"), "<ID1A>\r\n");
}

TEST_F(TcpLineTest, HoldsAFrameWithoutAnEndNoLongerThanAFrameMayBe) {
  QTcpSocket socket;
  Connect(&socket);
  socket.write(QByteArray(40'000, 'x'));
  ASSERT_TRUE(WaitUntil([&] { return line_.Held() >= 40'000; }));
  socket.write(QByteArray(1'000'000, 'x'));
  ASSERT_TRUE(WaitUntil([&] { return socket.bytesToWrite() == 0 && line_.Held() < 1000; }));
  socket.abort();
  ASSERT_TRUE(WaitUntil([&] { return line_.ConnectionCount() == 0; }));
  EXPECT_EQ(line_.Held(), 0);
}

TEST_F(TcpLineTest, SurvivesASenderThatNeverReads) {
  QTcpSocket socket;
  Connect(&socket);
  socket.setReadBufferSize(1);
  QByteArray polls;
  for (int i = 0; i < 10'000; ++i) polls += "<ID1A><?>\r\n";
  for (int i = 0; i < 20; ++i) socket.write(polls);
  // However slow the machine is, one frame comes after the other.
  while (engine_.FrameCount() < 200'000) {
    const auto heard = engine_.FrameCount();
    ASSERT_TRUE(WaitUntil([&] { return engine_.FrameCount() > heard; })) << heard;
  }
  QTcpSocket next;
  Connect(&next);
  EXPECT_EQ(Exchange(&next, "<ID1A><?>\r\n"), "<ID1A>\r\n");
}

}  // namespace
}  // namespace VirtualPanel
