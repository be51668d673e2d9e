// What the threads tell the one that shows it: happenings in their order, and a descriptor that
// wakes whoever polls it.
#pragma once

#include <mutex>
#include <vector>

#include "orders/happenings.h"

namespace BrivonCtl {

class EventQueue {
 public:
  EventQueue();
  ~EventQueue();

  EventQueue(const EventQueue&) = delete;
  EventQueue& operator=(const EventQueue&) = delete;

  /// False where the system had no more descriptors: the queue cannot be waited at.
  bool IsOpen() const { return ends_[0] >= 0; }

  /// From any thread.
  void Tell(Happening happening);

  /// Everything that was told since the last call.
  std::vector<Happening> TakeAll();

  /// Sleeps until something is told, a signal handler has written to WakingEnd(), or so many
  /// milliseconds have passed; -1: without limit.
  void Wait(int milliseconds);

  /// A descriptor to which one byte may be written to end a wait.
  int WakingEnd() const { return ends_[1]; }

 private:
  int ends_[2] = {-1, -1};
  std::mutex mutex_;
  std::vector<Happening> happenings_;
};

}  // namespace BrivonCtl
