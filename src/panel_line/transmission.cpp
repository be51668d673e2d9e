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

bool SendUntilAcknowledged(OpenLine& line, int id, const QByteArray& frame,
                           const std::function<void()>& before, int sending_time) {
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    if (!MaySend(line.link, line.timer)) break;
    before();
    line.link.Write(frame);
    if (sending_time > 0) WaitTicks(line.timer, sending_time);
    if (WaitForAck(line.link, line.timer, id)) return true;
  }
  return false;
}

bool HasArrived(OpenLine& line, int id) {
  if (id != 0 && line.link.Unsent() == 0) return true;
  return MaySend(line.link, line.timer) && DrainLink(line.link, line.clock);
}

}  // namespace Brivon1
