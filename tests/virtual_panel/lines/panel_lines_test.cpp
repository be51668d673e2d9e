// TCP and serial lines by their names, unplugged and plugged in; a port that another program has.
#include <QSignalSpy>
#include <QTcpServer>
#include <QTimer>

#include "lines/panel_lines_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

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

TEST_F(PanelLinesTest, RefusesADeviceThatIsNotThere) {
  EXPECT_FALSE(lines_.OpenSerial(u"/dev/nonexistent"_s, 9600, &error_));
  EXPECT_TRUE(error_.startsWith(u"serial port /dev/nonexistent: "_s));
}

}  // namespace
}  // namespace VirtualPanel
