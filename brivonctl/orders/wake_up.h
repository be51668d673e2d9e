// Wakes the one thread that sleeps here: from another thread, or from within a signal handler.
#pragma once

#include <QtGlobal>

namespace BrivonCtl {

class WakeUp {
 public:
  WakeUp();
  ~WakeUp();

  WakeUp(const WakeUp&) = delete;
  WakeUp& operator=(const WakeUp&) = delete;

  /// False where the system had nothing left to wait at.
  bool IsOpen() const;

  /// Ends the sleep, or the next one. Calls nothing that a signal handler must not call.
  void Wake() const;

  /// What Wake() goes to: a descriptor on Unix.
  qintptr WakingEnd() const { return waking_end_; }

  /// Sleeps until it is woken or so many milliseconds have passed; -1: without limit. Returns
  /// whether it was woken.
  bool Sleep(int milliseconds) const;

 private:
  qintptr sleeping_end_ = -1;
  qintptr waking_end_ = -1;
};

}  // namespace BrivonCtl
