#include "orders/stop_signals.h"

#include <windows.h>

#include <atomic>
#include <mutex>

#include "usage/exit_status.h"

namespace BrivonCtl {
namespace {

std::atomic<int> signals_come = 0;
std::mutex mutex;
const WakeUp* wake_up = nullptr;

/// Runs in a thread that the system starts for it.
BOOL WINAPI TakeSignal(DWORD signal) {
  if (signals_come.fetch_add(1) > 0) ::TerminateProcess(::GetCurrentProcess(), kStopped);
  {
    const std::lock_guard lock(mutex);
    if (wake_up != nullptr) wake_up->Wake();
  }
  // Once a handler returns from one of the others, the system ends the program.
  if (signal != CTRL_C_EVENT && signal != CTRL_BREAK_EVENT) ::Sleep(INFINITE);
  return TRUE;
}

void SetWakeUp(const WakeUp* waking_end) {
  const std::lock_guard lock(mutex);
  wake_up = waking_end;
}

}  // namespace

void CatchStopSignals(const WakeUp& waking_end) {
  signals_come = 0;
  SetWakeUp(&waking_end);
  // Whoever started the program may have had Ctrl+C ignored.
  ::SetConsoleCtrlHandler(nullptr, FALSE);
  ::SetConsoleCtrlHandler(TakeSignal, TRUE);
}

void ReleaseStopSignals() {
  ::SetConsoleCtrlHandler(TakeSignal, FALSE);
  SetWakeUp(nullptr);
}

bool IsStopRequested() { return signals_come.load() > 0; }

}  // namespace BrivonCtl
