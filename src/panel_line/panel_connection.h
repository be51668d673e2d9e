// The link of a window that sends: its serial port, its socket and its tick timer, opened for one
// transmission by the send mode of the configuration.
#pragma once

#include <QObject>

#include "panel_line/serial_link.h"
#include "panel_line/tcp_link.h"
#include "panel_line/tick_timer.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Brivon1 {

class PanelConnection : public QObject {
  Q_OBJECT

 public:
  explicit PanelConnection(QObject* parent);

  /// Opens the serial port, or connects to `endpoint`, as `mode` says. False when that fails; also
  /// for an unusable endpoint and for kNone, which opens nothing.
  bool Open(SendMode mode, const Configuration& configuration, const TcpEndpoint& endpoint);

  /// Closes whatever is open when everything written to it has left.
  void Close();

  /// The link that Open() opened last.
  PanelLink& Link() { return *link_; }
  TickTimer& Timer() { return timer_; }
  MillisecondClock& Clock() { return clock_; }

  /// Why Open() failed, in words for the operator; empty when there is nothing to say.
  QString FailureReason() const { return failure_reason_; }

 private:
  EventWaiter waiter_;
  WindowTickTimer timer_;
  EventClock clock_;
  SerialLink serial_;
  TcpLink tcp_;
  PanelLink* link_ = &serial_;
  QString failure_reason_;
};

}  // namespace Brivon1
