// The program's pseudo-terminals.

#include <QFileInfo>
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

}  // namespace
}  // namespace VirtualPanel
