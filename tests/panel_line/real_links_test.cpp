// The socket by itself, with a raw other end, and the tick timer of a window.
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTest>

#include <gtest/gtest.h>

#include "hurried_clock.h"
#include "panel_line/links.h"
#include "panel_line/tcp_link.h"
#include "panel_line/tick_timer.h"
#include "panel_line/waits.h"
#include "support/longest_freeze.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class TcpLinkTest : public testing::Test {
 protected:
  TcpLinkTest() {
    if (!server_.listen(QHostAddress(QHostAddress::LocalHost))) qFatal("cannot listen");
    link_.Connect(u"127.0.0.1"_s, server_.serverPort());
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return link_.IsConnected() && server_.hasPendingConnections(); }));
    panel_ = server_.nextPendingConnection();
  }

  QTcpServer server_;
  QTcpSocket* panel_ = nullptr;
  EventWaiter waiter_;
  EventClock clock_{waiter_};
  TcpLink link_{nullptr};
};

TEST_F(TcpLinkTest, ReadingTakesInWhatWaitsInTheSystemsBuffer) {
  panel_->write("<ID1A>\r\n");
  ASSERT_TRUE(panel_->flush());
  // No event has been handled since.
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  EXPECT_EQ(link_.ReadAvailable(), "");
}

TEST_F(TcpLinkTest, WhatArrivedBeforeTheLineWasLostCanStillBeRead) {
  panel_->write("<ID1A>\r\n");
  panel_->disconnectFromHost();
  EXPECT_TRUE(QTest::qWaitFor([this] { return link_.IsLost(); }));
  link_.Write("nobody is there");
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  link_.Close();
}

TEST_F(TcpLinkTest, WhatWasWrittenHasLeftBeforeTheSocketIsClosed) {
  // More than the system takes at once.
  const QByteArray frame(20'000'000, 'x');
  link_.Write(frame);
  EXPECT_GT(link_.Unsent(), 0);
  qsizetype received = 0;
  QObject::connect(panel_, &QTcpSocket::readyRead, panel_,
                   [&] { received += panel_->readAll().size(); });
  EXPECT_TRUE(CloseTcpLink(link_, clock_));
  EXPECT_FALSE(link_.IsConnected());
  EXPECT_TRUE(QTest::qWaitFor([&] { return received == frame.size(); }));
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return panel_->state() == QAbstractSocket::UnconnectedState; }));
}

TEST_F(TcpLinkTest, APanelThatTakesNothingIsGivenUpWhileTheWindowLives) {
  panel_->setReadBufferSize(1);
  link_.Write(QByteArray(20'000'000, 'x'));
  HurriedClock clock;
  LongestFreeze freeze;
  EXPECT_FALSE(DrainLink(link_, clock));
  EXPECT_LT(freeze.Milliseconds(), 1000);
  EXPECT_FALSE(link_.IsConnected());
  EXPECT_EQ(link_.Unsent(), 0);
}

TEST_F(TcpLinkTest, WhatThePanelHasNotTakenFromTheSystemHasNotLeft) {
  panel_->setReadBufferSize(1);
  link_.Write(QByteArray(20'000'000, 'x'));
  auto* socket = link_.findChild<QTcpSocket*>(u"Winsock1"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return link_.Unsent() > socket->bytesToWrite(); }));
}

TEST_F(TcpLinkTest, ASocketThatIsInUseIsClosedByTheNextRequest) {
  link_.Connect(u"127.0.0.1"_s, server_.serverPort());
  EXPECT_TRUE(QTest::qWaitFor([this] {
    return link_.IsConnected() && panel_->state() == QAbstractSocket::UnconnectedState;
  }));
}

TEST_F(TcpLinkTest, BytesTheEndOfTheLineAndTheTimeEndAWaitAtTheSocket) {
  EXPECT_FALSE(TcpLink(nullptr).WaitForInput(60'000));
  EXPECT_TRUE(link_.WaitForInput(1));
  EXPECT_EQ(link_.ReadAvailable(), "");
  panel_->write("<ID1A>\r\n");
  ASSERT_TRUE(panel_->flush());
  EXPECT_TRUE(link_.WaitForInput(60'000));
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  panel_->abort();
  EXPECT_TRUE(link_.WaitForInput(60'000));
  EXPECT_TRUE(link_.IsLost());
}

TEST(WindowTickTimer, TicksComeAlsoWhereInputNeverEnds) {
  EventWaiter waiter;
  WindowTickTimer timer(nullptr, waiter);
  timer.Enable();
  QElapsedTimer clock;
  clock.start();
  // As reading does that finds something each time.
  while (timer.ack_tick_counter < 300 && clock.elapsed() < 10'000) {
    waiter.Wake();
    EXPECT_TRUE(timer.WaitForEvent());
  }
  EXPECT_EQ(timer.ack_tick_counter, 300);
}

}  // namespace
}  // namespace Brivon1
