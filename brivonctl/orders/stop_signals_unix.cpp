#include "orders/stop_signals.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "usage/exit_status.h"

namespace BrivonCtl {
namespace {

std::atomic<int> signals_come = 0;
std::atomic<int> waking_descriptor = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void TakeSignal(int /*number*/) {
  const int error = errno;
  if (signals_come.fetch_add(1) > 0) ::_exit(kStopped);
  const int descriptor = waking_descriptor.load();
  if (descriptor >= 0) [[maybe_unused]]
    const auto size = ::write(descriptor, "", 1);
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
  waking_descriptor = static_cast<int>(waking_end.WakingEnd());
  SetHandler(TakeSignal);
}

void ReleaseStopSignals() {
  SetHandler(SIG_DFL);
  waking_descriptor = -1;
}

bool IsStopRequested() { return signals_come.load() > 0; }

}  // namespace BrivonCtl
