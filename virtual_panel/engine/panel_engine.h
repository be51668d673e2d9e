// The panels on one line: what they hold, show and answer. Bytes go in, answers come out; the
// engine knows no socket, no port, no window and no wall clock (the time is asked of a function
// passed in).
//
// How a panel behaves:
// - It obeys what carries its own address and acknowledges it with its own address prefix and CR
//   LF, also what it does not understand or has no use for. It obeys address 0 silently. It ignores
//   the rest.
// - The set-clock frame carries no address: every panel takes it. On a line with several panels
//   only one may answer it, or the answers would collide: the one of SetClockAnswer, by default the
//   lowest ID.
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
// between. So the engine needs no timer: whoever shows a panel asks when it next changes.
#pragma once

#include <functional>
#include <map>
#include <optional>

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QObject>

#include "engine/faults.h"
#include "engine/frame.h"
#include "engine/panel_description.h"
#include "engine/schedule.h"
#include "panel_dots/message_text.h"

namespace VirtualPanel {

// One step of an answer. The steps of an answer come in the order of their time.
struct Answer {
  enum class Step {
    kSend,   // send `bytes`
    kClose,  // cut the connection; what was sent before still arrives
    kFlood,  // send bytes without end, as fast as the other end takes them
  };

  Step step = Step::kSend;
  QByteArray bytes;
  int after_ms = 0;  // counted from the arrival of the frame

  friend bool operator==(const Answer&, const Answer&) = default;
};

struct FrameRecord {
  QDateTime time;
  QString line;             // the name of the line it came by
  QByteArray bytes;         // as received, with its line end
  int addressee = kNobody;  // a panel's ID, kEveryPanel or kNobody
  Meaning meaning = Meaning::kNotUnderstood;
  int page = -1;
  int row = -1;
  bool obeyed = false;      // at least one panel did what it says
  QString description;      // what it meant and what became of it, in words
  QByteArray answer;        // every byte that is sent for it; empty: not answered
  int answer_after_ms = 0;  // when its first byte is sent, counted from `time`
};

struct StoredRow {
  QByteArray
      text;  // as sent, from behind the page code to before CR LF, the closing blank included
  QList<PanelDots::Cell> cells;  // without the closing blank
};

using StoredPage = QMap<int, StoredRow>;  // by row, from 1

// A text that runs across a row.
struct ScrollingLine {
  StoredRow row;
  qint64 began_ms = 0;  // in the time source's milliseconds
};

using ScrollingLines = QMap<int, ScrollingLine>;  // by row, from 1

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

// What a panel holds. What it shows is asked of the engine: it depends on the time.
struct Panel {
  PanelDescription description;
  QMap<int, StoredPage> pages;  // by page number
  Schedules schedules;
  ScrollingLines scrolling_lines;
  qint64 stored_bytes = 0;  // of the pages
};

class PanelEngine : public QObject {
  Q_OBJECT

 public:
  using TimeSource = std::function<QDateTime()>;

  // What is remembered of the traffic: the last frames, and no more bytes of them than this.
  static constexpr int kMostRememberedFrames = 10'000;
  static constexpr qint64 kMostRememberedBytes = 16'777'216;
  // A panel's memory: a row that does not fit is acknowledged and dropped. Beside its bytes a row
  // takes a cell for each of its characters, which are several times as many.
  static constexpr int kMostPages = 1000;
  static constexpr qint64 kMostStoredBytes = 16'777'216;
  // A schedule with more entries is acknowledged and dropped.
  static constexpr qsizetype kMostScheduleEntries = 64;

  // Of several panels with the same ID the first is taken.
  explicit PanelEngine(
      const QList<PanelDescription>& panels,
      TimeSource now = [] { return QDateTime::currentDateTime(); }, QObject* parent = nullptr);

  // Takes bytes as they arrive on a connection that has `splitter` for its own, and returns what is
  // to be sent back on it. `line` names the line in the records.
  QList<Answer> Receive(FrameSplitter* splitter, QByteArrayView bytes, const QString& line);
  // The same for the one connection of a test.
  QList<Answer> Receive(QByteArrayView bytes);

  void SetFaults(const Faults& faults);  // counts anew
  const Faults& CurrentFaults() const { return faults_; }

  // The panel that acknowledges the set-clock frame, or none.
  void SetClockAnswer(std::optional<int> id) { clock_answer_ = id; }

  // Plays a schedule from its first page on. False: there is no such panel, or it has no such
  // schedule.
  bool Play(int id, char letter);
  // Runs a page as the command does. False: there is no such panel, or it has no such page.
  bool Run(int id, int page);
  // Plays the schedule of this letter as soon as it arrives, due or not.
  void SetPlayOnArrival(std::optional<char> letter) { play_on_arrival_ = letter; }

  QList<int> PanelIds() const;                         // ascending
  const Panel* FindPanel(int id) const;                // null: no such panel
  QMap<int, QByteArray> Page(int id, int page) const;  // the rows' texts; empty: not stored
  qint64 ClockOffset(int id) const;  // by how many ms it is ahead of the machine's
  QDateTime Now() const { return now_(); }

  // What depends on the time. `now` is a reading of the time source, not before the last frame;
  // with the same one, all answers fit each other.
  std::optional<Playing> PlayingAt(int id, const QDateTime& now) const;
  // The page that was run, if it is shown or would be if it were stored.
  std::optional<int> RunningPage(int id, const QDateTime& now) const;
  std::optional<int> ShownPage(int id, const QDateTime& now) const;
  StoredPage ShownRows(int id, const QDateTime& now) const;
  // Every page that a schedule comes to and every one that is run enters anew, also the one that is
  // shown already; a schedule of a single page enters once. None: no page is shown, or its rows
  // were just received.
  std::optional<PageEntrance> LastEntrance(int id, const QDateTime& now) const;
  // The panel's own date and time, a wall-clock reading held as UTC; invalid: no such panel.
  QDateTime Clock(int id, const QDateTime& now) const;
  // When PlayingAt next answers otherwise without any frame, always behind `now`; none: never. A
  // schedule that begins again with the page that it shows counts as a change.
  std::optional<QDateTime> NextChange(int id, const QDateTime& now) const;
  // The same of all panels.
  std::optional<QDateTime> NextChange(const QDateTime& now) const;

  // The same, now.
  std::optional<int> RunningPage(int id) const { return RunningPage(id, now_()); }
  std::optional<int> ShownPage(int id) const { return ShownPage(id, now_()); }
  StoredPage ShownRows(int id) const { return ShownRows(id, now_()); }
  QDateTime Clock(int id) const { return Clock(id, now_()); }

  const QList<FrameRecord>& Frames() const { return frames_; }
  qint64 FrameCount() const { return frame_count_; }  // also those that are no longer remembered

 Q_SIGNALS:
  void FrameReceived(const VirtualPanel::FrameRecord& record);
  // What a panel holds, shows or has for its clock, by a frame, by Play or by Run; not by the time
  // alone.
  void Changed();
  void FaultsChanged();

 private:
  // Moments are in the time source's milliseconds.
  struct Start {
    char letter = kFirstScheduleLetter;
    qint64 at_ms = 0;
  };

  struct Member {
    Panel panel;
    QDateTime clock_set_to;
    qint64 clock_set_at = 0;
    // How things stood at `settled_at`: what has begun since then follows from the plan.
    qint64 settled_at = 0;
    std::optional<int> running_page;  // may be a page that is not stored: an empty one
    qint64 ran_at_ms = 0;
    std::optional<int> last_received_page;
    std::optional<Start> started;
    mutable std::optional<WeekPlan> plan;  // worked out when it is first needed
  };

  static const WeekPlan& PlanOf(const Member& member);
  static qint64 ClockMs(const Member& member, qint64 now_ms);
  static std::optional<Start> StartedAt(const Member& member, qint64 now_ms);
  static std::optional<char> OwnerAt(const Member& member, qint64 now_ms);
  // Makes what has begun by the passing of time the state from which a frame goes on.
  static void Settle(Member* member, qint64 now_ms);
  static void Begin(Member* member, char letter, qint64 now_ms);
  static void RunPage(Member* member, int page, qint64 now_ms);

  QList<Answer> Handle(const ReceivedFrame& received, const QString& line);
  bool Obey(const Frame& frame, Member* member, QString* note);
  bool StoreRow(const Frame& frame, Member* member, QString* note);
  bool StoreSchedule(const Frame& frame, Member* member, qint64 now_ms, QString* note);
  bool StoreScrollingLine(const Frame& frame, Panel* panel, qint64 now_ms, QString* note);
  QList<Answer> AnswerWith(const QByteArray& acknowledgement);
  void Remember(const FrameRecord& record);
  const Member* FindMember(int id) const;

  TimeSource now_;
  std::map<int, Member> members_;
  std::optional<int> clock_answer_;
  std::optional<char> play_on_arrival_;
  FrameSplitter own_splitter_;
  Faults faults_;
  int answers_swallowed_ = 0;
  int frames_since_faults_ = 0;
  QList<FrameRecord> frames_;
  qint64 remembered_bytes_ = 0;
  qint64 frame_count_ = 0;
};

}  // namespace VirtualPanel
