// What only the toolkit's own port shows: its settings as it holds them, and what it refuses.
#include <algorithm>

#include <QCoreApplication>
#include <QSerialPort>
#include <QSocketNotifier>

#include <gtest/gtest.h>

#include "panel_line/links.h"
#include "panel_line/serial_link.h"
#include "panel_line/tick_timer.h"
#include "support/raw_terminal.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class ToolkitPortTest : public testing::Test {
 protected:
  RawTerminal terminal_;
  EventWaiter waiter_;
  EventClock clock_{waiter_};
  SerialLink link_{nullptr};
};

TEST_F(ToolkitPortTest, ThePortStandsAtItsSpeedAndFormatWhenItIsOpened) {
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
TEST_F(ToolkitPortTest, APortWithoutControlLinesGoesOnWithoutThem) {
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

TEST_F(ToolkitPortTest, AFrameBehindOneThatWaitsIsWaitedForAsleepToo) {
  ASSERT_TRUE(link_.Open(terminal_.Device(), "9600,N,8,1"));
  const auto is_asleep = [this] {
    const auto notifiers = link_.findChildren<QSocketNotifier*>();
    return std::any_of(notifiers.begin(), notifiers.end(), [](const QSocketNotifier* notifier) {
      return notifier->type() == QSocketNotifier::Write && notifier->isEnabled();
    });
  };
  link_.Write(QByteArray(100'000, 'x'));
  EXPECT_TRUE(is_asleep());
  link_.Write("<ID1A><?>\r\n");
  EXPECT_TRUE(is_asleep());
  link_.GiveUp();
}

}  // namespace
}  // namespace Brivon1
