// The serial port and the socket by themselves, each with a raw other end.
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QSerialPort>
#include <QTcpServer>
#include <QTest>

#include <gtest/gtest.h>

#include "panel_line/links.h"
#include "panel_line/serial_link.h"
#include "panel_line/tcp_link.h"
#include "panel_line/tick_timer.h"
#include "panel_line/waits.h"
#include "support/longest_freeze.h"
#include "support/program_folder.h"
#include "support/raw_terminal.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// A clock that handles events as the real one does, and is ten thousand times as fast.
class HurriedClock : public MillisecondClock {
 public:
  qint64 Milliseconds() const override { return now_; }
  bool WaitForEvent(qint64 at_most) override {
    QTest::qWait(1);
    now_ += 10000 * at_most;
    return true;
  }

 private:
  qint64 now_ = 0;
};

class SerialLinkTest : public testing::Test {
 protected:
  SerialLinkTest() {
    QObject::connect(&link_, &SerialLink::Happened, [this] { waiter_.Wake(); });
  }

  RawTerminal terminal_;
  EventWaiter waiter_;
  EventClock clock_{waiter_};
  SerialLink link_{nullptr};
};

TEST_F(SerialLinkTest, ReadingTakesInWhatWaitsInTheSystemsBuffer) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  terminal_.Send("<ID1A>\r\n");
  // No event has been handled since.
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  EXPECT_EQ(link_.ReadAvailable(), "");
}

TEST_F(SerialLinkTest, EveryByteValuePassesBothWays) {
  QByteArray all;
  for (int value = 0; value < 256; ++value) all += static_cast<char>(value);
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  terminal_.Send(all);
  EXPECT_EQ(link_.ReadAvailable(), all);
  link_.Write(all);
  link_.Close();
  EXPECT_EQ(terminal_.Received(), all);
}

TEST_F(SerialLinkTest, WhatWasWrittenIsOnItsWayBeforeThePortIsClosed) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write("<ID1A><?>\r\n");
  link_.Close();
  EXPECT_EQ(terminal_.Received(), "<ID1A><?>\r\n");
}

TEST_F(SerialLinkTest, FramesOfAnyLengthPassALineThatReadsThemSlowly) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "2000000,N,8,1"));
  terminal_.ReadAt(200000);
  QByteArray sent;
  for (const int length : {11, 1800, 9000, 100000, 18}) {
    const QByteArray frame(length, static_cast<char>('a' + length % 26));
    link_.Write(frame);
    sent += frame;
  }
  EXPECT_FALSE(link_.IsLost());
  EXPECT_GT(link_.Unsent(), 50000) << "more than a pseudo-terminal takes at once";
  LongestFreeze freeze;
  EXPECT_TRUE(CloseSerialPort(link_, clock_));
  EXPECT_LT(freeze.Milliseconds(), 1000);
  EXPECT_EQ(link_.Unsent(), 0);
  EXPECT_EQ(terminal_.Received(), sent);
}

TEST_F(SerialLinkTest, AnAnswerIsReadWhileAFrameWaits) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write(QByteArray(100000, 'x'));
  terminal_.Send("<ID1A>\r\n");
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  EXPECT_FALSE(link_.IsLost());
}

TEST_F(SerialLinkTest, ALineThatTakesNothingIsGivenUpWhileTheWindowLives) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write(QByteArray(100000, 'x'));
  HurriedClock clock;
  LongestFreeze freeze;
  EXPECT_FALSE(DrainLink(link_, clock));
  EXPECT_GE(clock.Milliseconds(), 2000);
  EXPECT_LT(freeze.Milliseconds(), 1000);
  EXPECT_EQ(link_.Unsent(), 0);
  EXPECT_FALSE(link_.IsLost());
  // The next transmission begins with a line of which nothing is left over.
  terminal_.Received();
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  const qsizetype before = terminal_.Received().size();
  link_.Write("<ID1A><?>\r\n");
  EXPECT_TRUE(CloseSerialPort(link_, clock_));
  EXPECT_EQ(terminal_.Received().mid(before), "<ID1A><?>\r\n");
}

TEST_F(SerialLinkTest, AFrameThatAStopCutsIsEndedSoThatTheNextOneIsReadByItself) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write(QByteArray(100000, 'x'));
  const qsizetype before = terminal_.Received().size();
  ASSERT_GT(before, 0);
  EXPECT_FALSE(DrainLink(link_, clock_, {.made = true}));
  EXPECT_EQ(terminal_.Received().mid(before), "\r\n");
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write("<ID1A><?>\r\n");
  EXPECT_TRUE(CloseSerialPort(link_, clock_));
  EXPECT_EQ(terminal_.Received().mid(before), "\r\n<ID1A><?>\r\n");
}

TEST_F(SerialLinkTest, AFrameThatHasLeftIsNotEndedOnceMore) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write("<ID1A><?>\r\n");
  EXPECT_TRUE(CloseSerialPort(link_, clock_, {.made = true}));
  EXPECT_EQ(terminal_.Received(), "<ID1A><?>\r\n");
}

TEST_F(SerialLinkTest, APortThatIsLostWhileAFrameWaitsIsFoundOut) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "300,N,8,1"));
  link_.Write(QByteArray(100000, 'x'));
  EXPECT_GT(link_.Unsent(), 0);
  terminal_.Unplug();
  EXPECT_FALSE(DrainLink(link_, clock_));
  EXPECT_TRUE(link_.IsLost());
  EXPECT_EQ(link_.Unsent(), 0);
}

TEST_F(SerialLinkTest, ThePortStandsAtItsSpeedAndFormatWhenItIsOpened) {
  auto* port = link_.findChild<QSerialPort*>();
  QList<bool> was_open;
  QObject::connect(port, &QSerialPort::baudRateChanged, [&] { was_open.append(port->isOpen()); });
  ASSERT_TRUE(link_.Open(terminal_.Device(), "19200,N,8,1"));
  EXPECT_EQ(was_open, QList<bool>{false});
  EXPECT_EQ(port->baudRate(), 19200);
  EXPECT_EQ(port->dataBits(), QSerialPort::Data8);
  EXPECT_EQ(port->parity(), QSerialPort::NoParity);
  EXPECT_EQ(port->stopBits(), QSerialPort::OneStop);
  EXPECT_EQ(port->flowControl(), QSerialPort::NoFlowControl);
  EXPECT_EQ(link_.Speed(), 19200);
  EXPECT_EQ(terminal_.Speed(), static_cast<speed_t>(B19200));
}

TEST_F(SerialLinkTest, ASpeedOf0CannotBeOpened) {
  for (const char* settings : {"0,N,8,1", "fast,N,8,1", ""}) {
    EXPECT_FALSE(link_.Open(terminal_.Device(), settings));
    EXPECT_EQ(link_.FailureReason(), terminal_.Device() + u": 0 baud"_s);
  }
  EXPECT_TRUE(link_.Open(terminal_.Device(), "300,N,8,1"));
}

TEST_F(SerialLinkTest, APortWithoutControlLinesGoesOnWithoutThem) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  int refused = 0;  // a pseudo-terminal has none, so that the port refuses what it is asked for
  QObject::connect(link_.findChild<QSerialPort*>(), &QSerialPort::errorOccurred,
                   [&] { ++refused; });
  link_.SetDtr(false);
  EXPECT_GT(refused, 0);
  const int before = refused;
  link_.SetRts(false);
  EXPECT_GT(refused, before);
  QCoreApplication::processEvents();
  EXPECT_FALSE(link_.IsLost());
  link_.Write("<ID1A><?>\r\n");
  EXPECT_TRUE(CloseSerialPort(link_, clock_));
  EXPECT_EQ(terminal_.Received(), "<ID1A><?>\r\n");
}

TEST_F(SerialLinkTest, ALostPortIsFoundOutKeepsWhatCameBeforeAndCanBeClosed) {
  // Through a link that goes with the port: the system may give the port's own name away again.
  const TemporaryProgramFolder folder;
  const QString port = folder.Path(u"port"_s);
  ASSERT_TRUE(QFile::link(terminal_.Device(), port));
  ASSERT_TRUE(link_.Open(port, "9600,N,8,1"));
  terminal_.Unplug();
  ASSERT_TRUE(QFile::remove(port));
  EXPECT_TRUE(QTest::qWaitFor([this] { return link_.IsLost(); }));
  link_.Write("nobody is there");
  EXPECT_EQ(link_.ReadAvailable(), "");
  link_.Close();
  EXPECT_FALSE(link_.Open(port, "9600,N,8,1"));
  EXPECT_FALSE(link_.FailureReason().isEmpty());
}

TEST_F(SerialLinkTest, WhatIsNoSerialPortCannotBeOpened) {
  const TemporaryProgramFolder folder;
  const QString file = folder.Write(u"file"_s, "old");
  const QString pipe = folder.Path(u"pipe"_s);
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  for (const QString& device :
       {file, pipe, folder.Path(QString()), u"/dev/null"_s, QString(), QString(5000, u'x')}) {
    EXPECT_FALSE(link_.Open(device, "9600,N,8,1")) << device.toStdString();
    EXPECT_TRUE(link_.FailureReason().startsWith(device + u": "_s))
        << link_.FailureReason().toStdString();
  }
  EXPECT_EQ(folder.Read(u"file"_s), "old");
}

TEST_F(SerialLinkTest, APortWithoutPermissionNamesTheGroupThatGrantsIt) {
  const TemporaryProgramFolder folder;
  const QString device = folder.Write(u"port"_s, "");
  const QByteArray name = QFile::encodeName(device);
  // The group may use the port, its owner may not.
  ASSERT_EQ(chmod(name.constData(), 0060), 0);
  // The superuser may open every port, so somebody else tries.
  const bool is_superuser = geteuid() == 0;
  if (is_superuser) {
    ASSERT_EQ(chmod(QFile::encodeName(folder.Path(QString())).constData(), 0755), 0);
    constexpr gid_t kDialout = 20;
    ASSERT_EQ(chown(name.constData(), 0, kDialout), 0);
    ASSERT_EQ(setresuid(65534, 65534, 0), 0);
  }
  const QString group = QFileInfo(device).group();
  const bool opened = link_.Open(device, "9600,N,8,1");
  const QString reason = link_.FailureReason();
  if (is_superuser) {
    ASSERT_EQ(setresuid(0, 0, 0), 0);
  }
  EXPECT_FALSE(opened);
  EXPECT_EQ(reason, device + u": Permission denied\nThe group \""_s + group +
                        u"\" may use this port: add your user to it and log in "
                        "again."_s)
      << reason.toStdString();
}

TEST_F(SerialLinkTest, AGroupThatMayNotUseThePortIsNotNamed) {
  const TemporaryProgramFolder folder;
  const QString device = folder.Write(u"port"_s, "");
  ASSERT_EQ(chmod(QFile::encodeName(device).constData(), 0), 0);
  EXPECT_FALSE(link_.Open(device, "9600,N,8,1"));
  EXPECT_FALSE(link_.FailureReason().contains(QLatin1Char('\n')))
      << link_.FailureReason().toStdString();
}

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
