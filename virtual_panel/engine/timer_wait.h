// How long a timer waits for a moment that may be weeks away.
#pragma once

#include <QDateTime>

#include "engine/schedule.h"

namespace VirtualPanel {

// In milliseconds, a day at most: whoever is woken too early looks again.
inline int TimerWait(const QDateTime& now, const QDateTime& moment) {
  constexpr qint64 kMostMs = qint64{24} * 60 * kMinuteMs;
  return static_cast<int>(qMin(now.msecsTo(moment), kMostMs));
}

}  // namespace VirtualPanel
