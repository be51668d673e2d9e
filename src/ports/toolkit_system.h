// What the toolkit's serial port leaves to each system: writing what there is room for, and no
// more.
#pragma once

#include <optional>

#include <QByteArrayView>
#include <QtGlobal>

class QSerialPort;

namespace Ports {

/// What the system knows an open port by; -1 where only the toolkit can use it.
qintptr Descriptor(const QSerialPort& port);

/// Hands as many of `bytes` to the system as it has room for, without waiting, and returns their
/// number; nothing when the port is gone.
std::optional<qsizetype> WriteWhatFits(QSerialPort& port, QByteArrayView bytes);

}  // namespace Ports
