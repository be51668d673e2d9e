// What the system does with the bytes that a line sends: how many it takes at once, and how many of
// them it still holds.
#pragma once

#include <optional>

#include <QByteArrayView>
#include <QtGlobal>

class QSerialPort;

namespace Brivon1 {

/// Hands as many of `bytes` to the system as it has room for, without waiting, and returns their
/// number; nothing when the port is gone. The toolkit's own way takes a full buffer for a port that
/// is gone.
std::optional<qsizetype> WriteWhatFits(QSerialPort& port, QByteArrayView bytes);

/// How many bytes the system holds that the descriptor of an open line has been given and that have
/// not left; 0 where it cannot tell, as on a pseudo-terminal.
qint64 BytesInSystem(qintptr descriptor);

}  // namespace Brivon1
