// The serial port and the socket by themselves, each with a raw other end.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <QFile>
#include <QTcpServer>
#include <QTest>

#include <gtest/gtest.h>

#include "core/serial_link.h"
#include "core/tcp_link.h"
#include "support/program_folder.h"

namespace Brivon1 {
namespace {

class SerialLinkTest : public testing::Test {
 protected:
  SerialLinkTest() {
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
      qFatal("cannot open a pseudo-terminal");
    }
    device_ = QString::fromLocal8Bit(ptsname(master_));
  }
  ~SerialLinkTest() override { Unplug(); }

  void Unplug() {
    if (master_ >= 0) close(master_);
    master_ = -1;
  }

  void Send(const QByteArray& bytes) {
    ASSERT_EQ(write(master_, bytes.constData(), static_cast<std::size_t>(bytes.size())),
              bytes.size());
  }

  /// Everything that the other end has been sent so far.
  QByteArray Receive() {
    QByteArray received(65536, 0);
    const ssize_t size = read(master_, received.data(), static_cast<std::size_t>(received.size()));
    return received.first(std::max<ssize_t>(size, 0));
  }

  int master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
  QString device_;
  SerialLink link_{nullptr};
};

TEST_F(SerialLinkTest, ReadingTakesInWhatWaitsInTheSystemsBuffer) {
  ASSERT_TRUE(link_.Open(device_, "9600,N,8,1"));
  Send("<ID1A>\r\n");
  // No event has been handled since.
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  EXPECT_EQ(link_.ReadAvailable(), "");
}

TEST_F(SerialLinkTest, EveryByteValuePassesBothWays) {
  QByteArray all;
  for (int value = 0; value < 256; ++value) all += static_cast<char>(value);
  ASSERT_TRUE(link_.Open(device_, "9600,N,8,1"));
  Send(all);
  EXPECT_EQ(link_.ReadAvailable(), all);
  link_.Write(all);
  link_.Close();
  EXPECT_EQ(Receive(), all);
}

TEST_F(SerialLinkTest, WhatWasWrittenIsOnItsWayBeforeThePortIsClosed) {
  ASSERT_TRUE(link_.Open(device_, "9600,N,8,1"));
  link_.Write("<ID1A><?>\r\n");
  link_.Close();
  EXPECT_EQ(Receive(), "<ID1A><?>\r\n");
}

TEST_F(SerialLinkTest, ALostPortIsFoundOutKeepsWhatCameBeforeAndCanBeClosed) {
  // Through a link that goes with the port: the system may give the port's own name away again.
  const TemporaryProgramFolder folder;
  const QString port = folder.Path(QStringLiteral("port"));
  ASSERT_TRUE(QFile::link(device_, port));
  ASSERT_TRUE(link_.Open(port, "9600,N,8,1"));
  Unplug();
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
  const QString file = folder.Write(QStringLiteral("file"), "old");
  const QString pipe = folder.Path(QStringLiteral("pipe"));
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  for (const QString& device : {file, pipe, folder.Path(QString()), QStringLiteral("/dev/null"),
                                QString(), QString(5000, u'x')}) {
    EXPECT_FALSE(link_.Open(device, "9600,N,8,1")) << device.toStdString();
    EXPECT_TRUE(link_.FailureReason().startsWith(device + QStringLiteral(": ")))
        << link_.FailureReason().toStdString();
  }
  EXPECT_EQ(folder.Read(QStringLiteral("file")), "old");
}

TEST_F(SerialLinkTest, APortWithoutPermissionNamesTheGroupThatGrantsIt) {
  const TemporaryProgramFolder folder;
  const QString device = folder.Write(QStringLiteral("port"), "");
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
  EXPECT_EQ(reason, device + QStringLiteral(": Permission denied\nThe group \"") + group +
                        QStringLiteral("\" may use this port: add your user to it and log in "
                                       "again."))
      << reason.toStdString();
}

TEST_F(SerialLinkTest, AGroupThatMayNotUseThePortIsNotNamed) {
  const TemporaryProgramFolder folder;
  const QString device = folder.Write(QStringLiteral("port"), "");
  ASSERT_EQ(chmod(QFile::encodeName(device).constData(), 0), 0);
  EXPECT_FALSE(link_.Open(device, "9600,N,8,1"));
  EXPECT_FALSE(link_.FailureReason().contains(QLatin1Char('\n')))
      << link_.FailureReason().toStdString();
}

class TcpLinkTest : public testing::Test {
 protected:
  TcpLinkTest() {
    if (!server_.listen(QHostAddress(QHostAddress::LocalHost))) qFatal("cannot listen");
    link_.Connect(QStringLiteral("127.0.0.1"), server_.serverPort());
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return link_.IsConnected() && server_.hasPendingConnections(); }));
    panel_ = server_.nextPendingConnection();
  }

  QTcpServer server_;
  QTcpSocket* panel_ = nullptr;
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

TEST_F(TcpLinkTest, WhatWasWrittenIsOnItsWayBeforeTheSocketIsClosed) {
  QByteArray frame(100000, 'x');
  link_.Write(frame);
  QByteArray received;
  QObject::connect(panel_, &QTcpSocket::readyRead, panel_, [&] { received += panel_->readAll(); });
  link_.Close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return received.size() == frame.size(); }));
}

TEST_F(TcpLinkTest, ASocketThatIsInUseIsClosedByTheNextRequest) {
  link_.Connect(QStringLiteral("127.0.0.1"), server_.serverPort());
  EXPECT_TRUE(QTest::qWaitFor([this] {
    return link_.IsConnected() && panel_->state() == QAbstractSocket::UnconnectedState;
  }));
}

}  // namespace
}  // namespace Brivon1
