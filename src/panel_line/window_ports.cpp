#include "panel_line/window_ports.h"

namespace Brivon1 {

WindowPorts::WindowPorts(QObject* parent)
    : QObject(parent), timer_(this, waiter_), clock_(waiter_), serial_(this), tcp_(this) {
  connect(&serial_, &SerialLink::Happened, this, [this] { waiter_.Wake(); });
  connect(&tcp_, &TcpLink::Happened, this, [this] { waiter_.Wake(); });
}

}  // namespace Brivon1
