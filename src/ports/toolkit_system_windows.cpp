#include "ports/toolkit_system.h"

#include <QSerialPort>

namespace Ports {

qintptr Descriptor(const QSerialPort& /*port*/) { return -1; }

// Here the toolkit writes in the background and keeps what has no room.
std::optional<qsizetype> WriteWhatFits(QSerialPort& port, QByteArrayView bytes) {
  const qint64 taken = port.write(bytes.data(), bytes.size());
  return taken < 0 ? std::nullopt : std::optional<qsizetype>(taken);
}

}  // namespace Ports
