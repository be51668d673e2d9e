// A schedule of a panel: what a frame says of it, which of several is due at which minute of the
// week, and which of its pages is on at which moment. Nothing here knows a panel or a clock.
#pragma once

#include <optional>

#include <QByteArrayView>
#include <QList>
#include <QMap>
#include <QString>

#include "panel_dots/page_loop.h"

namespace VirtualPanel {

inline constexpr char kFirstScheduleLetter = 'A';
inline constexpr char kLastScheduleLetter = 'J';

struct ScheduleEntry {
  int page = 0;        // 0 to 999
  int delay = 0;       // in seconds; 0 is shown for one second, or it would never be seen
  char feature = 'A';  // the effect by which the page appears: A to H

  friend bool operator==(const ScheduleEntry&, const ScheduleEntry&) = default;
};

struct Schedule {
  std::optional<int> weekday;  // 0 Sunday to 6 Saturday; none: every day
  std::optional<int> hour;     // none: every hour
  std::optional<int> minute;   // none: every minute
  QList<ScheduleEntry> entries;

  friend bool operator==(const Schedule&, const Schedule&) = default;
};

using Schedules = QMap<char, Schedule>;  // by letter

// Reads what follows the letter in a schedule frame: the weekday ("*" or a digit), the hour and the
// minute ("**" or two digits), and one or more entries joined by ",": a page of three digits, a
// delay of two to five, a feature code. Anything else is no schedule.
std::optional<Schedule> ParseSchedule(QByteArrayView text);

// "Wipe Right" for D; empty for a letter that is no feature code.
QString EffectName(char feature);

// As they stand in a frame: "*" or the digit; "**" or two digits.
QString WeekdayCode(const Schedule& schedule);
QString HourCode(const Schedule& schedule);
QString MinuteCode(const Schedule& schedule);
// For a reader: "Mon 08:30", "daily 08:**".
QString ScheduleTime(const Schedule& schedule);

// The page that is on when a schedule has been playing for so long.
using EntryAtTime = PanelDots::PageAtTime;
EntryAtTime EntryAt(const Schedule& schedule, qint64 elapsed_ms);

// Minutes of a week, from Sunday 00:00.
inline constexpr qint64 kMinutesOfWeek = qint64{7} * 24 * 60;
inline constexpr qint64 kMinuteMs = 60'000;

// The schedule to which a minute of the week belongs: of those that match it the one that names
// more of weekday, hour and minute; of equal ones the one that names the weekday, then the hour;
// then the lowest letter.
std::optional<char> OwnerOf(const Schedules& schedules, qint64 minute_of_week);

// The minute of the week of a wall-clock reading in milliseconds since 1970.
qint64 MinuteOfWeek(qint64 clock_ms);

// A slot: minutes in a row that belong to one schedule. It begins with its first minute.
struct SlotBeginning {
  char letter = kFirstScheduleLetter;
  qint64 clock_ms = 0;

  friend bool operator==(const SlotBeginning&, const SlotBeginning&) = default;
};

// Where slots begin in a week, worked out once for a set of schedules.
class WeekPlan {
 public:
  WeekPlan() = default;
  explicit WeekPlan(const Schedules& schedules);

  // The last beginning at or before a wall-clock reading, the first one behind it. None if no slot
  // ever begins: there is no schedule, or every minute belongs to the same one.
  std::optional<SlotBeginning> LastBeginning(qint64 clock_ms) const;
  std::optional<SlotBeginning> NextBeginning(qint64 clock_ms) const;

 private:
  struct Entry {
    qint64 minute_of_week = 0;
    char letter = kFirstScheduleLetter;
  };

  QList<Entry> entries_;  // in the order of time
};

}  // namespace VirtualPanel
