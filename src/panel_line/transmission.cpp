#include "panel_line/transmission.h"

#include "panel_line/framing.h"
#include "panel_line/waits.h"

namespace Brivon1 {
namespace {

constexpr qsizetype kMostDiscarded = 1 << 20;

}  // namespace

void DiscardInput(PanelLink& link) {
  qsizetype discarded = 0;
  while (discarded < kMostDiscarded) {
    const qsizetype size = link.ReadAvailable().size();
    if (size == 0) return;
    discarded += size;
  }
}

bool SendUntilAcknowledged(Transmission& transmission, int id, const QByteArray& frame,
                           const std::function<void()>& before, int sending_time) {
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    if (!MaySend(transmission.link, transmission.timer)) break;
    before();
    transmission.link.Write(frame);
    if (sending_time > 0) WaitTicks(transmission.timer, sending_time);
    if (WaitForAck(transmission.link, transmission.timer, id)) return true;
  }
  return false;
}

bool HasArrived(Transmission& transmission, int id) {
  if (id != 0 && transmission.link.Unsent() == 0) return true;
  return MaySend(transmission.link, transmission.timer) &&
         DrainLink(transmission.link, transmission.clock);
}

}  // namespace Brivon1
