// The port of Boost.Asio by itself: closed, and where bytes arrive that nobody reads.
#include "ports/async_port.h"

#include <QTest>

#include <gtest/gtest.h>

#include "support/raw_terminal.h"
#include "support/wait_until.h"

namespace Ports {
namespace {

TEST(AsyncPort, ThatIsClosedHoldsNothingAndTakesNothing) {
  AsyncPort port([] { FAIL(); }, 100);
  EXPECT_FALSE(port.IsOpen());
  port.SetDtr(false);
  port.SetRts(false);
  port.Write("x", 1);
  port.Discard();
  port.Close();
  EXPECT_FALSE(port.IsOpen());
  EXPECT_FALSE(port.IsLost());
  EXPECT_EQ(port.Waiting(), 0);
  EXPECT_EQ(port.Unsent(), 0);
  EXPECT_EQ(port.Read(0), "");
  EXPECT_EQ(port.Reason(), "");
  const AsyncPort::News news = port.TakeNews();
  EXPECT_FALSE(news.has_input || news.has_left);
}

TEST(AsyncPort, TakesNoMoreInThanItMayHoldUntilSomebodyReads) {
  constexpr qsizetype kFlood = 1 << 20;  // many times what a system holds for a terminal
  RawTerminal terminal;
  AsyncPort port({}, 100);
  ASSERT_TRUE(port.Open(terminal.Device().toStdString(), 9600));
  qsizetype sent = 0;
  for (int idle = 0; idle < 50 && sent < kFlood; ++idle) {
    const qsizetype size = terminal.SendWhatFits(QByteArray(4096, 'x'));
    if (size > 0) idle = 0;
    sent += size;
    QTest::qWait(2);
  }
  EXPECT_LT(sent, kFlood);
  // What it has not taken in is not lost.
  qsizetype read = 0;
  EXPECT_TRUE(WaitUntil([&] {
    read += static_cast<qsizetype>(port.Read(0).size());
    return read >= sent;
  }));
  EXPECT_EQ(read, sent);
}

}  // namespace
}  // namespace Ports
