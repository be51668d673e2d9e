#include "lines/panel_lines.h"

#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include "lines/pty_line.h"
#include "support/wait_until.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

class PanelLinesTest : public testing::Test {
 protected:
  // The answer of panel 26 to a poll over TCP.
  QByteArray Poll(quint16 port) {
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_s, port);
    socket.write("<ID1A><?>\r\n");
    QByteArray answer;
    EXPECT_TRUE(WaitUntil([&] {
      answer += socket.readAll();
      return answer.size() >= 8;
    }));
    return answer;
  }

  quint16 Port() const {
    return lines_.Descriptions().value(0).section(QLatin1Char(':'), -1).toUShort();
  }

  QString error_;
  PanelEngine engine_{{{26, 4, 96, true}}};
  PanelLines lines_{&engine_};
};

TEST_F(PanelLinesTest, SaysWhereThePanelsAreReached) {
  const QSignalSpy opened(&lines_, &PanelLines::Opened);
  ASSERT_TRUE(lines_.OpenTcp(u"127.0.0.1:0"_s, &error_)) << error_.toStdString();
  EXPECT_GT(Port(), 0);
  EXPECT_EQ(lines_.Descriptions(), QStringList{u"listening on tcp 127.0.0.1:%1"_s.arg(Port())});
  EXPECT_EQ(opened.count(), 1);
  EXPECT_EQ(opened[0][0].toString(), lines_.Descriptions().first());
  EXPECT_EQ(Poll(Port()), "<ID1A>\r\n");
}

TEST_F(PanelLinesTest, RefusesAnAddressThatIsNone) {
  for (const char* address :
       {"", "x", "127.0.0.1:", "127.0.0.1:x", "300.1.1.1:1", ":70000", "[::1:0"}) {
    EXPECT_FALSE(lines_.OpenTcp(QString::fromLatin1(address), &error_)) << address;
    EXPECT_TRUE(error_.endsWith(u"expected ADDRESS:PORT or PORT"_s)) << address;
  }
  EXPECT_TRUE(lines_.Descriptions().isEmpty());
}

TEST_F(PanelLinesTest, RefusesAnAddressThatOtherMachinesReachUnlessItIsExposed) {
  for (const char* address : {"0.0.0.0:0", "[::]:0", "0:0", "192.0.2.1:0", "[::ffff:0.0.0.0]:0"}) {
    EXPECT_FALSE(lines_.OpenTcp(QString::fromLatin1(address), &error_)) << address;
    EXPECT_EQ(error_,
              u"TCP address \"%1\": other machines could reach it; with --expose they "
              "may"_s.arg(QLatin1String(address)));
  }
  for (const char* address : {"0", "localhost:0", "127.0.0.1:0", "127.1.2.3:0", "[::1]:0"}) {
    const bool is_open = lines_.OpenTcp(QString::fromLatin1(address), &error_);
    EXPECT_TRUE(is_open || !error_.contains(u"--expose"_s)) << address;
  }
  lines_.SetExposed(true);
  EXPECT_TRUE(lines_.OpenTcp(u"0.0.0.0:0"_s, &error_)) << error_.toStdString();
}

TEST_F(PanelLinesTest, AnAddressWithColonsStandsInBrackets) {
  if (!lines_.OpenTcp(u"[::1]:0"_s, &error_)) GTEST_SKIP() << error_.toStdString();
  EXPECT_EQ(lines_.Descriptions(), QStringList{u"listening on tcp [::1]:%1"_s.arg(Port())});
}

TEST_F(PanelLinesTest, UnpluggedNobodyIsAnsweredUntilPluggedInAgain) {
  QTemporaryDir folder;
  const QString link = folder.filePath(u"panels"_s);
  ASSERT_TRUE(lines_.OpenTcp(u"0"_s, &error_)) << error_.toStdString();
  ASSERT_TRUE(lines_.OpenPty(link, &error_)) << error_.toStdString();
  const quint16 port = Port();
  QTcpSocket socket;
  socket.connectToHost(u"127.0.0.1"_s, port);
  ASSERT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::ConnectedState; }));

  const QSignalSpy opened(&lines_, &PanelLines::Opened);
  const QSignalSpy failed(&lines_, &PanelLines::Failed);
  const QSignalSpy closed(&lines_, &PanelLines::Closed);
  lines_.SetPlugged(false);
  EXPECT_FALSE(lines_.IsPlugged());
  EXPECT_EQ(lines_.Descriptions(), (QStringList{u"tcp 127.0.0.1:%1 unplugged"_s.arg(port),
                                                u"pty %1 unplugged"_s.arg(link)}));
  ASSERT_EQ(closed.count(), 2);
  EXPECT_EQ(closed[0][0].toString(), lines_.Descriptions().value(0));
  EXPECT_EQ(closed[1][0].toString(), lines_.Descriptions().value(1));
  // Once more is no different.
  lines_.SetPlugged(false);
  EXPECT_EQ(closed.count(), 2);
  EXPECT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  socket.connectToHost(u"127.0.0.1"_s, port);
  EXPECT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_FALSE(QFile::exists(link));

  lines_.SetPlugged(true);
  EXPECT_EQ(opened.count(), 2);
  EXPECT_EQ(failed.count(), 0);
  EXPECT_EQ(Port(), port);
  EXPECT_EQ(lines_.Descriptions().value(0), u"listening on tcp 127.0.0.1:%1"_s.arg(port));
  EXPECT_EQ(Poll(port), "<ID1A>\r\n");
  EXPECT_TRUE(QFile::exists(link));
  // Once more is no different.
  lines_.SetPlugged(true);
  EXPECT_EQ(opened.count(), 2);
}

TEST_F(PanelLinesTest, APortThatIsTakenMeanwhileIsOpenedAsSoonAsItIsFree) {
  ASSERT_TRUE(lines_.OpenTcp(u"0"_s, &error_)) << error_.toStdString();
  const quint16 port = Port();
  lines_.SetPlugged(false);
  const QSignalSpy failed(&lines_, &PanelLines::Failed);
  {
    QTcpServer other;
    ASSERT_TRUE(other.listen(QHostAddress(QHostAddress::LocalHost), port));
    lines_.SetPlugged(true);
    EXPECT_EQ(failed.count(), 1);
    EXPECT_EQ(lines_.Descriptions(), QStringList{u"tcp 127.0.0.1:%1 cannot be opened"_s.arg(port)});
    // Unplugged is unplugged, whatever was wrong before.
    lines_.SetPlugged(false);
    EXPECT_EQ(lines_.Descriptions(), QStringList{u"tcp 127.0.0.1:%1 unplugged"_s.arg(port)});
    lines_.SetPlugged(true);
    EXPECT_EQ(failed.count(), 2);
    // It is tried again and again, and said once.
    auto* again = lines_.findChild<QTimer*>(u"again"_s);
    const QSignalSpy attempts(again, &QTimer::timeout);
    again->setInterval(1);
    again->start();
    EXPECT_TRUE(WaitUntil([&] { return attempts.count() >= 3; }));
    EXPECT_EQ(failed.count(), 2);
  }
  EXPECT_TRUE(WaitUntil([&] { return Port() == port; }));
  EXPECT_EQ(Poll(port), "<ID1A>\r\n");
}

TEST_F(PanelLinesTest, ATerminalThatAFaultHasPulledIsPluggedInAgain) {
  QTemporaryDir folder;
  const QString link = folder.filePath(u"panels"_s);
  ASSERT_TRUE(lines_.OpenPty(link, &error_)) << error_.toStdString();
  Faults faults;
  faults.close_after_frame = 1;
  engine_.SetFaults(faults);
  const QSignalSpy opened(&lines_, &PanelLines::Opened);
  QStringList closed;
  QObject::connect(&lines_, &PanelLines::Closed, [&](const QString& description) {
    closed.append(description);
    EXPECT_EQ(lines_.Descriptions(), QStringList{description});
  });
  QFile terminal(link);
  ASSERT_TRUE(terminal.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
  terminal.write("<ID1A><?>\n");
  EXPECT_TRUE(WaitUntil([&] { return opened.count() > 0; }));
  EXPECT_EQ(closed, QStringList{u"pty %1 unplugged"_s.arg(link)});
  EXPECT_TRUE(QFile::exists(link));
}

TEST_F(PanelLinesTest, WhatAFaultHasPulledIsNotSaidOnceMoreWhenItIsUnplugged) {
  QTemporaryDir folder;
  const QString link = folder.filePath(u"panels"_s);
  ASSERT_TRUE(lines_.OpenPty(link, &error_)) << error_.toStdString();
  Faults faults;
  faults.close_after_frame = 1;
  engine_.SetFaults(faults);
  const QSignalSpy closed(&lines_, &PanelLines::Closed);
  QFile terminal(link);
  ASSERT_TRUE(terminal.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
  terminal.write("<ID1A><?>\n");
  ASSERT_TRUE(WaitUntil([&] { return closed.count() > 0; }));
  lines_.SetPlugged(false);
  EXPECT_EQ(closed.count(), 1);
  EXPECT_EQ(lines_.Descriptions(), QStringList{u"pty %1 unplugged"_s.arg(link)});
}

TEST_F(PanelLinesTest, AnAdapterThatIsPulledIsSaidAndPluggedInAgain) {
  PtyLine adapter(&engine_);
  QTemporaryDir folder;
  const QString device = folder.filePath(u"adapter"_s);
  ASSERT_TRUE(adapter.Open(device)) << adapter.ErrorString().toStdString();
  ASSERT_TRUE(lines_.OpenSerial(device, 19200, &error_)) << error_.toStdString();
  const QString name = u"serial %1 at 19200 baud"_s.arg(device);
  EXPECT_EQ(lines_.Descriptions(), QStringList{name});

  // Whoever unplugs it himself hears of no failure.
  const QSignalSpy opened(&lines_, &PanelLines::Opened);
  const QSignalSpy failed(&lines_, &PanelLines::Failed);
  const QSignalSpy closed(&lines_, &PanelLines::Closed);
  lines_.SetPlugged(false);
  EXPECT_EQ(lines_.Descriptions(), QStringList{name + u" unplugged"_s});
  EXPECT_EQ(closed.count(), 1);
  EXPECT_EQ(failed.count(), 0);
  lines_.SetPlugged(true);
  EXPECT_EQ(lines_.Descriptions(), QStringList{name});
  EXPECT_EQ(opened.count(), 1);

  adapter.Unplug();
  ASSERT_TRUE(WaitUntil([&] { return failed.count() > 0; }));
  EXPECT_TRUE(failed[0][0].toString().startsWith(u"serial port %1: "_s.arg(device)));
  ASSERT_EQ(closed.count(), 2);
  EXPECT_EQ(closed[1][0].toString(), name + u" unplugged"_s);
  ASSERT_TRUE(adapter.Open(device)) << adapter.ErrorString().toStdString();
  EXPECT_TRUE(WaitUntil([&] { return opened.count() == 2; }));
  EXPECT_EQ(lines_.Descriptions(), QStringList{name});
}

TEST_F(PanelLinesTest, RefusesADeviceThatIsNotThere) {
  EXPECT_FALSE(lines_.OpenSerial(u"/dev/nonexistent"_s, 9600, &error_));
  EXPECT_TRUE(error_.startsWith(u"serial port /dev/nonexistent: "_s));
  EXPECT_FALSE(lines_.OpenPty(u"/nonexistent/folder/panels"_s, &error_));
  EXPECT_TRUE(error_.startsWith(u"pseudo-terminal "_s));
}

}  // namespace
}  // namespace VirtualPanel
