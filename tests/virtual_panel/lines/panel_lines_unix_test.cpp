// Lines that only Unix systems have: pseudo-terminals, and one as a serial adapter that is pulled.
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include "lines/panel_lines_fixture.h"
#include "lines/pty_line.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

class PanelTerminalsTest : public PanelLinesTest {
 protected:
  // A terminal at link_ whose line goes after the first frame.
  bool OpenTerminalThatAFaultPulls() {
    Faults faults;
    faults.close_after_frame = 1;
    engine_.SetFaults(faults);
    return lines_.OpenPty(link_, &error_);
  }

  static bool Ask(QFile* terminal) {
    return terminal->open(QIODevice::ReadWrite | QIODevice::Unbuffered) &&
           terminal->write("<ID1A><?>\n") > 0;
  }

  QTemporaryDir folder_;
  const QString link_ = folder_.filePath(u"panels"_s);
};

TEST_F(PanelTerminalsTest, UnpluggedNobodyIsAnsweredUntilPluggedInAgain) {
  ASSERT_TRUE(lines_.OpenTcp(u"0"_s, &error_)) << error_.toStdString();
  ASSERT_TRUE(lines_.OpenPty(link_, &error_)) << error_.toStdString();
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
                                                u"pty %1 unplugged"_s.arg(link_)}));
  ASSERT_EQ(closed.count(), 2);
  EXPECT_EQ(closed[0][0].toString(), lines_.Descriptions().value(0));
  EXPECT_EQ(closed[1][0].toString(), lines_.Descriptions().value(1));
  // Once more is no different.
  lines_.SetPlugged(false);
  EXPECT_EQ(closed.count(), 2);
  EXPECT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  socket.connectToHost(u"127.0.0.1"_s, port);
  EXPECT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_FALSE(QFile::exists(link_));

  lines_.SetPlugged(true);
  EXPECT_EQ(opened.count(), 2);
  EXPECT_EQ(failed.count(), 0);
  EXPECT_EQ(Port(), port);
  EXPECT_EQ(lines_.Descriptions().value(0), u"listening on tcp 127.0.0.1:%1"_s.arg(port));
  EXPECT_EQ(Poll(port), "<ID1A>\r\n");
  EXPECT_TRUE(QFile::exists(link_));
  // Once more is no different.
  lines_.SetPlugged(true);
  EXPECT_EQ(opened.count(), 2);
}

TEST_F(PanelTerminalsTest, ATerminalThatAFaultHasPulledIsPluggedInAgain) {
  ASSERT_TRUE(OpenTerminalThatAFaultPulls()) << error_.toStdString();
  const QSignalSpy opened(&lines_, &PanelLines::Opened);
  QStringList closed;
  QObject::connect(&lines_, &PanelLines::Closed, [&](const QString& description) {
    closed.append(description);
    EXPECT_EQ(lines_.Descriptions(), QStringList{description});
  });
  QFile terminal(link_);
  ASSERT_TRUE(Ask(&terminal));
  EXPECT_TRUE(WaitUntil([&] { return opened.count() > 0; }));
  EXPECT_EQ(closed, QStringList{u"pty %1 unplugged"_s.arg(link_)});
  EXPECT_TRUE(QFile::exists(link_));
}

TEST_F(PanelTerminalsTest, WhatAFaultHasPulledIsNotSaidOnceMoreWhenItIsUnplugged) {
  ASSERT_TRUE(OpenTerminalThatAFaultPulls()) << error_.toStdString();
  const QSignalSpy closed(&lines_, &PanelLines::Closed);
  QFile terminal(link_);
  ASSERT_TRUE(Ask(&terminal));
  ASSERT_TRUE(WaitUntil([&] { return closed.count() > 0; }));
  lines_.SetPlugged(false);
  EXPECT_EQ(closed.count(), 1);
  EXPECT_EQ(lines_.Descriptions(), QStringList{u"pty %1 unplugged"_s.arg(link_)});
}

TEST_F(PanelTerminalsTest, AnAdapterThatIsPulledIsSaidAndPluggedInAgain) {
  PtyLine adapter(&engine_);
  const QString device = folder_.filePath(u"adapter"_s);
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

TEST_F(PanelTerminalsTest, RefusesALinkThatCannotBeMade) {
  EXPECT_FALSE(lines_.OpenPty(u"/nonexistent/folder/panels"_s, &error_));
  EXPECT_TRUE(error_.startsWith(u"pseudo-terminal "_s));
}

}  // namespace
}  // namespace VirtualPanel
