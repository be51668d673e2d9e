// A serial port and a socket that end at the panels of a virtual panel's engine, in memory and in
// virtual time, and a tick timer and a clock whose waits handle the events that are due.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include <QByteArray>
#include <QString>

#include "engine/panel_engine.h"
#include "panel_line/link.h"
#include "support/virtual_time.h"

/// Handles the events that are due. Returns false when the program is ending.
bool HandleEvents();

class EventfulTickTimer : public VirtualTickTimer {
 public:
  using VirtualTickTimer::VirtualTickTimer;

  bool WaitForEvent() override { return HandleEvents() && VirtualTickTimer::WaitForEvent(); }
  void ProcessEvents() override { HandleEvents(); }
};

class EventfulClock : public VirtualClock {
 public:
  using VirtualClock::VirtualClock;

  bool WaitForEvent(qint64 at_most) override {
    return HandleEvents() && VirtualClock::WaitForEvent(at_most);
  }
};

/// What the port and the socket do alike.
template <typename Link>
class MemoryLine : public Link {
 public:
  MemoryLine(VirtualPanel::PanelEngine& engine, VirtualTime& time, const QString& name)
      : engine_(engine), time_(time), name_(name) {}

  void Unplug() {
    is_plugged_ = false;
    is_lost_ = true;
  }
  void PlugIn() { is_plugged_ = true; }

  bool IsOpen() const { return is_open_; }
  int Openings() const { return openings_; }

  /// Whether the other end forgets half a frame when the line is closed, as one does that sees the
  /// closing. A panel at three wires does not.
  bool sees_closing = true;

  /// Called when somebody has tried to open the line, in vain or not.
  std::function<void()> on_open = [] {};

  /// Called when the open line is about to be closed.
  std::function<void()> on_close = [] {};

  void Write(const QByteArray& bytes) override {
    if (!is_open_ || is_lost_) return;
    std::map<qint64, QList<VirtualPanel::Answer>> due;  // what comes at one time comes at once
    for (const VirtualPanel::Answer& answer : engine_.Receive(&splitter_, bytes, name_)) {
      // A line keeps its order: nothing overtakes what came before it.
      busy_to_ = std::max(busy_to_, time_.Now() + answer.after_ms);
      due[busy_to_].append(answer);
    }
    for (const auto& [at, due_then] : due) {
      After(at - time_.Now(), [this, answers = due_then] {
        for (const VirtualPanel::Answer& answer : answers) Carry(answer);
      });
    }
  }

  QByteArray ReadAvailable() override { return std::exchange(input_, {}); }
  qint64 Unsent() const override { return 0; }
  int Speed() const override { return 9600; }
  bool IsLost() const override { return is_lost_; }
  QString FailureReason() const override { return target_ + QStringLiteral(": nobody is there"); }

  void Close() override {
    if (!is_open_) return;
    on_close();
    is_open_ = false;
  }

 protected:
  /// Opens the line to `target` if it is plugged in.
  bool OpenTo(const QString& target) {
    ++openings_;
    target_ = target;
    is_open_ = is_plugged_;
    is_lost_ = !is_plugged_;
    if (sees_closing) splitter_ = {};
    input_.clear();
    busy_to_ = 0;
    on_open();
    return is_open_;
  }

 private:
  /// Lets `action` happen on this opening of the line, unless it is lost or closed before.
  template <typename Action>
  void After(qint64 milliseconds, const Action& action) {
    time_.Schedule(milliseconds, [this, action, opening = openings_] {
      if (opening == openings_ && is_open_ && !is_lost_) action();
    });
  }

  void Carry(const VirtualPanel::Answer& answer) {
    switch (answer.step) {
      case VirtualPanel::Answer::Step::kSend:
        input_ += answer.bytes;
        break;
      case VirtualPanel::Answer::Step::kClose:
        Unplug();
        break;
      case VirtualPanel::Answer::Step::kFlood:
        Flood();
        break;
    }
  }

  void Flood() {
    constexpr qsizetype kMost = 65536;
    constexpr qsizetype kPiece = 4096;
    constexpr qint64 kBetweenPieces = 10;
    if (!engine_.CurrentFaults().flood) return;
    if (input_.size() < kMost) input_ += QByteArray(kPiece, 'U');
    After(kBetweenPieces, [this] { Flood(); });
  }

  VirtualPanel::PanelEngine& engine_;
  VirtualTime& time_;
  QString name_;
  QString target_;
  VirtualPanel::FrameSplitter splitter_;
  QByteArray input_;
  qint64 busy_to_ = 0;
  int openings_ = 0;
  bool is_plugged_ = false;
  bool is_open_ = false;
  bool is_lost_ = false;
};

class MemoryPort : public MemoryLine<Brivon1::SerialPort> {
 public:
  using MemoryLine::MemoryLine;

  bool Open(const QString& device, const QByteArray&) override { return OpenTo(device); }
  void SetDtr(bool) override {}
  void SetRts(bool) override {}
};

class MemorySocket : public MemoryLine<Brivon1::TcpSocket> {
 public:
  using MemoryLine::MemoryLine;

  void Connect(const QString& host, int port) override {
    OpenTo(host + QLatin1Char(':') + QString::number(port));
  }
  bool IsConnected() const override { return IsOpen() && !IsLost(); }
};
