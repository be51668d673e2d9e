#include "orders/stop_signals.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "usage/exit_status.h"

namespace BrivonCtl {
namespace {

std::atomic<int> signals_come = 0;
std::atomic<const WakeUp*> wake_up = nullptr;
static_assert(std::atomic<int>::is_always_lock_free);
static_assert(std::atomic<const WakeUp*>::is_always_lock_free);

void TakeSignal(int /*number*/) {
  const int error = errno;
  if (signals_come.fetch_add(1) > 0) ::_exit(kStopped);
  if (const WakeUp* end = wake_up.load()) end->Wake();
  errno = error;
}

void SetHandler(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int number : {SIGINT, SIGTERM}) ::sigaction(number, &action, nullptr);
}

}  // namespace

void CatchStopSignals(const WakeUp& waking_end) {
  signals_come = 0;
  wake_up = &waking_end;
  SetHandler(TakeSignal);
}

void ReleaseStopSignals() {
  SetHandler(SIG_DFL);
  wake_up = nullptr;
}

bool IsStopRequested() { return signals_come.load() > 0; }

}  // namespace BrivonCtl
