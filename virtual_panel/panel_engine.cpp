#include "panel_engine.h"

#include <utility>

#include <QTimeZone>

namespace VirtualPanel {
namespace {

constexpr char kGarbage[] = "#?#?#?#?";
constexpr char kStrayByte = '\xFF';

// The wall-clock reading of a local time, counted as UTC: a panel's clock knows no summer time.
QDateTime WallClock(const QDateTime& time) {
  return QDateTime(time.date(), time.time(), QTimeZone::utc());
}

QString Describe(const Frame& frame) {
  switch (frame.meaning) {
    case Meaning::kPoll:
      return QStringLiteral("poll");
    case Meaning::kDeleteAll:
      return QStringLiteral("delete all pages");
    case Meaning::kDeletePage:
      return QStringLiteral("delete page %1").arg(frame.page);
    case Meaning::kRunPage:
      return QStringLiteral("run page %1").arg(frame.page);
    case Meaning::kMessageLine:
      return QStringLiteral("page %1, row %2").arg(frame.page).arg(frame.row);
    case Meaning::kSetClock:
      return QStringLiteral("set clock to ") +
             frame.clock.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    case Meaning::kSchedule: {
      const qsizetype count = frame.schedule.entries.size();
      return QStringLiteral("schedule %1, %2, %3 %4")
          .arg(QLatin1Char(frame.letter))
          .arg(ScheduleTime(frame.schedule))
          .arg(count)
          .arg(count == 1 ? QLatin1String("entry") : QLatin1String("entries"));
    }
    case Meaning::kScrollingLine:
      return QStringLiteral("scrolling text, row %1").arg(frame.row);
    case Meaning::kTooLong:
      return QStringLiteral("too long");
    case Meaning::kNotUnderstood:
      break;
  }
  return QStringLiteral("not understood");
}

QString RowsNote(const PanelDescription& description) {
  return QStringLiteral("ignored, panel %1 has rows 1 to %2")
      .arg(description.id)
      .arg(description.rows);
}

bool HasRow(const PanelDescription& description, int row) {
  return row >= 1 && row <= description.rows;
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

QByteArray LowerCaseDigits(QByteArray acknowledgement) {
  // "<IDhh>": only the digits change their case.
  for (const qsizetype at : {3, 4}) {
    const char digit = acknowledgement[at];
    if (digit >= 'A' && digit <= 'F') acknowledgement[at] = static_cast<char>(digit - 'A' + 'a');
  }
  return acknowledgement;
}

}  // namespace

PanelEngine::PanelEngine(const QList<PanelDescription>& panels, TimeSource now, QObject* parent)
    : QObject(parent), now_(std::move(now)) {
  const QDateTime start = now_();
  for (const PanelDescription& description : panels) {
    Member member;
    member.panel.description = description;
    member.clock_set_to = WallClock(start);
    member.clock_set_at = start.toMSecsSinceEpoch();
    member.settled_at = member.clock_set_at;
    members_.emplace(description.id, std::move(member));
  }
  if (!members_.empty()) clock_answer_ = members_.begin()->first;
}

QList<Answer> PanelEngine::Receive(FrameSplitter* splitter, QByteArrayView bytes,
                                   const QString& line) {
  QList<Answer> answers;
  const QList<ReceivedFrame> frames = splitter->Feed(bytes);
  for (const ReceivedFrame& frame : frames) answers += Handle(frame, line);
  return answers;
}

QList<Answer> PanelEngine::Receive(QByteArrayView bytes) {
  return Receive(&own_splitter_, bytes, QString());
}

void PanelEngine::SetFaults(const Faults& faults) {
  faults_ = faults;
  answers_swallowed_ = 0;
  frames_since_faults_ = 0;
  Q_EMIT FaultsChanged();
}

QList<int> PanelEngine::PanelIds() const {
  QList<int> ids;
  for (const auto& [id, member] : members_) ids.append(id);
  return ids;
}

const PanelEngine::Member* PanelEngine::FindMember(int id) const {
  const auto found = members_.find(id);
  return found == members_.end() ? nullptr : &found->second;
}

const Panel* PanelEngine::FindPanel(int id) const {
  const Member* member = FindMember(id);
  return member == nullptr ? nullptr : &member->panel;
}

QMap<int, QByteArray> PanelEngine::Page(int id, int page) const {
  QMap<int, QByteArray> texts;
  const Panel* panel = FindPanel(id);
  if (panel == nullptr) return texts;
  const StoredPage rows = panel->pages.value(page);
  for (auto row = rows.cbegin(); row != rows.cend(); ++row) texts.insert(row.key(), row->text);
  return texts;
}

const WeekPlan& PanelEngine::PlanOf(const Member& member) {
  if (!member.plan) member.plan = WeekPlan(member.panel.schedules);
  return *member.plan;
}

qint64 PanelEngine::ClockMs(const Member& member, qint64 now_ms) {
  return member.clock_set_to.toMSecsSinceEpoch() + now_ms - member.clock_set_at;
}

std::optional<PanelEngine::Start> PanelEngine::StartedAt(const Member& member, qint64 now_ms) {
  const qint64 clock_ms = ClockMs(member, now_ms);
  const qint64 settled_clock_ms = ClockMs(member, member.settled_at);
  // Nothing begins within a minute: most questions end here.
  if (clock_ms / kMinuteMs <= settled_clock_ms / kMinuteMs) return member.started;
  const auto last = PlanOf(member).LastBeginning(clock_ms);
  if (!last || last->clock_ms <= settled_clock_ms) return member.started;
  return Start{last->letter, now_ms - (clock_ms - last->clock_ms)};
}

std::optional<char> PanelEngine::OwnerAt(const Member& member, qint64 now_ms) {
  return OwnerOf(member.panel.schedules, MinuteOfWeek(ClockMs(member, now_ms)));
}

void PanelEngine::Settle(Member* member, qint64 now_ms) {
  member->started = StartedAt(*member, now_ms);
  if (member->started) member->running_page.reset();
  member->settled_at = now_ms;
}

void PanelEngine::Begin(Member* member, char letter, qint64 now_ms) {
  member->started = Start{letter, now_ms};
  member->running_page.reset();
}

void PanelEngine::RunPage(Member* member, int page, qint64 now_ms) {
  member->running_page = page;
  member->ran_at_ms = now_ms;
  member->started.reset();
  member->panel.scrolling_lines.clear();
}

bool PanelEngine::Play(int id, char letter) {
  const auto found = members_.find(id);
  if (found == members_.end() || !found->second.panel.schedules.contains(letter)) return false;
  const qint64 now_ms = now_().toMSecsSinceEpoch();
  Settle(&found->second, now_ms);
  Begin(&found->second, letter, now_ms);
  Q_EMIT Changed();
  return true;
}

bool PanelEngine::Run(int id, int page) {
  const auto found = members_.find(id);
  if (found == members_.end() || !found->second.panel.pages.contains(page)) return false;
  const qint64 now_ms = now_().toMSecsSinceEpoch();
  Settle(&found->second, now_ms);
  RunPage(&found->second, page, now_ms);
  Q_EMIT Changed();
  return true;
}

std::optional<Playing> PanelEngine::PlayingAt(int id, const QDateTime& now) const {
  const Member* member = FindMember(id);
  if (member == nullptr) return std::nullopt;
  const qint64 now_ms = now.toMSecsSinceEpoch();
  const auto started = StartedAt(*member, now_ms);
  if (!started) return std::nullopt;
  const Schedule schedule = member->panel.schedules.value(started->letter);
  const qsizetype index = EntryAt(schedule, now_ms - started->at_ms).index;
  const ScheduleEntry& entry = schedule.entries[index];
  return Playing{started->letter, index + 1, schedule.entries.size(), entry.page, entry.feature};
}

std::optional<int> PanelEngine::RunningPage(int id, const QDateTime& now) const {
  const Member* member = FindMember(id);
  if (member == nullptr || StartedAt(*member, now.toMSecsSinceEpoch())) return std::nullopt;
  return member->running_page;
}

std::optional<int> PanelEngine::ShownPage(int id, const QDateTime& now) const {
  const Member* member = FindMember(id);
  if (member == nullptr) return std::nullopt;
  if (const auto playing = PlayingAt(id, now)) return playing->page;
  return member->running_page ? member->running_page : member->last_received_page;
}

StoredPage PanelEngine::ShownRows(int id, const QDateTime& now) const {
  const auto page = ShownPage(id, now);
  return page ? FindPanel(id)->pages.value(*page) : StoredPage();
}

std::optional<PageEntrance> PanelEngine::LastEntrance(int id, const QDateTime& now) const {
  const Member* member = FindMember(id);
  if (member == nullptr) return std::nullopt;
  const qint64 now_ms = now.toMSecsSinceEpoch();
  if (const auto started = StartedAt(*member, now_ms)) {
    const Schedule schedule = member->panel.schedules.value(started->letter);
    const EntryAtTime at = EntryAt(schedule, now_ms - started->at_ms);
    const ScheduleEntry& entry = schedule.entries[at.index];
    const bool is_alone = schedule.entries.size() == 1;
    return PageEntrance{entry.page, entry.feature, is_alone ? started->at_ms : now_ms - at.gone_ms};
  }
  if (!member->running_page) return std::nullopt;
  return PageEntrance{*member->running_page,
                      EffectOf(member->panel.schedules, *member->running_page), member->ran_at_ms};
}

QDateTime PanelEngine::Clock(int id, const QDateTime& now) const {
  const Member* member = FindMember(id);
  if (member == nullptr) return {};
  return member->clock_set_to.addMSecs(now.toMSecsSinceEpoch() - member->clock_set_at);
}

std::optional<QDateTime> PanelEngine::NextChange(int id, const QDateTime& now) const {
  const Member* member = FindMember(id);
  if (member == nullptr) return std::nullopt;
  const qint64 now_ms = now.toMSecsSinceEpoch();
  std::optional<qint64> wait;
  const qint64 clock_ms = ClockMs(*member, now_ms);
  if (const auto next = PlanOf(*member).NextBeginning(clock_ms)) wait = next->clock_ms - clock_ms;
  if (const auto started = StartedAt(*member, now_ms)) {
    const Schedule schedule = member->panel.schedules.value(started->letter);
    // A single page follows itself.
    if (schedule.entries.size() > 1) {
      const qint64 left = EntryAt(schedule, now_ms - started->at_ms).left_ms;
      wait = wait ? qMin(*wait, left) : left;
    }
  }
  if (!wait) return std::nullopt;
  return now.addMSecs(*wait);
}

std::optional<QDateTime> PanelEngine::NextChange(const QDateTime& now) const {
  std::optional<QDateTime> first;
  for (const auto& [id, member] : members_) {
    const auto next = NextChange(id, now);
    if (next && (!first || *next < *first)) first = next;
  }
  return first;
}

qint64 PanelEngine::ClockOffset(int id) const {
  const QDateTime now = now_();
  return FindMember(id) == nullptr ? 0 : WallClock(now).msecsTo(Clock(id, now));
}

QList<Answer> PanelEngine::Handle(const ReceivedFrame& received, const QString& line) {
  Frame frame = ParseFrame(received.bytes);
  if (received.too_long) {
    // It was dropped on its way in: no panel has it, so none answers.
    frame = Frame{};
    frame.meaning = Meaning::kTooLong;
  }

  QStringList notes;
  bool obeyed = false;
  QByteArray acknowledgement;
  const bool is_for_all = frame.addressee == kEveryPanel || frame.meaning == Meaning::kSetClock;
  for (auto& [id, member] : members_) {
    if (!is_for_all && frame.addressee != id) continue;
    QString note;
    if (Obey(frame, &member, &note)) obeyed = true;
    if (!note.isEmpty() && !notes.contains(note)) notes.append(note);
    if (frame.addressee == id || (frame.meaning == Meaning::kSetClock && clock_answer_ == id)) {
      acknowledgement = AddressPrefix(id) + "\r\n";
    }
  }
  if (frame.addressee > 0 && FindMember(frame.addressee) == nullptr) {
    notes.append(QStringLiteral("no panel %1 on this line").arg(frame.addressee));
  }

  QList<Answer> answers = AnswerWith(acknowledgement);

  FrameRecord record;
  record.time = now_();
  record.line = line;
  record.bytes = received.bytes;
  record.addressee = frame.addressee;
  record.meaning = frame.meaning;
  record.page = frame.page;
  record.row = frame.row;
  record.obeyed = obeyed;
  record.description = Describe(frame);
  if (!notes.isEmpty()) {
    record.description += QStringLiteral(": ") + notes.join(QStringLiteral("; "));
  }
  for (const Answer& answer : std::as_const(answers)) {
    if (record.answer.isEmpty()) record.answer_after_ms = answer.after_ms;
    record.answer += answer.bytes;
  }
  Remember(record);

  Q_EMIT FrameReceived(record);
  if (obeyed && frame.meaning != Meaning::kPoll) Q_EMIT Changed();
  return answers;
}

bool PanelEngine::Obey(const Frame& frame, Member* member, QString* note) {
  Panel& panel = member->panel;
  const qint64 now_ms = now_().toMSecsSinceEpoch();
  Settle(member, now_ms);
  switch (frame.meaning) {
    case Meaning::kPoll:
      return true;
    case Meaning::kDeleteAll:
      panel.pages.clear();
      panel.schedules.clear();
      panel.scrolling_lines.clear();
      panel.stored_bytes = 0;
      member->plan.reset();
      member->started.reset();
      member->running_page.reset();
      member->last_received_page.reset();
      return true;
    case Meaning::kDeletePage: {
      const auto page = panel.pages.find(frame.page);
      if (page == panel.pages.end()) {
        *note = QStringLiteral("was not stored");
      } else {
        for (const StoredRow& row : std::as_const(*page)) panel.stored_bytes -= row.text.size();
        panel.pages.erase(page);
      }
      if (member->running_page == frame.page) {
        // The display goes blank; it does not fall back to another page.
        member->running_page.reset();
        member->last_received_page.reset();
      } else if (member->last_received_page == frame.page) {
        member->last_received_page.reset();
      }
      return true;
    }
    case Meaning::kRunPage:
      RunPage(member, frame.page, now_ms);
      if (!panel.pages.contains(frame.page)) *note = QStringLiteral("an empty page");
      return true;
    case Meaning::kMessageLine:
      return StoreRow(frame, member, note);
    case Meaning::kSetClock: {
      const auto before = OwnerAt(*member, now_ms);
      member->clock_set_to = frame.clock;
      member->clock_set_at = now_ms;
      const auto owner = OwnerAt(*member, now_ms);
      if (owner && owner != before) Begin(member, *owner, now_ms);
      return true;
    }
    case Meaning::kSchedule:
      return StoreSchedule(frame, member, now_ms, note);
    case Meaning::kScrollingLine:
      return StoreScrollingLine(frame, &panel, now_ms, note);
    case Meaning::kTooLong:
    case Meaning::kNotUnderstood:
      break;
  }
  return false;
}

bool PanelEngine::StoreRow(const Frame& frame, Member* member, QString* note) {
  Panel* panel = &member->panel;
  if (!HasRow(panel->description, frame.row)) {
    *note = RowsNote(panel->description);
    return false;
  }
  const auto page = panel->pages.constFind(frame.page);
  const bool is_new_page = page == panel->pages.constEnd();
  const qint64 replaced = is_new_page ? 0 : page->value(frame.row).text.size();
  const qint64 stored_bytes = panel->stored_bytes - replaced + frame.text.size();
  if ((is_new_page && panel->pages.size() >= kMostPages) || stored_bytes > kMostStoredBytes) {
    *note = QStringLiteral("ignored, the memory of panel %1 is full").arg(panel->description.id);
    return false;
  }
  // The sender closes every row with one blank of its own, which is not shown.
  QByteArrayView shown(frame.text);
  if (shown.endsWith(' ')) shown.chop(1);
  panel->pages[frame.page].insert(frame.row, {frame.text, ParseCells(shown)});
  panel->stored_bytes = stored_bytes;
  member->last_received_page = frame.page;
  return true;
}

bool PanelEngine::StoreSchedule(const Frame& frame, Member* member, qint64 now_ms, QString* note) {
  if (frame.schedule.entries.size() > kMostScheduleEntries) {
    *note = QStringLiteral("ignored, a schedule has at most %1 entries").arg(kMostScheduleEntries);
    return false;
  }
  const char letter = frame.letter;
  const auto before = OwnerAt(*member, now_ms);
  member->panel.schedules.insert(letter, frame.schedule);
  member->plan.reset();
  const auto owner = OwnerAt(*member, now_ms);

  std::optional<char> begins;
  if (letter == owner || letter == play_on_arrival_) {
    begins = letter;
  } else if (owner && owner != before) {
    begins = owner;  // the minute belonged to the schedule that was replaced
  } else if (member->started && member->started->letter == letter) {
    begins = letter;
  }
  if (begins) {
    Begin(member, *begins, now_ms);
    *note = begins == letter ? QStringLiteral("begins")
                             : QStringLiteral("schedule %1 begins").arg(QLatin1Char(*begins));
  }
  return true;
}

bool PanelEngine::StoreScrollingLine(const Frame& frame, Panel* panel, qint64 now_ms,
                                     QString* note) {
  if (!HasRow(panel->description, frame.row)) {
    *note = RowsNote(panel->description);
    return false;
  }
  if (frame.text.isEmpty()) {
    *note = QStringLiteral("ends");
    panel->scrolling_lines.remove(frame.row);
  } else {
    panel->scrolling_lines.insert(frame.row, {{frame.text, ParseCells(frame.text)}, now_ms});
  }
  return true;
}

QList<Answer> PanelEngine::AnswerWith(const QByteArray& acknowledgement) {
  QList<Answer> answers;
  int time = faults_.late_ms;

  bool is_answered = !acknowledgement.isEmpty() && !faults_.silent;
  if (is_answered && answers_swallowed_ < faults_.silent_answers) {
    ++answers_swallowed_;
    is_answered = false;
  }
  if (is_answered) {
    QByteArray bytes = faults_.garbage ? QByteArray(kGarbage) : acknowledgement;
    if (faults_.lower_case && !faults_.garbage) bytes = LowerCaseDigits(bytes);
    if (faults_.stray_byte) bytes.prepend(kStrayByte);

    const qsizetype pieces = qBound(qsizetype(1), qsizetype(faults_.pieces), bytes.size());
    for (qsizetype piece = 0; piece < pieces; ++piece) {
      const qsizetype begin = bytes.size() * piece / pieces;
      const qsizetype end = bytes.size() * (piece + 1) / pieces;
      if (piece > 0) time += faults_.piece_pause_ms;
      answers.append({Answer::Step::kSend, bytes.sliced(begin, end - begin), time});
    }
  }
  if (faults_.flood) answers.append({Answer::Step::kFlood, {}, time});

  ++frames_since_faults_;
  if (faults_.close_after_frame > 0 && frames_since_faults_ == faults_.close_after_frame) {
    answers.append({Answer::Step::kClose, {}, time});
  }
  return answers;
}

void PanelEngine::Remember(const FrameRecord& record) {
  ++frame_count_;
  frames_.append(record);
  remembered_bytes_ += record.bytes.size();
  while (frames_.size() > kMostRememberedFrames || remembered_bytes_ > kMostRememberedBytes) {
    remembered_bytes_ -= frames_.first().bytes.size();
    frames_.removeFirst();
  }
}

}  // namespace VirtualPanel
