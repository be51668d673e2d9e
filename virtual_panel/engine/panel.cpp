#include "engine/panel.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// The wall-clock reading of a local time, counted as UTC: a panel's clock knows no summer time.
QDateTime WallClock(const QDateTime& time) {
  return QDateTime(time.date(), time.time(), QTimeZone::utc());
}

// The effect with which the first schedule that has a page shows it.
char EffectOf(const Schedules& schedules, int page) {
  for (const Schedule& schedule : schedules) {
    for (const ScheduleEntry& entry : schedule.entries) {
      if (entry.page == page) return entry.feature;
    }
  }
  return ScheduleEntry().feature;
}

}  // namespace

Panel::Panel(const PanelDescription& description, const QDateTime& now)
    : description_(description),
      clock_set_to_(WallClock(now)),
      clock_set_at_(now.toMSecsSinceEpoch()),
      settled_at_(clock_set_at_) {}

bool Panel::Obey(const Frame& frame, const QDateTime& now, std::optional<char> play_on_arrival,
                 QString* note) {
  const qint64 now_ms = now.toMSecsSinceEpoch();
  Settle(now_ms);
  switch (frame.meaning) {
    case Meaning::kPoll:
      return true;
    case Meaning::kDeleteAll:
      DeleteAll();
      return true;
    case Meaning::kDeletePage:
      DeletePage(frame.page, note);
      return true;
    case Meaning::kRunPage:
      RunPage(frame.page, now_ms);
      if (!memory_.Pages().contains(frame.page)) *note = u"an empty page"_s;
      return true;
    case Meaning::kMessageLine:
      return StoreRow(frame, note);
    case Meaning::kSetClock:
      SetClock(frame.clock, now_ms);
      return true;
    case Meaning::kSchedule:
      return StoreSchedule(frame, now_ms, play_on_arrival, note);
    case Meaning::kScrollingLine:
      return StoreScrollingLine(frame, now_ms, note);
    case Meaning::kTooLong:
    case Meaning::kNotUnderstood:
      break;
  }
  return false;
}

bool Panel::Play(char letter, const QDateTime& now) {
  if (!memory_.StoredSchedules().contains(letter)) return false;
  const qint64 now_ms = now.toMSecsSinceEpoch();
  Settle(now_ms);
  Begin(letter, now_ms);
  return true;
}

bool Panel::Run(int page, const QDateTime& now) {
  if (!memory_.Pages().contains(page)) return false;
  const qint64 now_ms = now.toMSecsSinceEpoch();
  Settle(now_ms);
  RunPage(page, now_ms);
  return true;
}

// ---- what it shows ------------------------------------------------------------------------------

std::optional<Playing> Panel::PlayingAt(const QDateTime& now) const {
  const qint64 now_ms = now.toMSecsSinceEpoch();
  const auto started = StartedAt(now_ms);
  if (!started) return std::nullopt;
  const Schedule schedule = memory_.StoredSchedules().value(started->letter);
  const qsizetype index = EntryAt(schedule, now_ms - started->at_ms).index;
  const ScheduleEntry& entry = schedule.entries[index];
  return Playing{started->letter, index + 1, schedule.entries.size(), entry.page, entry.feature};
}

std::optional<int> Panel::RunningPage(const QDateTime& now) const {
  if (StartedAt(now.toMSecsSinceEpoch())) return std::nullopt;
  return running_page_;
}

std::optional<int> Panel::ShownPage(const QDateTime& now) const {
  if (const auto playing = PlayingAt(now)) return playing->page;
  return running_page_ ? running_page_ : last_received_page_;
}

StoredPage Panel::ShownRows(const QDateTime& now) const {
  const auto page = ShownPage(now);
  return page ? memory_.Pages().value(*page) : StoredPage();
}

std::optional<PageEntrance> Panel::LastEntrance(const QDateTime& now) const {
  const qint64 now_ms = now.toMSecsSinceEpoch();
  const Schedules& schedules = memory_.StoredSchedules();
  if (const auto started = StartedAt(now_ms)) {
    const Schedule schedule = schedules.value(started->letter);
    const EntryAtTime at = EntryAt(schedule, now_ms - started->at_ms);
    const ScheduleEntry& entry = schedule.entries[at.index];
    return PageEntrance{entry.page, entry.feature, started->at_ms + at.entered_ms};
  }
  if (!running_page_) return std::nullopt;
  return PageEntrance{*running_page_, EffectOf(schedules, *running_page_), ran_at_ms_};
}

QDateTime Panel::Clock(const QDateTime& now) const {
  return clock_set_to_.addMSecs(now.toMSecsSinceEpoch() - clock_set_at_);
}

qint64 Panel::ClockOffset(const QDateTime& now) const { return WallClock(now).msecsTo(Clock(now)); }

std::optional<QDateTime> Panel::NextChange(const QDateTime& now) const {
  const qint64 now_ms = now.toMSecsSinceEpoch();
  std::optional<qint64> wait;
  const qint64 clock_ms = ClockMs(now_ms);
  if (const auto next = Plan().NextBeginning(clock_ms)) wait = next->clock_ms - clock_ms;
  if (const auto started = StartedAt(now_ms)) {
    const Schedule schedule = memory_.StoredSchedules().value(started->letter);
    // A single page follows itself.
    if (schedule.entries.size() > 1) {
      const qint64 left = EntryAt(schedule, now_ms - started->at_ms).left_ms;
      wait = wait ? qMin(*wait, left) : left;
    }
  }
  if (!wait) return std::nullopt;
  return now.addMSecs(*wait);
}

// ---- its clock and what begins by it ------------------------------------------------------------

const WeekPlan& Panel::Plan() const {
  if (!plan_) plan_ = WeekPlan(memory_.StoredSchedules());
  return *plan_;
}

qint64 Panel::ClockMs(qint64 now_ms) const {
  return clock_set_to_.toMSecsSinceEpoch() + now_ms - clock_set_at_;
}

std::optional<Panel::Start> Panel::StartedAt(qint64 now_ms) const {
  const qint64 clock_ms = ClockMs(now_ms);
  const qint64 settled_clock_ms = ClockMs(settled_at_);
  // Nothing begins within a minute: most questions end here.
  if (clock_ms / kMinuteMs <= settled_clock_ms / kMinuteMs) return started_;
  const auto last = Plan().LastBeginning(clock_ms);
  if (!last || last->clock_ms <= settled_clock_ms) return started_;
  return Start{last->letter, now_ms - (clock_ms - last->clock_ms)};
}

std::optional<char> Panel::OwnerAt(qint64 now_ms) const {
  return OwnerOf(memory_.StoredSchedules(), MinuteOfWeek(ClockMs(now_ms)));
}

void Panel::Settle(qint64 now_ms) {
  started_ = StartedAt(now_ms);
  if (started_) running_page_.reset();
  settled_at_ = now_ms;
}

void Panel::Begin(char letter, qint64 now_ms) {
  started_ = Start{letter, now_ms};
  running_page_.reset();
}

void Panel::SetClock(const QDateTime& clock, qint64 now_ms) {
  const auto before = OwnerAt(now_ms);
  clock_set_to_ = clock;
  clock_set_at_ = now_ms;
  const auto owner = OwnerAt(now_ms);
  if (owner && owner != before) Begin(*owner, now_ms);
}

// ---- what frames do with its memory -------------------------------------------------------------

void Panel::RunPage(int page, qint64 now_ms) {
  running_page_ = page;
  ran_at_ms_ = now_ms;
  started_.reset();
  memory_.EndScrolling();
}

void Panel::DeleteAll() {
  memory_.Clear();
  plan_.reset();
  started_.reset();
  running_page_.reset();
  last_received_page_.reset();
}

void Panel::DeletePage(int page, QString* note) {
  if (!memory_.DeletePage(page)) *note = u"was not stored"_s;
  if (running_page_ == page) {
    // The display goes blank; it does not fall back to another page.
    running_page_.reset();
    last_received_page_.reset();
  } else if (last_received_page_ == page) {
    last_received_page_.reset();
  }
}

bool Panel::HasRow(int row, QString* note) const {
  if (row >= 1 && row <= description_.rows) return true;
  *note = u"ignored, panel %1 has rows 1 to %2"_s.arg(description_.id).arg(description_.rows);
  return false;
}

bool Panel::StoreRow(const Frame& frame, QString* note) {
  if (!HasRow(frame.row, note)) return false;
  if (!memory_.StoreRow(frame.page, frame.row, frame.text)) {
    *note = u"ignored, the memory of panel %1 is full"_s.arg(description_.id);
    return false;
  }
  last_received_page_ = frame.page;
  return true;
}

bool Panel::StoreSchedule(const Frame& frame, qint64 now_ms, std::optional<char> play_on_arrival,
                          QString* note) {
  const char letter = frame.letter;
  const auto before = OwnerAt(now_ms);
  if (!memory_.StoreSchedule(letter, frame.schedule)) {
    *note = u"ignored, a schedule has at most %1 entries"_s.arg(PanelMemory::kMostScheduleEntries);
    return false;
  }
  plan_.reset();
  const auto owner = OwnerAt(now_ms);

  std::optional<char> begins;
  if (letter == owner || letter == play_on_arrival) {
    begins = letter;
  } else if (owner && owner != before) {
    begins = owner;  // the minute belonged to the schedule that was replaced
  } else if (started_ && started_->letter == letter) {
    begins = letter;
  }
  if (begins) {
    Begin(*begins, now_ms);
    *note = begins == letter ? u"begins"_s : u"schedule %1 begins"_s.arg(QLatin1Char(*begins));
  }
  return true;
}

bool Panel::StoreScrollingLine(const Frame& frame, qint64 now_ms, QString* note) {
  if (!HasRow(frame.row, note)) return false;
  if (frame.text.isEmpty()) *note = u"ends"_s;
  memory_.StoreScrollingLine(frame.row, frame.text, now_ms);
  return true;
}

}  // namespace VirtualPanel
