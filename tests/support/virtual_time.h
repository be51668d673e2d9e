// A world in which time passes only when a wait asks for it: a tick timer, a clock, and a scripted
// line, whose every move is written down with the millisecond at which it happened.
#pragma once

#include <cstddef>
#include <functional>
#include <map>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "panel_line/link.h"

class VirtualTime {
 public:
  qint64 Now() const { return now_; }

  /// Lets `action` happen `after` milliseconds from now.
  void Schedule(qint64 after, std::function<void()> action);

  /// Moves to the next moment at which something is due, at most to `limit` (-1: no limit), and
  /// lets it happen. A wait for nothing at all is a mistake that ends the test program.
  void Advance(qint64 limit = -1);

  /// How much is still to happen.
  std::size_t Pending() const { return due_.size(); }

  /// Writes down "@<now> <what>".
  void Note(const QString& what);
  const QStringList& Timeline() const { return timeline_; }

 private:
  qint64 now_ = 0;
  std::multimap<qint64, std::function<void()>> due_;
  QStringList timeline_;
};

class VirtualTickTimer : public Brivon1::TickTimer {
 public:
  explicit VirtualTickTimer(VirtualTime& time) : time_(time) {}

  void Enable() override;
  void Disable() override;
  bool WaitForEvent() override;
  void ProcessEvents() override {}

  bool IsEnabled() const { return enabled_; }

  /// Waits answer from now on as they do when the program ends.
  void EndProgram() { program_ends_ = true; }

  /// The next wait is cut short by the program's end, the ones behind it by late events.
  void EndOneWait() { ends_one_wait_ = true; }

 private:
  void ScheduleTick();

  VirtualTime& time_;
  bool enabled_ = false;
  int run_ = 0;  // ticks of an earlier run do not count
  bool program_ends_ = false;
  bool ends_one_wait_ = false;
};

class VirtualClock : public Brivon1::MillisecondClock {
 public:
  explicit VirtualClock(VirtualTime& time) : time_(time) {}

  qint64 Milliseconds() const override { return 1000000 + time_.Now(); }
  bool WaitForEvent(qint64 at_most) override;

  /// Waits answer from now on as they do when the program ends.
  void EndProgram() { program_ends_ = true; }

 private:
  VirtualTime& time_;
  bool program_ends_ = false;
};

/// A line whose other end does what the test says.
class ScriptedLink : public Brivon1::PanelLink {
 public:
  explicit ScriptedLink(VirtualTime& time) : time_(time) {}

  /// What the other end does about the next frame that has no answer yet: it sends `bytes` after
  /// `after` milliseconds.
  void AnswerAfter(qint64 after, const QByteArray& bytes);

  /// The other end takes the next frame in silence.
  void StaySilent();

  /// More bytes for the answer given last.
  void AndAfter(qint64 after, const QByteArray& bytes);

  /// The line is lost that long after the next frame; or after the one answered last.
  void LoseAfter(qint64 after);
  void AndLoseAfter(qint64 after);

  /// The line is lost now.
  void Lose() { lost_ = true; }

  /// What is written from now on leaves at this speed, ten bits a byte; until then it leaves at
  /// once. At 0 nothing leaves, of a line that should send at 9600.
  void SendAt(int bits_per_second);

  /// Everything that has not left leaves now.
  void TakeEverything();

  /// Bytes that are already waiting on the line.
  void Receive(const QByteArray& bytes) { input_ += bytes; }

  const QList<QByteArray>& Written() const { return written_; }
  int Reads() const { return reads_; }

  void Write(const QByteArray& bytes) override;
  QByteArray ReadAvailable() override;
  qint64 Unsent() const override;
  int Speed() const override { return speed_ > 0 ? speed_ : 9600; }
  bool IsLost() const override { return lost_; }
  void Close() override;
  QString FailureReason() const override { return {}; }

 private:
  struct Event {
    qint64 after;
    QByteArray bytes;
    bool lose;
  };

  VirtualTime& time_;
  QList<QList<Event>> answers_;
  QByteArray input_;
  QList<QByteArray> written_;
  int reads_ = 0;
  bool lost_ = false;
  bool closed_ = false;
  int speed_ = -1;      // -1 for a line that needs no time
  qint64 busy_to_ = 0;  // when the last bit leaves, in milliseconds times the speed
  qint64 stuck_ = 0;    // bytes that never leave
};

/// "@100 tick", "@200 tick", ... for every 100 ms from `first` to `last`.
QStringList TicksAt(int first, int last);
