#include "panel_line/links.h"

#include <functional>

#include <QStringList>

#include <gtest/gtest.h>

#include "panel_line/panel_connection.h"
#include "store/system_port.h"
#include "support/virtual_time.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

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

/// What a port and a socket do alike: they hold bytes until a moment, and note when they are
/// closed.
template <typename Link>
class ScriptedEnd : public Link {
 public:
  explicit ScriptedEnd(const SteppingClock& clock) : clock_(clock) {}

  void Write(const QByteArray&) override {}
  qint64 Unsent() const override { return clock_.now < sends_until ? 1 : 0; }
  int Speed() const override { return 9600; }
  QByteArray ReadAvailable() override { return {}; }
  bool IsLost() const override { return false; }
  void Close() override { closed_at.append(clock_.now); }
  QString FailureReason() const override { return {}; }

  qint64 sends_until = 0;
  QList<qint64> closed_at;

 protected:
  const SteppingClock& clock_;
};

class ScriptedPort : public ScriptedEnd<SerialPort> {
 public:
  using ScriptedEnd::ScriptedEnd;

  bool Open(const QString& device, const QByteArray& settings) override {
    moves.append(device + u" "_s + QString::fromLatin1(settings));
    return opens;
  }
  void SetDtr(bool raised) override { moves.append(u"DTR %1"_s.arg(raised)); }
  void SetRts(bool raised) override { moves.append(u"RTS %1"_s.arg(raised)); }

  bool opens = true;
  QStringList moves;
};

class ScriptedSocket : public ScriptedEnd<TcpSocket> {
 public:
  using ScriptedEnd::ScriptedEnd;

  void Connect(const QString& host, int port) override {
    requests.append(u"%1 %2"_s.arg(host).arg(port));
    requested_at_ = clock_.now;
  }
  bool IsConnected() const override {
    ++checks;
    return clock_.now - requested_at_ >= accepts_after;
  }

  qint64 accepts_after = 0;
  QStringList requests;
  mutable int checks = 0;

 private:
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
  SteppingClock clock;
  ScriptedPort port(clock);
  EXPECT_TRUE(OpenSerialPort(port, configuration));
  EXPECT_EQ(port.moves, QStringList{SystemPort(3) + u" 19200,N,8,1"_s});
}

TEST(Links, ADeviceNamedForThePortIsOpenedInstead) {
  const Configuration configuration = ReadConfiguration(
      IniFile("[Communication]\r\nComPort=1\r\n[Serial Ports]\r\nCom1=/dev/ttyUSB0\r\n"));
  SteppingClock clock;
  ScriptedPort port(clock);
  EXPECT_TRUE(OpenSerialPort(port, configuration));
  EXPECT_EQ(port.moves, QStringList{u"/dev/ttyUSB0 9600,N,8,1"_s});
}

TEST(Links, ASerialPortThatCannotBeOpenedGivesFalse) {
  SteppingClock clock;
  ScriptedPort port(clock);
  port.opens = false;
  EXPECT_FALSE(OpenSerialPort(port, ReadConfiguration(IniFile())));
  EXPECT_EQ(port.moves.size(), 1);
}

TEST(Links, TheControlLinesAreSetAsTheyAreConfiguredOnceThePortIsOpen) {
  const auto moves = [](const QByteArray& lines) {
    SteppingClock clock;
    ScriptedPort port(clock);
    EXPECT_TRUE(OpenSerialPort(port, ReadConfiguration(IniFile("[Serial Ports]\r\n" + lines))));
    return port.moves.mid(1);
  };
  EXPECT_EQ(moves(""), QStringList());
  EXPECT_EQ(moves("Com2Rts=0\r\n"), QStringList{u"RTS 0"_s});
  EXPECT_EQ(moves("Com2Dtr=0\r\nCom2Rts=1\r\n"), (QStringList{u"DTR 0"_s, u"RTS 1"_s}));
  EXPECT_EQ(moves("Com1Dtr=0\r\nCom1Rts=0\r\n"), QStringList()) << "another port's";
}

TEST(Links, APortThatCannotBeOpenedHasNoControlLines) {
  SteppingClock clock;
  ScriptedPort port(clock);
  port.opens = false;
  EXPECT_FALSE(OpenSerialPort(port, ReadConfiguration(IniFile("[Serial Ports]\r\nCom2Rts=0\r\n"))));
  EXPECT_EQ(port.moves.size(), 1);
}

TEST(Links, ClosingALinkIsAlwaysTrue) {
  SteppingClock clock;
  ScriptedPort port(clock);
  ScriptedSocket socket(clock);
  EXPECT_TRUE(CloseSerialPort(port, clock));
  EXPECT_TRUE(CloseTcpLink(socket, clock));
  EXPECT_EQ(port.closed_at, QList<qint64>{1000});
  EXPECT_EQ(socket.closed_at, QList<qint64>{1000});
}

TEST(Links, ALinkIsClosedWhenWhatWasWrittenHasLeft) {
  SteppingClock clock;
  ScriptedPort port(clock);
  ScriptedSocket socket(clock);
  port.sends_until = 1500;
  EXPECT_TRUE(CloseSerialPort(port, clock));
  EXPECT_EQ(port.closed_at, QList<qint64>{1500});
  socket.sends_until = 2500;
  EXPECT_TRUE(CloseTcpLink(socket, clock));
  EXPECT_EQ(socket.closed_at, QList<qint64>{2500});
}

TEST(Links, AConnectionIsRequestedOnceAndCheckedOnce500MillisecondsLater) {
  SteppingClock clock;
  ScriptedSocket socket(clock);
  EXPECT_TRUE(OpenTcpLink(socket, clock, u"192.168.1.50"_s, 2101));
  EXPECT_EQ(socket.requests, QStringList{u"192.168.1.50 2101"_s});
  EXPECT_EQ(socket.checks, 1);
  EXPECT_EQ(clock.now, 1500);
}

TEST(Links, ATcpPanelThatAcceptsAfter600MillisecondsIsNotConnected) {
  SteppingClock clock;
  ScriptedSocket socket(clock);
  socket.accepts_after = 600;
  EXPECT_FALSE(OpenTcpLink(socket, clock, u"192.168.1.50"_s, 2101));
  EXPECT_EQ(clock.now, 1500);
  EXPECT_EQ(socket.requests.size(), 1);
  EXPECT_EQ(socket.checks, 1);
}

TEST(Links, ATcpPanelThatAcceptsAfter500MillisecondsIsConnected) {
  SteppingClock clock;
  ScriptedSocket socket(clock);
  socket.accepts_after = 500;
  EXPECT_TRUE(OpenTcpLink(socket, clock, u"192.168.1.50"_s, 2101));
  socket.accepts_after = 501;
  EXPECT_FALSE(OpenTcpLink(socket, clock, u"192.168.1.50"_s, 2101));
}

TEST(Links, AConnectionThatTheProgramsEndCutsShortIsNotUsed) {
  SteppingClock clock;
  clock.is_program_ending = true;
  ScriptedSocket socket(clock);
  EXPECT_FALSE(OpenTcpLink(socket, clock, u"192.168.1.50"_s, 2101));
  EXPECT_LT(clock.now, 1500);
}

TEST(Links, WithoutASendModeOrAnAddressNothingIsOpened) {
  SteppingClock clock;
  ScriptedPort port(clock);
  ScriptedSocket socket(clock);
  VirtualTime time;
  VirtualTickTimer timer(time);
  PanelConnection connection({port, socket, timer, clock});
  EXPECT_FALSE(connection.Open(SendMode::kNone, {}, {"10.0.0.1", 80}));
  EXPECT_FALSE(connection.Open(SendMode::kTcp, {}, {}));
  EXPECT_EQ(connection.FailureReason(),
            u"No usable network address is configured for this panel."_s);
  EXPECT_TRUE(port.moves.isEmpty());
  EXPECT_TRUE(socket.requests.isEmpty());
}

TEST(Links, SendModeEmptySelectsNeitherLink) {
  EXPECT_EQ(ReadConfiguration(IniFile("[Communication]\r\nSendMode=\r\n")).Mode(), SendMode::kNone);
  EXPECT_EQ(Configuration().Mode(), SendMode::kNone);
}

}  // namespace
}  // namespace Brivon1
