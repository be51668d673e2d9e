// What Boost's serial port leaves to each system: opening a port exactly as it is wanted, and what
// the system holds of its bytes. There is one source for each system.
#pragma once

#include <cstddef>
#include <string>
// Boost 1.74 takes std::exchange without it.
#include <boost/asio/serial_port.hpp>
#include <utility>

namespace Ports {

enum class ControlLine { kDtr, kRts };

/// Opens the port `name`, in UTF-8, for this program alone: 8 data bits, no parity, 1 stop bit, no
/// flow control, both control lines raised. `port` is closed where it fails.
boost::system::error_code OpenSystemPort(boost::asio::serial_port& port, const std::string& name,
                                         unsigned baud_rate);

/// Lets others open the port that is about to be closed.
void ReleaseSystemPort(boost::asio::serial_port& port);

/// A port that has no such line goes on without it.
void SetControlLine(boost::asio::serial_port& port, ControlLine line, bool raised);

/// How many bytes to ask for where there is room for `room`, so that a read ends as soon as
/// anything has arrived.
std::size_t ReadSize(boost::asio::serial_port& port, std::size_t room);

/// Whether the system holds bytes that nobody has read, or is about to report a loss.
bool HasInput(boost::asio::serial_port& port);

/// How many bytes have not left, those of a write under way among them, of which the system has not
/// said yet how many of its `in_progress` bytes it has taken.
std::size_t BytesOnTheirWay(boost::asio::serial_port& port, std::size_t in_progress);

/// Drops what has not left, and ends a write that is under way. Reading may end with it, and goes
/// on when it is begun again.
void DropOutput(boost::asio::serial_port& port);

}  // namespace Ports
