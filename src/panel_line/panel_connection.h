// The connection of a window that sends: one of its ports, opened for one transmission by the send
// mode of the configuration.
#pragma once

#include <functional>

#include <QString>

#include "panel_line/link.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Brivon1 {

/// What a window that sends has of the outside world. All of it outlives whoever uses it.
struct PanelPorts {
  SerialPort& serial;
  TcpSocket& tcp;
  TickTimer& timer;
  MillisecondClock& clock;
};

class PanelConnection {
 public:
  explicit PanelConnection(const PanelPorts& ports) : ports_(ports) {}

  /// Opens the serial port, or connects to `endpoint`, as `mode` says. False when that fails; also
  /// for an unusable endpoint, for kNone, which opens nothing, and when a stop is asked for.
  bool Open(SendMode mode, const Configuration& configuration, const TcpEndpoint& endpoint);

  /// Closes whatever is open when everything written to it has left, or the timer's stop is made.
  /// `left` is told how long that takes, as DrainLink() tells it.
  void Close(const std::function<void(qint64 milliseconds)>& left = {});

  /// The link that Open() opened last.
  PanelLink& Link() { return *link_; }
  TickTimer& Timer() { return ports_.timer; }
  MillisecondClock& Clock() { return ports_.clock; }

  /// Why Open() failed, in words for the operator; empty when there is nothing to say.
  QString FailureReason() const { return failure_reason_; }

 private:
  PanelPorts ports_;
  PanelLink* link_ = &ports_.serial;
  QString failure_reason_;
};

}  // namespace Brivon1
