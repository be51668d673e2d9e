#include "ports/toolkit_system.h"

#include <unistd.h>

#include <cerrno>

#include <QSerialPort>

namespace Ports {

qintptr Descriptor(const QSerialPort& port) { return port.handle(); }

// The toolkit's own way takes a full buffer for a port that is gone.
std::optional<qsizetype> WriteWhatFits(QSerialPort& port, QByteArrayView bytes) {
  qsizetype taken = 0;
  while (taken < bytes.size()) {
    const ssize_t size = ::write(port.handle(), bytes.data() + taken,
                                 static_cast<std::size_t>(bytes.size() - taken));
    if (size > 0) {
      taken += size;
    } else if (size == 0 || errno == EAGAIN) {
      break;
    } else if (errno != EINTR) {
      return std::nullopt;
    }
  }
  return taken;
}

}  // namespace Ports
