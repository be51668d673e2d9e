#include "core/links.h"

#include <functional>

#include <QStringList>

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

class ScriptedPort : public SerialPort {
 public:
  bool Open(const QString& device, const QByteArray& settings) override {
    opened.append(device + QStringLiteral(" ") + QString::fromLatin1(settings));
    return opens;
  }
  void Write(const QByteArray&) override {}
  QByteArray ReadAvailable() override { return {}; }
  bool IsLost() const override { return false; }
  void Close() override { ++closed; }
  QString FailureReason() const override { return {}; }

  bool opens = true;
  QStringList opened;
  int closed = 0;
};

/// A clock that moves only while somebody waits, at most 40 ms at a time, as if events came
/// between.
class SteppingClock : public MillisecondClock {
 public:
  qint64 Milliseconds() const override { return now; }
  bool WaitForEvent(qint64 at_most) override {
    now += std::min<qint64>(at_most, 40);
    return !is_program_ending;
  }

  qint64 now = 1000;
  bool is_program_ending = false;
};

class ScriptedSocket : public TcpSocket {
 public:
  explicit ScriptedSocket(const SteppingClock& clock) : clock_(clock) {}

  void Connect(const QString& host, int port) override {
    requests.append(QStringLiteral("%1 %2").arg(host).arg(port));
    requested_at_ = clock_.now;
  }
  bool IsConnected() const override {
    ++checks;
    return clock_.now - requested_at_ >= accepts_after;
  }
  void Write(const QByteArray&) override {}
  QByteArray ReadAvailable() override { return {}; }
  bool IsLost() const override { return false; }
  void Close() override { ++closed; }
  QString FailureReason() const override { return {}; }

  qint64 accepts_after = 0;
  QStringList requests;
  mutable int checks = 0;
  int closed = 0;

 private:
  const SteppingClock& clock_;
  qint64 requested_at_ = 0;
};

TEST(Links, Baudrate19200GivesTheSettingsText19200N81) {
  EXPECT_EQ(SerialSettings(19200), "19200,N,8,1");
  EXPECT_EQ(SerialSettings(9600), "9600,N,8,1");
  EXPECT_EQ(SerialSettings(115200), "115200,N,8,1");
  EXPECT_EQ(SerialSettings(0), "0,N,8,1");
}

TEST(Links, TheSerialPortIsOpenedAtTheConfiguredPortAndSpeed) {
  const Configuration configuration =
      ReadConfiguration(IniFile("[Communication]\r\nBaudrate=19200\r\nComPort=3\r\n"));
  ScriptedPort port;
  EXPECT_TRUE(OpenSerialPort(port, configuration));
  EXPECT_EQ(port.opened, QStringList{QStringLiteral("/dev/ttyS2 19200,N,8,1")});
}

TEST(Links, ADeviceNamedForThePortIsOpenedInstead) {
  const Configuration configuration = ReadConfiguration(
      IniFile("[Communication]\r\nComPort=1\r\n[Serial Ports]\r\nCom1=/dev/ttyUSB0\r\n"));
  ScriptedPort port;
  EXPECT_TRUE(OpenSerialPort(port, configuration));
  EXPECT_EQ(port.opened, QStringList{QStringLiteral("/dev/ttyUSB0 9600,N,8,1")});
}

TEST(Links, ASerialPortThatCannotBeOpenedGivesFalse) {
  ScriptedPort port;
  port.opens = false;
  EXPECT_FALSE(OpenSerialPort(port, ReadConfiguration(IniFile())));
  EXPECT_EQ(port.opened.size(), 1);
}

TEST(Links, ClosingALinkIsAlwaysTrue) {
  SteppingClock clock;
  ScriptedPort port;
  ScriptedSocket socket(clock);
  EXPECT_TRUE(CloseSerialPort(port));
  EXPECT_TRUE(CloseTcpLink(socket));
  EXPECT_EQ(port.closed, 1);
  EXPECT_EQ(socket.closed, 1);
}

TEST(Links, AConnectionIsRequestedOnceAndCheckedOnce500MillisecondsLater) {
  SteppingClock clock;
  ScriptedSocket socket(clock);
  EXPECT_TRUE(OpenTcpLink(socket, clock, QStringLiteral("192.168.1.50"), 2101));
  EXPECT_EQ(socket.requests, QStringList{QStringLiteral("192.168.1.50 2101")});
  EXPECT_EQ(socket.checks, 1);
  EXPECT_EQ(clock.now, 1500);
}

TEST(Links, ATcpPanelThatAcceptsAfter600MillisecondsIsNotConnected) {
  SteppingClock clock;
  ScriptedSocket socket(clock);
  socket.accepts_after = 600;
  EXPECT_FALSE(OpenTcpLink(socket, clock, QStringLiteral("192.168.1.50"), 2101));
  EXPECT_EQ(clock.now, 1500);
  EXPECT_EQ(socket.requests.size(), 1);
  EXPECT_EQ(socket.checks, 1);
}

TEST(Links, ATcpPanelThatAcceptsAfter500MillisecondsIsConnected) {
  SteppingClock clock;
  ScriptedSocket socket(clock);
  socket.accepts_after = 500;
  EXPECT_TRUE(OpenTcpLink(socket, clock, QStringLiteral("192.168.1.50"), 2101));
  socket.accepts_after = 501;
  EXPECT_FALSE(OpenTcpLink(socket, clock, QStringLiteral("192.168.1.50"), 2101));
}

TEST(Links, AConnectionThatTheProgramsEndCutsShortIsNotUsed) {
  SteppingClock clock;
  clock.is_program_ending = true;
  ScriptedSocket socket(clock);
  EXPECT_FALSE(OpenTcpLink(socket, clock, QStringLiteral("192.168.1.50"), 2101));
  EXPECT_LT(clock.now, 1500);
}

TEST(Links, SendModeEmptySelectsNeitherLink) {
  EXPECT_EQ(ReadConfiguration(IniFile("[Communication]\r\nSendMode=\r\n")).Mode(), SendMode::kNone);
  EXPECT_EQ(Configuration().Mode(), SendMode::kNone);
}

}  // namespace
}  // namespace Brivon1
