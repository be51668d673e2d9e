// What the threads tell the one that shows it: happenings in their order, and what wakes the one
// that waits for them.
#pragma once

#include <mutex>
#include <vector>

#include "orders/happenings.h"
#include "orders/wake_up.h"

namespace BrivonCtl {

class EventQueue {
 public:
  /// False where the system had no more descriptors: the queue cannot be waited at.
  bool IsOpen() const { return wake_up_.IsOpen(); }

  /// From any thread.
  void Tell(Happening happening);

  /// Everything that was told since the last call.
  std::vector<Happening> TakeAll();

  /// Sleeps until something is told, WakingEnd() is woken, or so many milliseconds have passed; -1:
  /// without limit.
  void Wait(int milliseconds) { wake_up_.Sleep(milliseconds); }

  /// Ends a wait without anything being told.
  const WakeUp& WakingEnd() const { return wake_up_; }

 private:
  WakeUp wake_up_;
  std::mutex mutex_;
  std::vector<Happening> happenings_;
};

}  // namespace BrivonCtl
