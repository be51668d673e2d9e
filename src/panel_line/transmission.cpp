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
  line.progress.attempt = 0;
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    if (!MaySend(line.link, line.timer)) break;
    line.progress.attempt = attempt;
    line.Report();
    before();
    line.link.Write(frame);
    if (sending_time > 0) WaitTicks(line.timer, sending_time);
    if (WaitForAck(line.link, line.timer, id)) return true;
  }
  return false;
}

bool HasArrived(OpenLine& line, int id, const std::function<void()>& look) {
  if (id != 0 && line.link.Unsent() == 0) return true;
  if (!MaySend(line.link, line.timer)) return false;
  bool is_given_up = false;
  const auto report = [&](qint64 milliseconds) {
    if (look && !is_given_up) look();
    is_given_up = line.timer.stop.made;
    line.progress.milliseconds_left = milliseconds;
    line.Report();
  };
  const bool has_arrived = DrainLink(line.link, line.clock, line.timer.stop, report);
  line.progress.milliseconds_left = -1;
  return has_arrived;
}

}  // namespace Brivon1
