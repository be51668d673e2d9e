// Sending a file to one panel over an open link, one acknowledged frame after the other.
#pragma once

#include <functional>
#include <optional>

#include <QByteArray>
#include <QList>
#include <QString>

#include "core/configuration_store.h"
#include "core/file_checks.h"
#include "core/link.h"

namespace Brivon1 {

/// Shows how a transmission proceeds.
using StatusLabel = std::function<void(const QString& text)>;

/// What a transmission works with. The caller opens the link before, closes it afterwards, and
/// reports the result.
struct Transmission {
  PanelLink& link;
  TickTimer& timer;
  MillisecondClock& clock;
  const Configuration& configuration;
  StatusLabel status;
};

/// Throws away what has been received and not read: bytes left over from an earlier exchange would
/// be counted into the next acknowledgement. A panel that never stops sending is not waited for.
void DiscardInput(PanelLink& link);

/// Sends `frame` up to five times without a pause, until panel `id` acknowledges it. `before` is
/// called ahead of every attempt. Between sending and waiting for the acknowledgement,
/// `sending_time` milliseconds of ticks are left to the frame. A lost line ends the attempts.
bool SendUntilAcknowledged(Transmission& transmission, int id, const QByteArray& frame,
                           const std::function<void()>& before, int sending_time = 0);

/// Whether what panel `id` was sent has arrived, as far as it can be known. A panel has
/// acknowledged it. Nobody acknowledges what goes to all panels, ID 0: it must have left, which is
/// waited for.
bool HasArrived(Transmission& transmission, int id);

/// The frames that carry the rows of a page message file to panel `id` as page `page`, in row
/// order, or nothing for a file that is refused: no message file, made for another dimension than
/// `panel`, rows outside 1 to 12, columns below 5, or fewer row lines than rows. For `colour_type`
/// kMono the colour codes are taken out.
std::optional<QList<QByteArray>> MessageFrames(const QString& path, int id, const QByteArray& page,
                                               Dimension panel, qint16 colour_type);

/// Sends a page message file to panel `id` as page `page` (the digits as they go on the wire).
/// Every frame is built before the first byte leaves. True when all rows were acknowledged; false
/// for a refused file, with nothing sent, and at the first row without an acknowledgement, with no
/// further row sent. Shows no message.
bool SendMessageFile(Transmission& transmission, const QString& path, int id,
                     const QByteArray& page, Dimension panel);

}  // namespace Brivon1
