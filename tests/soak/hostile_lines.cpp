#include "soak/hostile_lines.h"

#include <QTest>

using namespace Qt::StringLiterals;

HostileLines::HostileLines(Random& random)
    : panels_({{1, 2, 96, true}, {26, 4, 128, true}, {200, 12, 64, false}}),
      engine_(panels_),
      tcp_(&engine_),
      pty_(&engine_) {
  if (!tcp_.Listen()) qFatal("cannot listen on loopback");
  Fill(random);
  QObject::connect(
      &engine_, &VirtualPanel::PanelEngine::FrameReceived,
      [this](const VirtualPanel::FrameRecord& record) { received_.append(record.bytes); });
}

void HostileLines::Fill(Random& random) {
  while (engine_.FrameCount() < VirtualPanel::TrafficRecord::kMostFrames) {
    const Work work = RandomWork(random, random.OneOf(panels_), folder_, engine_.FrameCount());
    for (const QByteArray& frame : work.frames) engine_.Receive(frame);
  }
}

void HostileLines::Begin(bool over_tcp, const VirtualPanel::Faults& faults) {
  engine_.SetFaults(faults);
  const QString device = folder_.Path(u"panel-line"_s);
  if (!pty_.IsPlugged() && !pty_.Open(device)) qFatal("cannot open a pseudo-terminal");
  QByteArray ini = "[Dimension Config]\r\n";
  for (const auto& panel : panels_) {
    ini += "ID" + QByteArray::number(panel.id).rightJustified(3, '0') + '=' +
           QByteArray::number(panel.rows) + 'x' + QByteArray::number(panel.columns) +
           (panel.tri_colour ? ",Tri" : ",Mono") + ",127.0.0.1:" + QByteArray::number(tcp_.Port()) +
           "\r\n";
  }
  folder_.Configure(ini + "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=" +
                    (over_tcp ? "TCPIP" : "RS232") +
                    "\r\nDelay Period=0\r\n[Serial Ports]\r\nCom2=" + device.toLocal8Bit() +
                    "\r\n");
  received_.clear();
}

void HostileLines::Cut() {
  tcp_.DropConnections();
  pty_.Unplug();
}

bool HostileLines::IsReleased() {
  return QTest::qWaitFor([this] { return tcp_.ConnectionCount() == 0 && !pty_.IsInUse(); });
}
