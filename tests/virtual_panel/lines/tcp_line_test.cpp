#include "lines/tcp_line.h"

#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <memory>
#include <vector>

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include "support/wait_until.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

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
  ASSERT_TRUE(WaitUntil([&] { return engine_.FrameCount() == 200'000; }));
  QTcpSocket next;
  Connect(&next);
  EXPECT_EQ(Exchange(&next, "<ID1A><?>\r\n"), "<ID1A>\r\n");
}

}  // namespace
}  // namespace VirtualPanel
