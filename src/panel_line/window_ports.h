// The real ports of a window that sends, and its real time: what a PanelConnection works with
// outside of tests.
#pragma once

#include <QObject>

#include "panel_line/panel_connection.h"
#include "panel_line/serial_link.h"
#include "panel_line/tcp_link.h"
#include "panel_line/tick_timer.h"

namespace Brivon1 {

class WindowPorts : public QObject {
  Q_OBJECT

 public:
  explicit WindowPorts(QObject* parent);

  PanelPorts Ports() { return {serial_, tcp_, timer_, clock_}; }

 private:
  EventWaiter waiter_;
  WindowTickTimer timer_;
  EventClock clock_;
  SerialLink serial_;
  TcpLink tcp_;
};

}  // namespace Brivon1
