#include "support/panel_bench.h"

#include <QDeadlineTimer>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

std::string LineName(const testing::TestParamInfo<LineKind>& line) {
  return line.param == LineKind::kTcp ? "Tcp" : "Serial";
}

QList<QByteArray> Bench::Frames() const {
  QList<QByteArray> frames;
  for (const VirtualPanel::FrameRecord& record : engine_.Frames()) frames.append(record.bytes);
  return frames;
}

void Bench::Configure(quint16 tcp_port, int delay_period) {
  QByteArray ini = "[Dimension Config]\r\n";
  for (const VirtualPanel::PanelDescription& panel : panels_) {
    ini += u"ID%1=%2x%3,%4,127.0.0.1:%5\r\n"_s.arg(panel.id, 3, 10, QLatin1Char('0'))
               .arg(panel.rows)
               .arg(panel.columns)
               .arg(panel.tri_colour ? u"Tri"_s : u"Mono"_s)
               .arg(tcp_port)
               .toLatin1();
  }
  ini += "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=";
  ini += kind_ == LineKind::kTcp ? "TCPIP" : "RS232";
  ini += "\r\nDelay Period=" + QByteArray::number(delay_period) + "\r\n";
  ini += "[Serial Ports]\r\nCom2=" + Device().toLocal8Bit() + "\r\n";
  folder_.Configure(ini);
}

PanelBench::PanelBench(LineKind kind, const QList<VirtualPanel::PanelDescription>& panels)
    : Bench(kind, panels), tcp_(&Engine()), port_(&Engine()) {
  PlugIn();
  Configure();
}

void PanelBench::Unplug() {
  tcp_port_ = tcp_.Port();
  tcp_.Close();
  port_.Unplug();
}

void PanelBench::PlugIn() {
  if (kind_ == LineKind::kSerial) {
    EXPECT_TRUE(port_.IsPlugged() || port_.Open(Device())) << "no pseudo-terminal";
    return;
  }
  // Another program may have the freed port for a moment.
  const QDeadlineTimer deadline(5000);
  while (tcp_.Port() == 0 && !tcp_.Listen(QHostAddress(QHostAddress::LocalHost), tcp_port_)) {
    if (deadline.hasExpired()) qFatal("cannot listen on loopback");
    QThread::msleep(20);
  }
}

bool PanelBench::IsReleased() {
  return kind_ == LineKind::kTcp ? QTest::qWaitFor([this] { return tcp_.ConnectionCount() == 0; })
                                 : QTest::qWaitFor([this] { return !port_.IsInUse(); });
}

void PanelBench::Configure(int delay_period) {
  Bench::Configure(tcp_.Port() == 0 ? 9 : tcp_.Port(), delay_period);
}

VirtualBench::VirtualBench(LineKind kind, const QList<VirtualPanel::PanelDescription>& panels)
    : Bench(kind, panels), serial_(Engine(), time_, u"serial"_s), tcp_(Engine(), time_, u"tcp"_s) {
  PlugIn();
  Configure(kPort, 0);
}

void VirtualBench::Unplug() {
  serial_.Unplug();
  tcp_.Unplug();
}

void VirtualBench::PlugIn() {
  if (kind_ == LineKind::kSerial) {
    serial_.PlugIn();
  } else {
    tcp_.PlugIn();
  }
}

void VirtualBench::OnOpen(const std::function<void()>& opened) {
  serial_.on_open = opened;
  tcp_.on_open = opened;
}

void VirtualBench::OnClose(const std::function<void()>& closing) {
  serial_.on_close = closing;
  tcp_.on_close = closing;
}

QByteArray SampleMessageFile(int rows, int columns) {
  QByteArray file = "*** Brivon Message File ***\r\nRow = " + QByteArray::number(rows) +
                    "\r\nCol = " + QByteArray::number(columns) + "\r\n";
  for (int row = 1; row <= rows; ++row) {
    const QByteArray number = QByteArray::number(row).rightJustified(2, '0');
    file +=
        "<L" + number + "><SA><C" + static_cast<char>('A' + row - 1) + ">Row " + number + "\r\n";
  }
  return file;
}
