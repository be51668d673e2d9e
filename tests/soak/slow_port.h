// A serial port in memory whose bytes leave at its speed, or at once; what has not left when it is
// closed never arrives. A frame, or a piece of one, may be lost on its way.
#pragma once

#include <functional>

#include "base/text.h"
#include "support/memory_line.h"

class SlowPort : public MemoryPort {
 public:
  SlowPort(VirtualPanel::PanelEngine& engine, VirtualTime& time, const QString& name)
      : MemoryPort(engine, time, name), time_(time) {}

  /// Whether bytes need their time.
  bool needs_time = false;

  /// Asked of everything that is written while bytes need no time.
  std::function<bool()> is_lost_on_its_way = [] { return false; };

  bool Open(const QString& device, const QByteArray& settings) override {
    // Of a frame that a pulled plug has cut nobody can send the rest: the panel forgets it.
    sees_closing = IsLost();
    speed_ = Brivon1::LeadingNumber(settings, 1, 1'000'000);
    waiting_.clear();
    return MemoryPort::Open(device, settings);
  }

  void Write(const QByteArray& bytes) override {
    if (!IsOpen() || IsLost()) return;
    if (!needs_time) {
      if (!is_lost_on_its_way()) MemoryPort::Write(bytes);
      return;
    }
    waiting_ += bytes;
    if (!is_leaving_) LeaveInTime();
  }

  qint64 Unsent() const override { return IsOpen() && !IsLost() ? waiting_.size() : 0; }
  int Speed() const override { return needs_time ? speed_ : MemoryPort::Speed(); }

  void GiveUp() override {
    if (Unsent() == 0) return;
    ++cuts_;
    waiting_ = "\r\n";
  }

  /// How often bytes that had not left were given up.
  int Cuts() const { return cuts_; }

  void Close() override {
    waiting_.clear();
    MemoryPort::Close();
  }

 private:
  static constexpr qint64 kStep = 5;           // milliseconds between two looks
  static constexpr qint64 kByteTime = 10'000;  // of a byte, in milliseconds times the speed

  void LeaveInTime() {
    is_leaving_ = !waiting_.isEmpty() && IsOpen() && !IsLost();
    if (!is_leaving_) {
      passed_ = 0;
      return;
    }
    time_.Schedule(kStep, [this] {
      passed_ += kStep * speed_;
      const qsizetype leaving = qMin<qsizetype>(passed_ / kByteTime, waiting_.size());
      passed_ -= leaving * kByteTime;
      const QByteArray bytes = waiting_.first(leaving);
      waiting_.remove(0, leaving);
      if (!bytes.isEmpty()) MemoryPort::Write(bytes);
      LeaveInTime();
    });
  }

  VirtualTime& time_;
  QByteArray waiting_;
  int speed_ = 9600;
  qint64 passed_ = 0;
  bool is_leaving_ = false;
  int cuts_ = 0;
};

class LossySocket : public MemorySocket {
 public:
  using MemorySocket::MemorySocket;

  std::function<bool()> is_lost_on_its_way = [] { return false; };

  void Write(const QByteArray& bytes) override {
    if (!is_lost_on_its_way()) MemorySocket::Write(bytes);
  }
};
