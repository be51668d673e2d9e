#include "ports/asio_system.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <cerrno>

#include "ports/waiting_bytes.h"

namespace Ports {
namespace {

using boost::asio::serial_port_base;
using boost::system::error_code;

error_code LastError() { return {errno, boost::system::system_category()}; }

error_code KeepOthersOut(int file) {
  // The first keeps out everybody else, but for the superuser; the second also another one of ours.
  if (::ioctl(file, TIOCEXCL) != 0) return LastError();
  if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
    return {EBUSY, boost::system::system_category()};
  }
  return {};
}

error_code SetUp(boost::asio::serial_port& port, unsigned baud_rate) {
  error_code error;
  const auto set = [&](const auto& option) {
    if (!error) port.set_option(option, error);
  };
  set(serial_port_base::baud_rate(baud_rate));
  set(serial_port_base::character_size(8));
  set(serial_port_base::parity(serial_port_base::parity::none));
  set(serial_port_base::stop_bits(serial_port_base::stop_bits::one));
  set(serial_port_base::flow_control(serial_port_base::flow_control::none));
  return error;
}

}  // namespace

error_code OpenSystemPort(boost::asio::serial_port& port, const std::string& name,
                          unsigned baud_rate) {
  const bool is_path = name.empty() || name.find('/') != std::string::npos;
  error_code error;
  port.open(is_path ? name : "/dev/" + name, error);
  if (error) return error;
  // A program that is started meanwhile would keep the port, and the lock, for as long as it runs.
  ::fcntl(port.native_handle(), F_SETFD, FD_CLOEXEC);
  error = KeepOthersOut(port.native_handle());
  if (!error) {
    error = SetUp(port, baud_rate);
    if (error) ReleaseSystemPort(port);
  }
  error_code ignored;
  if (error) port.close(ignored);
  return error;
}

void ReleaseSystemPort(boost::asio::serial_port& port) {
  ::ioctl(port.native_handle(), TIOCNXCL);
  ::flock(port.native_handle(), LOCK_UN);
}

void SetControlLine(boost::asio::serial_port& port, ControlLine line, bool raised) {
  const int bit = line == ControlLine::kDtr ? TIOCM_DTR : TIOCM_RTS;
  ::ioctl(port.native_handle(), raised ? TIOCMBIS : TIOCMBIC, &bit);
}

std::size_t ReadSize(boost::asio::serial_port& /*port*/, std::size_t room) { return room; }

bool HasInput(boost::asio::serial_port& port) { return HasWaitingInput(port.native_handle()); }

std::size_t BytesOnTheirWay(boost::asio::serial_port& port, std::size_t in_progress) {
  return in_progress + static_cast<std::size_t>(BytesInSystem(port.native_handle()));
}

void DropOutput(boost::asio::serial_port& port) {
  error_code ignored;
  port.cancel(ignored);
  ::tcflush(port.native_handle(), TCOFLUSH);
}

}  // namespace Ports
