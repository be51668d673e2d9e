// A thread that looks whether the window's thread still handles events.
#pragma once

#include <pthread.h>

#include <atomic>
#include <mutex>
#include <thread>

#include <QByteArray>

/// While it lives, a window's thread that works for longer than the limit without a beat, or gives
/// none for a minute, ends the program: it says what was done last and where the thread is. It is
/// the thread's own working time that counts, so that a busy machine makes no hang.
class HangWatch {
 public:
  explicit HangWatch(int limit_ms);
  ~HangWatch();

  HangWatch(const HangWatch&) = delete;
  HangWatch& operator=(const HangWatch&) = delete;

  /// The thread handles events.
  void Beat() { ++beats_; }

  /// What it goes on to do.
  void Tell(const QByteArray& doing);

 private:
  void Watch();

  const qint64 limit_ms_;
  const pthread_t watched_ = pthread_self();
  std::atomic<quint64> beats_ = 0;
  std::mutex telling_;
  QByteArray doing_;
  std::atomic<bool> ends_ = false;
  std::thread thread_;
};
