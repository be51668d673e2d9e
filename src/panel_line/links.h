// Opening and closing the link of one transmission: the serial port of the configuration, or a TCP
// connection to a panel's own address.
#pragma once

#include <functional>

#include "panel_line/link.h"
#include "store/configuration_store.h"

namespace Brivon1 {

/// How long a panel may take to accept a connection, in milliseconds. There is one check.
inline constexpr qint64 kConnectTime = 500;

/// A panel beside the PC answers within a millisecond: the first read behind a frame waits for
/// that, which is cheaper than a round through the event loop.
inline constexpr int kPromptAnswer = 1;

/// The settings text for a serial port, such as `9600,N,8,1`.
QByteArray SerialSettings(int baud_rate);

/// Opens the configured port at the configured speed, 8 data bits, no parity, 1 stop bit, with the
/// control lines that are configured for it. False on any error.
bool OpenSerialPort(SerialPort& port, const Configuration& configuration);

/// Closes the port, if it is open, when everything written to it has left, or with `stop` at once;
/// always true. `left` is told how long that takes, as DrainLink() tells it.
bool CloseSerialPort(SerialPort& port, MillisecondClock& clock, const StopRequest& stop = {},
                     const std::function<void(qint64 milliseconds)>& left = {});

/// Requests a connection to `host`:`port`, waits kConnectTime, and returns whether it stands then;
/// false when the program ends before or a stop is asked for.
bool OpenTcpLink(TcpSocket& socket, MillisecondClock& clock, const QString& host, int port,
                 const StopRequest& stop = {});

/// Closes the socket, unless it is closed, as CloseSerialPort() does; always true.
bool CloseTcpLink(TcpSocket& socket, MillisecondClock& clock, const StopRequest& stop = {},
                  const std::function<void(qint64 milliseconds)>& left = {});

}  // namespace Brivon1
