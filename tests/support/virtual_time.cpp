#include "support/virtual_time.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kBitMillisecondsOfAByte = qint64{10} * 1000;

}  // namespace

void VirtualTime::Schedule(qint64 after, std::function<void()> action) {
  due_.emplace(now_ + after, std::move(action));
}

void VirtualTime::Advance(qint64 limit) {
  const qint64 end = limit < 0 ? -1 : now_ + limit;
  if (due_.empty() || (end >= 0 && due_.begin()->first > end)) {
    if (end < 0) qFatal("a wait for something that never comes");
    now_ = end;
    return;
  }
  auto next = due_.extract(due_.begin());
  now_ = next.key();
  next.mapped()();
}

void VirtualTime::Note(const QString& what) { timeline_.append(u"@%1 %2"_s.arg(now_).arg(what)); }

void VirtualTickTimer::Enable() {
  if (std::exchange(enabled_, true)) return;
  ++run_;
  ScheduleTick();
}

void VirtualTickTimer::Disable() { enabled_ = false; }

void VirtualTickTimer::ScheduleTick() {
  time_.Schedule(kInterval, [this, run = run_] {
    if (!enabled_ || run != run_) return;
    time_.Note(u"tick"_s);
    Tick();
    ScheduleTick();
  });
}

bool VirtualTickTimer::WaitForEvent() {
  if (std::exchange(ends_one_wait_, false)) return false;
  if (program_ends_) return false;
  time_.Advance();
  return true;
}

bool VirtualClock::WaitForEvent(qint64 at_most) {
  if (program_ends_) return false;
  time_.Advance(at_most);
  return true;
}

void ScriptedLink::AnswerAfter(qint64 after, const QByteArray& bytes) {
  answers_.append(QList<Event>{{after, bytes, false}});
}

void ScriptedLink::StaySilent() { answers_.append(QList<Event>()); }

void ScriptedLink::AndAfter(qint64 after, const QByteArray& bytes) {
  answers_.last().append({after, bytes, false});
}

void ScriptedLink::LoseAfter(qint64 after) {
  answers_.append(QList<Event>{{after, QByteArray(), true}});
}

void ScriptedLink::AndLoseAfter(qint64 after) {
  answers_.last().append({after, QByteArray(), true});
}

void ScriptedLink::Write(const QByteArray& bytes) {
  QByteArray shown = bytes;
  time_.Note(u"send "_s + QString::fromLatin1(shown.replace("\r", "[CR]").replace("\n", "[LF]")));
  written_.append(bytes);
  if (speed_ > 0) {
    busy_to_ = std::max(busy_to_, time_.Now() * speed_) + bytes.size() * kBitMillisecondsOfAByte;
  } else if (speed_ == 0) {
    stuck_ += bytes.size();
  }
  if (answers_.isEmpty()) return;
  for (const Event& event : answers_.takeFirst()) {
    time_.Schedule(event.after, [this, event] {
      if (event.lose) {
        lost_ = true;
      } else {
        input_ += event.bytes;
      }
    });
  }
}

void ScriptedLink::SendAt(int bits_per_second) {
  speed_ = bits_per_second;
  busy_to_ = 0;
}

void ScriptedLink::TakeEverything() {
  busy_to_ = 0;
  stuck_ = 0;
}

qint64 ScriptedLink::Unsent() const {
  if (lost_ || closed_) return 0;
  const qint64 left = speed_ > 0 ? std::max<qint64>(busy_to_ - time_.Now() * speed_, 0) : 0;
  return stuck_ + (left + kBitMillisecondsOfAByte - 1) / kBitMillisecondsOfAByte;
}

void ScriptedLink::Close() {
  closed_ = true;
  time_.Note(u"close"_s);
}

QByteArray ScriptedLink::ReadAvailable() {
  ++reads_;
  return std::exchange(input_, {});
}

QStringList TicksAt(int first, int last) {
  QStringList ticks;
  for (int at = first; at <= last; at += 100) ticks.append(u"@%1 tick"_s.arg(at));
  return ticks;
}
