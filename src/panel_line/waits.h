// The waits on which all pacing of the panel protocol rests. They keep the window alive, sleep
// until something happens, and end early only when the line is lost, the program ends or, but for
// an acknowledgement that is awaited already, the operator stops the transmission.
#pragma once

#include <functional>

#include "panel_line/link.h"

namespace Brivon1 {

/// The tick counter at which an acknowledgement wait gives up; with 100 ms ticks, after 1100 ms.
inline constexpr qint16 kAckTimeout = 1001;

/// How often a frame that expects an acknowledgement is sent before it counts as failed.
inline constexpr int kAttempts = 5;

/// Waits for the acknowledgement of panel `id` and sets the timer's last_ack_status. True when
/// exactly the eight expected bytes arrived, and at once, without reading, for panel 0, which never
/// answers. Any other eight bytes end the wait with false and status 0; more or fewer than eight
/// run into the time-out, false and status -1, as a lost line does at once.
bool WaitForAck(PanelLink& link, TickTimer& timer, int id);

/// Whether sending a frame makes sense: the line is not lost, the program is not ending, and nobody
/// has asked for a stop.
bool MaySend(const PanelLink& link, const TickTimer& timer);

/// Waits until the given number of milliseconds of ticks has passed, 0 to kLongestDelayPeriod, or a
/// stop is asked for.
void WaitTicks(TickTimer& timer, int milliseconds);

/// Waits until everything that was written to `link` has left, for as long as a line of its speed
/// needs for that and two seconds more. False when the line is lost, the time is over, the program
/// ends or a stop is asked for; the last three close the line, since what it has not taken by then
/// is given up, after a stop not before the frame has its line end. Meanwhile `left` is told, again
/// and again, how many milliseconds it still needs.
bool DrainLink(PanelLink& link, MillisecondClock& clock, const StopRequest& stop = {},
               const std::function<void(qint64 milliseconds)>& left = {});

/// Waits until the given number of milliseconds has passed on the clock. False when the program's
/// end or a stop cut the wait short; a stop is noticed within a tick.
bool WaitMilliseconds(MillisecondClock& clock, qint64 milliseconds, const StopRequest& stop = {});

}  // namespace Brivon1
