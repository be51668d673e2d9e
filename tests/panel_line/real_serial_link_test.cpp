// A serial port by itself, with a raw other end, carried by each of the adapters.
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <memory>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <gtest/gtest.h>

#include "hurried_clock.h"
#include "panel_line/links.h"
#include "panel_line/serial_link.h"
#include "panel_line/tick_timer.h"
#include "panel_line/waits.h"
#include "port_kinds.h"
#include "ports/waiting_bytes.h"
#include "support/as_nobody.h"
#include "support/longest_freeze.h"
#include "support/program_folder.h"
#include "support/raw_terminal.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class SerialLinkTest : public testing::TestWithParam<Ports::PortKind> {
 protected:
  SerialLinkTest() {
    QObject::connect(&link_, &SerialLink::Happened, [this] { waiter_.Wake(); });
  }

  RawTerminal terminal_;
  EventWaiter waiter_;
  EventClock clock_{waiter_};
  SerialLink link_{nullptr, GetParam().make()};
};

INSTANTIATE_TEST_SUITE_P(Ports, SerialLinkTest, Ports::kPortKinds, Ports::PortKindName);

TEST_P(SerialLinkTest, ReadingTakesInWhatWaitsInTheSystemsBuffer) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  terminal_.Send("<ID1A>\r\n");
  // No event has been handled since.
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  EXPECT_EQ(link_.ReadAvailable(), "");
}

TEST_P(SerialLinkTest, EveryByteValuePassesBothWays) {
  QByteArray all;
  for (int value = 0; value < 256; ++value) all += static_cast<char>(value);
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  terminal_.Send(all);
  EXPECT_EQ(link_.ReadAvailable(), all);
  link_.Write(all);
  link_.Close();
  EXPECT_EQ(terminal_.Received(), all);
}

TEST_P(SerialLinkTest, WhatWasWrittenIsOnItsWayBeforeThePortIsClosed) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write("<ID1A><?>\r\n");
  link_.Close();
  EXPECT_EQ(terminal_.Received(), "<ID1A><?>\r\n");
}

TEST_P(SerialLinkTest, FramesOfAnyLengthPassALineThatReadsThemSlowly) {
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

TEST_P(SerialLinkTest, AnAnswerIsReadWhileAFrameWaits) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write(QByteArray(100000, 'x'));
  terminal_.Send("<ID1A>\r\n");
  EXPECT_EQ(link_.ReadAvailable(), "<ID1A>\r\n");
  EXPECT_FALSE(link_.IsLost());
}

TEST_P(SerialLinkTest, ALineThatTakesNothingIsGivenUpWhileTheWindowLives) {
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

TEST_P(SerialLinkTest, AFrameThatAStopCutsIsEndedSoThatTheNextOneIsReadByItself) {
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

TEST_P(SerialLinkTest, AFrameThatHasLeftIsNotEndedOnceMore) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.Write("<ID1A><?>\r\n");
  EXPECT_TRUE(CloseSerialPort(link_, clock_, {.made = true}));
  EXPECT_EQ(terminal_.Received(), "<ID1A><?>\r\n");
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.GiveUp();
  EXPECT_TRUE(CloseSerialPort(link_, clock_));
  EXPECT_EQ(terminal_.Received(), "<ID1A><?>\r\n");
}

TEST_P(SerialLinkTest, APortThatIsLostWhileAFrameWaitsIsFoundOut) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "300,N,8,1"));
  link_.Write(QByteArray(100000, 'x'));
  EXPECT_GT(link_.Unsent(), 0);
  terminal_.Unplug();
  EXPECT_FALSE(DrainLink(link_, clock_));
  EXPECT_TRUE(link_.IsLost());
  EXPECT_EQ(link_.Unsent(), 0);
}

TEST_P(SerialLinkTest, ThePortStandsAtItsSpeedAndFormat) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "19200,N,8,1"));
  EXPECT_EQ(link_.Speed(), 19200);
  EXPECT_EQ(terminal_.Speed(), static_cast<speed_t>(B19200));
  const termios settings = terminal_.Settings();
  EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
  EXPECT_EQ(settings.c_cflag & (PARENB | CSTOPB | CRTSCTS), 0U);
  EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL | INLCR | ISTRIP), 0U);
  EXPECT_EQ(settings.c_oflag & OPOST, 0U);
  EXPECT_EQ(settings.c_lflag & (ICANON | ECHO | ISIG), 0U);
}

TEST_P(SerialLinkTest, APortThatHadOtherSettingsStandsAtItsOwn) {
  termios other = terminal_.Settings();
  other.c_cflag |= PARENB | CSTOPB | CRTSCTS;
  other.c_iflag |= IXON | IXOFF;
  ASSERT_EQ(cfsetspeed(&other, B300), 0);
  terminal_.SetUp(other);
  ASSERT_TRUE(link_.Open(terminal_.Device(), "57600,N,8,1"));
  EXPECT_EQ(terminal_.Speed(), static_cast<speed_t>(B57600));
  EXPECT_EQ(terminal_.Settings().c_cflag & (PARENB | CSTOPB | CRTSCTS), 0U);
  EXPECT_EQ(terminal_.Settings().c_iflag & (IXON | IXOFF), 0U);
}

TEST_P(SerialLinkTest, AnOpenPortIsThisProgramsAlone) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  const std::unique_ptr<Ports::Port> second = GetParam().make();
  EXPECT_FALSE(second->Open(terminal_.Device(), 9600));
  EXPECT_FALSE(second->IsOpen());
  EXPECT_FALSE(second->ErrorString().isEmpty());
  link_.Close();
  EXPECT_TRUE(second->Open(terminal_.Device(), 9600)) << second->ErrorString().toStdString();
}

TEST_P(SerialLinkTest, ControlLinesThatAreNotThereDoNoHarm) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  link_.SetDtr(false);
  link_.SetRts(false);
  QCoreApplication::processEvents();
  EXPECT_FALSE(link_.IsLost());
  link_.Write("<ID1A><?>\r\n");
  EXPECT_TRUE(CloseSerialPort(link_, clock_));
  EXPECT_EQ(terminal_.Received(), "<ID1A><?>\r\n");
}

TEST_P(SerialLinkTest, WhatArrivesWakesWhoWaitsForIt) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  QByteArray received;
  for (int answer = 0; answer < 100; ++answer) {
    terminal_.Send("<ID1A>\r\n");
    while (received.size() < 8 * (answer + 1)) {
      ASSERT_TRUE(waiter_.Wait(60'000));
      received += link_.ReadAvailable();
    }
  }
  EXPECT_EQ(received, QByteArray("<ID1A>\r\n").repeated(100));
}

TEST_P(SerialLinkTest, WhatArrivesWithoutEndIsTakenInInPortions) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "2000000,N,8,1"));
  const qsizetype sent = terminal_.SendWhatFits(QByteArray(1'000'000, 'x'));
  EXPECT_LT(sent, 1'000'000);
  qsizetype received = 0;
  EXPECT_TRUE(QTest::qWaitFor([&] {
    const qsizetype portion = link_.ReadAvailable().size();
    EXPECT_LE(portion, 2 * Ports::kReadBuffer);
    received += portion;
    return received == sent;
  }));
  EXPECT_FALSE(link_.IsLost());
}

TEST_P(SerialLinkTest, ASpeedOf0CannotBeOpened) {
  for (const char* settings : {"0,N,8,1", "fast,N,8,1", ""}) {
    EXPECT_FALSE(link_.Open(terminal_.Device(), settings));
    EXPECT_EQ(link_.FailureReason(), terminal_.Device() + u": 0 baud"_s);
  }
  EXPECT_TRUE(link_.Open(terminal_.Device(), "300,N,8,1"));
}

TEST_P(SerialLinkTest, ALostPortIsFoundOutKeepsWhatCameBeforeAndCanBeClosed) {
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

TEST_P(SerialLinkTest, WhatIsNoSerialPortCannotBeOpened) {
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

/// Opens a port with these permissions as somebody else than its owner, because the superuser may
/// open every port, and gives why it cannot be; "%1" is the port, "%2" its group.
std::string RefusalOf(SerialLink& link, mode_t mode) {
  const TemporaryProgramFolder folder;
  const QString device = folder.Write(u"port"_s, "");
  const QByteArray name = QFile::encodeName(device);
  EXPECT_EQ(chmod(name.constData(), mode), 0);
  if (geteuid() == 0) {
    EXPECT_EQ(chmod(QFile::encodeName(folder.Path(QString())).constData(), 0755), 0);
    constexpr gid_t kDialout = 20;
    EXPECT_EQ(chown(name.constData(), 0, kDialout), 0);
  }
  const QString group = QFileInfo(device).group();
  {
    const AsNobody as_nobody;
    EXPECT_FALSE(link.Open(device, "9600,N,8,1"));
  }
  QString reason = link.FailureReason();
  return reason.replace(device, u"%1"_s).replace(u'"' + group + u'"', u"\"%2\""_s).toStdString();
}

TEST_P(SerialLinkTest, APortWithoutPermissionNamesTheGroupThatGrantsIt) {
  const std::string named =
      "%1: Permission denied\nThe group \"%2\" may use this port: add your user to it and log in "
      "again.";
  EXPECT_EQ(RefusalOf(link_, 0060), named);
  EXPECT_EQ(RefusalOf(link_, 0464), named);  // all others may only read from it
}

TEST_P(SerialLinkTest, AGroupThatMayNotUseThePortIsNotNamed) {
  EXPECT_EQ(RefusalOf(link_, 0), "%1: Permission denied");
  EXPECT_EQ(RefusalOf(link_, 0040), "%1: Permission denied");
}

}  // namespace
}  // namespace Brivon1
