// One panel: what it holds, its clock, and what it shows when.
//
// - It shows its running page. While none has been run (or the running one has been deleted), it
//   shows the page of which it last received a row, so that something can be seen right after the
//   first sending.
// - It keeps ten schedules, A to J; one that arrives replaces the one of its letter. A minute of
//   the panel's own clock belongs to the schedule that matches it: of several to the one that names
//   more of weekday, hour and minute, then to the one that names the weekday, then the hour, then
//   to the lowest letter. A schedule begins, in place of the running page or of another schedule,
//   with the first of the minutes in a row that belong to it, so one for 08:30 begins at 08:30; it
//   begins at once if it arrives in a minute that belongs to it, or if it replaces the one that
//   plays. Setting the clock is no different from the time that passes, however far it leaps: what
//   was leapt over does not begin. Once begun, it shows page after page, each for its seconds (one
//   at least), from the first again after the last, until another begins or a page is run. A page
//   that is not stored is dark for its time.
// - A scrolling text runs from right to left across its row, over whatever page is shown, and
//   through the changes of a schedule. It ends when another text for the row replaces it, when an
//   empty one does, when a page is run, or when all pages are deleted.
// - Deleting all pages leaves nothing but the clock: the schedules, which would show nothing, and
//   the scrolling texts go with them. Deleting one page leaves both.
//
// What a panel shows is a function of the frames it took and of the time; nothing happens in
// between. So it needs no timer: whoever shows it asks when it next changes. A time that is passed
// in is a reading of the machine's clock, not before the last one that was passed with a frame.
#pragma once

#include <optional>

#include <QDateTime>
#include <QString>

#include "engine/frame.h"
#include "engine/panel_description.h"
#include "engine/panel_memory.h"

namespace VirtualPanel {

// A schedule that plays, at a moment.
struct Playing {
  char letter = kFirstScheduleLetter;
  qsizetype entry = 1;    // from 1 ...
  qsizetype entries = 1;  // ... to this
  int page = 0;
  char feature = 'A';

  friend bool operator==(const Playing&, const Playing&) = default;
};

// How a page came to be shown: a schedule came to it, or it was run.
struct PageEntrance {
  int page = 0;
  // The entry effect, A to H. A command to run a page names none: it is the one with which the
  // first of the panel's schedules has this page, or A, Appear.
  char effect = 'A';
  qint64 began_ms = 0;  // in the time source's milliseconds

  friend bool operator==(const PageEntrance&, const PageEntrance&) = default;
};

class Panel {
 public:
  // Its clock begins as the machine's.
  Panel(const PanelDescription& description, const QDateTime& now);

  const PanelDescription& Description() const { return description_; }
  const PanelMemory& Memory() const { return memory_; }

  // Does what a frame says that is for this panel. False: it has no use for it. *note: what became
  // of it, where its meaning alone does not say so. The schedule of `play_on_arrival` begins as
  // soon as it arrives, due or not.
  bool Obey(const Frame& frame, const QDateTime& now, std::optional<char> play_on_arrival,
            QString* note);
  // Plays a schedule from its first page on. False: it has no such schedule.
  bool Play(char letter, const QDateTime& now);
  // Runs a page as the command does. False: it has no such page.
  bool Run(int page, const QDateTime& now);

  std::optional<Playing> PlayingAt(const QDateTime& now) const;
  // The page that was run, if it is shown or would be if it were stored.
  std::optional<int> RunningPage(const QDateTime& now) const;
  std::optional<int> ShownPage(const QDateTime& now) const;
  StoredPage ShownRows(const QDateTime& now) const;
  // Every page that a schedule comes to and every one that is run enters anew, also the one that is
  // shown already; a schedule of a single page enters once. None: no page is shown, or its rows
  // were just received.
  std::optional<PageEntrance> LastEntrance(const QDateTime& now) const;
  // Its own date and time, a wall-clock reading held as UTC.
  QDateTime Clock(const QDateTime& now) const;
  qint64 ClockOffset(const QDateTime& now) const;  // by how many ms it is ahead of the machine's
  // When PlayingAt next answers otherwise without any frame, always behind `now`; none: never. A
  // schedule that begins again with the page that it shows counts as a change.
  std::optional<QDateTime> NextChange(const QDateTime& now) const;

 private:
  // Moments are in the time source's milliseconds.
  struct Start {
    char letter = kFirstScheduleLetter;
    qint64 at_ms = 0;
  };

  const WeekPlan& Plan() const;
  qint64 ClockMs(qint64 now_ms) const;
  std::optional<Start> StartedAt(qint64 now_ms) const;
  std::optional<char> OwnerAt(qint64 now_ms) const;
  // Makes what has begun by the passing of time the state from which a frame goes on.
  void Settle(qint64 now_ms);
  void Begin(char letter, qint64 now_ms);
  void RunPage(int page, qint64 now_ms);
  void DeleteAll();
  void DeletePage(int page, QString* note);
  bool StoreRow(const Frame& frame, QString* note);
  void SetClock(const QDateTime& clock, qint64 now_ms);
  bool StoreSchedule(const Frame& frame, qint64 now_ms, std::optional<char> play_on_arrival,
                     QString* note);
  bool StoreScrollingLine(const Frame& frame, qint64 now_ms, QString* note);
  // False, with a note: the panel has no such row.
  bool HasRow(int row, QString* note) const;

  PanelDescription description_;
  PanelMemory memory_;
  QDateTime clock_set_to_;
  qint64 clock_set_at_ = 0;
  // How things stood at `settled_at_`: what has begun since then follows from the plan.
  qint64 settled_at_ = 0;
  std::optional<int> running_page_;  // may be a page that is not stored: an empty one
  qint64 ran_at_ms_ = 0;
  std::optional<int> last_received_page_;
  std::optional<Start> started_;
  mutable std::optional<WeekPlan> plan_;  // worked out when it is first needed
};

}  // namespace VirtualPanel
