// What only Unix has of the program: pseudo-terminals, and systems without a display.

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <QFileInfo>
#include <QScopeGuard>
#include <QSerialPort>

#include "program_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(ProgramTest, AnswersOnAPseudoTerminalAndRemovesItsLink) {
  const QString link = PathOf("panel");
  Start({u"--headless"_s, u"--pty"_s, link});
  EXPECT_EQ(output_, u"pty %1 -> %2\nready\n"_s.arg(link, QFile::symLinkTarget(link)));
  QSerialPort port;
  port.setPortName(link);
  ASSERT_TRUE(port.open(QIODevice::ReadWrite));
  EXPECT_EQ(Exchange(&port, "<ID01><?>\r\n"), "<ID01>\r\n");
  port.close();
  EXPECT_EQ(Terminate(), 0);
  EXPECT_FALSE(QFileInfo(link).isSymLink());
}

TEST_F(ProgramTest, ServesAPseudoTerminalAndTcpAtOnce) {
  const QString link = PathOf("port");
  Start({u"--headless"_s, u"--pty"_s, link, u"--tcp"_s, u"0"_s});
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID01><L01><P001>x \r\n"), "<ID01>\r\n");
  QSerialPort port;
  port.setPortName(link);
  ASSERT_TRUE(port.open(QIODevice::ReadWrite));
  EXPECT_EQ(Exchange(&port, "<ID01><RP001>\r\n"), "<ID01>\r\n");
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, ComesBackAfterAFaultHasPulledItsPseudoTerminal) {
  const QString link = PathOf("panel");
  Start({u"--headless"_s, u"--pty"_s, link, u"--fault"_s, u"close-after:1"_s});
  {
    QSerialPort port;
    port.setPortName(link);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite));
    EXPECT_EQ(Exchange(&port, "<ID01><?>\r\n"), "<ID01>\r\n");
    ASSERT_TRUE(WaitUntil([&] { return !QFileInfo(link).isSymLink(); }));
  }
  ASSERT_TRUE(WaitUntil([&] { return QFileInfo(link).isSymLink(); }));
  QSerialPort port;
  port.setPortName(link);
  ASSERT_TRUE(port.open(QIODevice::ReadWrite));
  EXPECT_EQ(Exchange(&port, "<ID01><?>\r\n"), "<ID01>\r\n");
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, AnswersOnASerialPort) {
  const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
  ASSERT_GE(master, 0);
  const auto closed = qScopeGuard([master] { ::close(master); });
  ASSERT_EQ(::grantpt(master), 0);
  ASSERT_EQ(::unlockpt(master), 0);
  const QString device = QString::fromLocal8Bit(::ptsname(master));
  Start({u"--headless"_s, u"--serial"_s, device, u"--baud"_s, u"19200"_s});
  EXPECT_EQ(output_, u"serial %1 at 19200 baud\nready\n"_s.arg(device));
  ASSERT_EQ(::write(master, "<ID01><?>\r\n", 11), 11);
  QByteArray answer;
  EXPECT_TRUE(WaitUntil([&] {
    char bytes[64];
    const ssize_t count = ::read(master, bytes, sizeof bytes);
    if (count > 0) answer.append(bytes, count);
    return answer.size() >= 8;
  }));
  EXPECT_EQ(answer, "<ID01>\r\n");
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, WithoutADisplayThereIsNoWindow) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environment.remove(QLatin1String(name));
  }
  process_.setProcessEnvironment(environment);
  EXPECT_EQ(Refusal(Words("--tcp 0")), u"virtual_panel: there is no display: use --headless\n"_s);
  environment.insert(u"QT_NO_GLIB"_s, u"1"_s);
  process_.setProcessEnvironment(environment);
  Start(Words("--headless --tcp 0"));
  EXPECT_EQ(Terminate(), 0);
}

}  // namespace
}  // namespace VirtualPanel
