#include "orders/wake_up.h"

#include <windows.h>

namespace BrivonCtl {
namespace {

// One event is both ends.
HANDLE EventOf(qintptr end) { return reinterpret_cast<HANDLE>(end); }

}  // namespace

WakeUp::WakeUp() {
  const HANDLE event = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
  if (event != nullptr) sleeping_end_ = waking_end_ = reinterpret_cast<qintptr>(event);
}

WakeUp::~WakeUp() {
  if (IsOpen()) ::CloseHandle(EventOf(sleeping_end_));
}

bool WakeUp::IsOpen() const { return sleeping_end_ != -1; }

void WakeUp::Wake() const { ::SetEvent(EventOf(waking_end_)); }

bool WakeUp::Sleep(int milliseconds) const {
  const DWORD limit = milliseconds < 0 ? INFINITE : static_cast<DWORD>(milliseconds);
  return ::WaitForSingleObject(EventOf(sleeping_end_), limit) == WAIT_OBJECT_0;
}

}  // namespace BrivonCtl
