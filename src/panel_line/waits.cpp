#include "panel_line/waits.h"

#include <algorithm>

#include "panel_line/framing.h"
#include "store/configuration_store.h"

namespace Brivon1 {
namespace {

bool SleepUntilEvent(TickTimer& timer) {
  if (!timer.WaitForEvent()) timer.program_ends = true;
  return !timer.program_ends;
}

/// How long `bytes` take to leave, in milliseconds, ten bits each.
qint64 SendingTime(qint64 bytes, int bits_per_second) {
  return bytes * 10 * 1000 / bits_per_second;
}

/// How long they may take: a quarter more for a line that leaves gaps between them, and two seconds
/// for one that is slow to begin.
qint64 LongestDrain(qint64 bytes, int bits_per_second) {
  constexpr qint64 kGrace = 2000;
  const qint64 sending = SendingTime(bytes, bits_per_second);
  return sending + sending / 4 + kGrace;
}

}  // namespace

void TickTimer::Tick() {
  if (ack_tick_counter < kLongestDelayPeriod) ack_tick_counter += kInterval;
  if (waiting && wait_tick_counter < kLongestDelayPeriod) wait_tick_counter += kInterval;
}

bool WaitForAck(PanelLink& link, TickTimer& timer, int id) {
  timer.ack_tick_counter = 0;
  timer.Enable();
  if (id == 0) {
    timer.last_ack_status = 1;
    return true;
  }
  const QByteArray expected = Acknowledgement(id);
  QByteArray received;
  bool abandoned = false;
  while (true) {
    // Past eight bytes the text can never be eight long again: its length is all that still counts.
    received = (received + link.ReadAvailable()).left(expected.size() + 1);
    if (received.size() == expected.size()) {
      timer.ProcessEvents();
      break;
    }
    if (timer.ack_tick_counter >= kAckTimeout) break;
    abandoned = link.IsLost() || !SleepUntilEvent(timer);
    if (abandoned) break;
  }
  timer.Disable();
  if (abandoned || timer.ack_tick_counter >= kAckTimeout) {
    timer.last_ack_status = -1;
  } else {
    timer.last_ack_status = received == expected ? 1 : 0;
  }
  return timer.last_ack_status == 1;
}

bool MaySend(const PanelLink& link, const TickTimer& timer) {
  return !link.IsLost() && !timer.program_ends && !timer.stop.made;
}

void WaitTicks(TickTimer& timer, int milliseconds) {
  timer.wait_tick_counter = 0;
  timer.waiting = true;
  timer.Enable();
  while (timer.wait_tick_counter < milliseconds && !timer.stop.made && SleepUntilEvent(timer)) {
  }
  timer.Disable();
  timer.waiting = false;
}

bool DrainLink(PanelLink& link, MillisecondClock& clock, const StopRequest& stop,
               const std::function<void(qint64 milliseconds)>& left_for) {
  constexpr qint64 kBetweenLooks = 10;  // nothing says that the system's buffer is empty
  constexpr qint64 kLongestLineEnd = 1000;
  qint64 end = clock.Milliseconds() + LongestDrain(link.Unsent(), link.Speed());
  bool is_given_up = false;
  while (link.Unsent() > 0) {
    if (left_for) left_for(SendingTime(link.Unsent(), link.Speed()));
    if (stop.made && !is_given_up) {
      is_given_up = true;
      link.GiveUp();
      end = clock.Milliseconds() + kLongestLineEnd;
      continue;
    }
    const qint64 left = end - clock.Milliseconds();
    if (left <= 0 || !clock.WaitForEvent(std::min(left, kBetweenLooks))) {
      link.Close();
      return false;
    }
  }
  if (is_given_up) link.Close();
  return !is_given_up && !link.IsLost();
}

bool WaitMilliseconds(MillisecondClock& clock, qint64 milliseconds, const StopRequest& stop) {
  const qint64 noted = clock.Milliseconds();
  for (qint64 passed = 0; passed < milliseconds; passed = clock.Milliseconds() - noted) {
    if (stop.made) return false;
    // Nothing wakes the clock when a stop is asked for.
    if (!clock.WaitForEvent(std::min<qint64>(milliseconds - passed, TickTimer::kInterval))) {
      return false;
    }
  }
  return !stop.made;
}

}  // namespace Brivon1
