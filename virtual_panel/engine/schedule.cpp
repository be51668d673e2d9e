#include "engine/schedule.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QByteArray>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr qsizetype kPageDigits = 3;
constexpr qsizetype kLeastDelayDigits = 2;
constexpr qsizetype kMostDelayDigits = 5;
constexpr qint64 kMinutesOfHour = 60;
constexpr qint64 kMinutesOfDay = 24 * kMinutesOfHour;
constexpr int kMostWeekday = 6;
constexpr int kMostHour = 23;
constexpr int kMostMinute = 59;
constexpr char kNoLetter = '\0';
constexpr qint64 kFirstDayOfEpoch = 4;  // 1 January 1970 was a Thursday

constexpr std::array<const char*, 8> kEffects = {"Appear",    "Flip", "Open",  "Wipe Right",
                                                 "Wipe Left", "Fall", "Slide", "Shift"};
constexpr std::array<const char*, 7> kWeekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

bool IsFeature(char letter) {
  return letter >= 'A' && letter < static_cast<char>('A' + kEffects.size());
}

// The remainder that is never negative.
qint64 FloorModulo(qint64 number, qint64 divisor) {
  const qint64 remainder = number % divisor;
  return remainder < 0 ? remainder + divisor : remainder;
}

// The value of a text of digits alone, which is short enough for an int.
std::optional<int> Number(QByteArrayView digits) {
  int number = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + (digit - '0');
  }
  return number;
}

// Takes `size` characters from the front of *text: all "*" gives none in *field, digits give their
// value. False for anything else.
bool TakeField(QByteArrayView* text, qsizetype size, int most, std::optional<int>* field) {
  if (text->size() < size) return false;
  const QByteArrayView taken = text->first(size);
  *text = text->sliced(size);
  field->reset();
  if (std::all_of(taken.begin(), taken.end(), [](char c) { return c == '*'; })) return true;
  *field = Number(taken);
  return *field && **field <= most;
}

std::optional<ScheduleEntry> ParseEntry(QByteArrayView text) {
  const qsizetype delay_digits = text.size() - kPageDigits - 1;
  if (delay_digits < kLeastDelayDigits || delay_digits > kMostDelayDigits) return std::nullopt;
  const auto page = Number(text.first(kPageDigits));
  const auto delay = Number(text.sliced(kPageDigits, delay_digits));
  const char feature = text.back();
  if (!page || !delay || !IsFeature(feature)) return std::nullopt;
  return ScheduleEntry{*page, *delay, feature};
}

QString TwoDigits(std::optional<int> number) {
  return number ? u"%1"_s.arg(*number, 2, 10, QLatin1Char('0')) : u"**"_s;
}

bool Matches(const Schedule& schedule, qint64 minute_of_week) {
  const auto is = [](std::optional<int> field, qint64 value) { return !field || *field == value; };
  return is(schedule.weekday, minute_of_week / kMinutesOfDay) &&
         is(schedule.hour, minute_of_week % kMinutesOfDay / kMinutesOfHour) &&
         is(schedule.minute, minute_of_week % kMinutesOfHour);
}

// Larger for a schedule that goes before another.
int Rank(const Schedule& schedule) {
  const int weekday = schedule.weekday ? 1 : 0;
  const int hour = schedule.hour ? 1 : 0;
  const int minute = schedule.minute ? 1 : 0;
  return (weekday + hour + minute) * 4 + weekday * 2 + hour;
}

// Writes the letter into every minute of the week that the schedule matches.
void TakeMinutes(const Schedule& schedule, char letter, QByteArray* owners) {
  const auto first = [](std::optional<int> field) { return field.value_or(0); };
  const auto last = [](std::optional<int> field, int most) { return field.value_or(most); };
  for (int day = first(schedule.weekday); day <= last(schedule.weekday, kMostWeekday); ++day) {
    for (int hour = first(schedule.hour); hour <= last(schedule.hour, kMostHour); ++hour) {
      const qint64 begin = day * kMinutesOfDay + hour * kMinutesOfHour + first(schedule.minute);
      const qint64 count = last(schedule.minute, kMostMinute) - first(schedule.minute) + 1;
      std::fill_n(owners->begin() + begin, count, letter);
    }
  }
}

}  // namespace

std::optional<Schedule> ParseSchedule(QByteArrayView text) {
  Schedule schedule;
  if (!TakeField(&text, 1, kMostWeekday, &schedule.weekday) ||
      !TakeField(&text, 2, kMostHour, &schedule.hour) ||
      !TakeField(&text, 2, kMostMinute, &schedule.minute)) {
    return std::nullopt;
  }
  while (true) {
    const qsizetype comma = text.indexOf(',');
    const auto entry = ParseEntry(comma < 0 ? text : text.first(comma));
    if (!entry) return std::nullopt;
    schedule.entries.append(*entry);
    if (comma < 0) return schedule;
    text = text.sliced(comma + 1);
  }
}

QString EffectName(char feature) {
  if (!IsFeature(feature)) return {};
  return QLatin1String(kEffects[static_cast<size_t>(feature - 'A')]);
}

QString WeekdayCode(const Schedule& schedule) {
  return schedule.weekday ? QString::number(*schedule.weekday) : u"*"_s;
}

QString HourCode(const Schedule& schedule) { return TwoDigits(schedule.hour); }

QString MinuteCode(const Schedule& schedule) { return TwoDigits(schedule.minute); }

QString ScheduleTime(const Schedule& schedule) {
  const QString day = schedule.weekday
                          ? QLatin1String(kWeekdays[static_cast<size_t>(*schedule.weekday)])
                          : "daily"_L1;
  return u"%1 %2:%3"_s.arg(day, HourCode(schedule), MinuteCode(schedule));
}

EntryAtTime EntryAt(const Schedule& schedule, qint64 elapsed_ms) {
  QList<int> seconds;
  for (const ScheduleEntry& entry : schedule.entries) seconds.append(entry.delay);
  return PanelDots::PageAt(seconds, elapsed_ms);
}

std::optional<char> OwnerOf(const Schedules& schedules, qint64 minute_of_week) {
  std::optional<char> owner;
  int best = -1;
  for (auto schedule = schedules.cbegin(); schedule != schedules.cend(); ++schedule) {
    if (!Matches(*schedule, minute_of_week) || Rank(*schedule) <= best) continue;
    best = Rank(*schedule);
    owner = schedule.key();
  }
  return owner;
}

qint64 MinuteOfWeek(qint64 clock_ms) {
  const qint64 into_minute = FloorModulo(clock_ms, kMinuteMs);
  const qint64 minute = (clock_ms - into_minute) / kMinuteMs;
  return FloorModulo(minute + kFirstDayOfEpoch * kMinutesOfDay, kMinutesOfWeek);
}

WeekPlan::WeekPlan(const Schedules& schedules) {
  if (schedules.isEmpty()) return;
  // Each schedule takes its minutes; the ones that go before others take theirs last.
  QList<char> letters = schedules.keys();
  std::sort(letters.begin(), letters.end(), [&](char first, char second) {
    const int first_rank = Rank(schedules[first]);
    const int second_rank = Rank(schedules[second]);
    return first_rank != second_rank ? first_rank < second_rank : first > second;
  });
  QByteArray owners(kMinutesOfWeek, kNoLetter);
  for (const char letter : std::as_const(letters)) TakeMinutes(schedules[letter], letter, &owners);

  char before = owners.back();
  for (qint64 minute = 0; minute < kMinutesOfWeek; ++minute) {
    const char owner = owners[minute];
    if (owner != kNoLetter && owner != before) entries_.append({minute, owner});
    before = owner;
  }
}

std::optional<SlotBeginning> WeekPlan::LastBeginning(qint64 clock_ms) const {
  if (entries_.isEmpty()) return std::nullopt;
  const qint64 minute = MinuteOfWeek(clock_ms);
  const auto behind = std::upper_bound(
      entries_.cbegin(), entries_.cend(), minute,
      [](qint64 value, const Entry& entry) { return value < entry.minute_of_week; });
  const Entry& entry = behind == entries_.cbegin() ? entries_.last() : *(behind - 1);
  const qint64 ago = FloorModulo(minute - entry.minute_of_week, kMinutesOfWeek);
  return SlotBeginning{entry.letter, clock_ms - FloorModulo(clock_ms, kMinuteMs) - ago * kMinuteMs};
}

std::optional<SlotBeginning> WeekPlan::NextBeginning(qint64 clock_ms) const {
  if (entries_.isEmpty()) return std::nullopt;
  const qint64 minute = MinuteOfWeek(clock_ms);
  const auto behind = std::upper_bound(
      entries_.cbegin(), entries_.cend(), minute,
      [](qint64 value, const Entry& entry) { return value < entry.minute_of_week; });
  const bool is_this_week = behind != entries_.cend();
  const Entry& entry = is_this_week ? *behind : entries_.first();
  const qint64 ahead = entry.minute_of_week - minute + (is_this_week ? 0 : kMinutesOfWeek);
  return SlotBeginning{entry.letter,
                       clock_ms - FloorModulo(clock_ms, kMinuteMs) + ahead * kMinuteMs};
}

}  // namespace VirtualPanel
