#include "orders/wake_up.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace BrivonCtl {

WakeUp::WakeUp() {
  int ends[2] = {-1, -1};
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  sleeping_end_ = ends[0];
  waking_end_ = ends[1];
}

WakeUp::~WakeUp() {
  if (!IsOpen()) return;
  ::close(static_cast<int>(sleeping_end_));
  ::close(static_cast<int>(waking_end_));
}

bool WakeUp::IsOpen() const { return sleeping_end_ >= 0; }

void WakeUp::Wake() const {
  // A full pipe wakes as well as one more byte would.
  [[maybe_unused]] const auto size = ::write(static_cast<int>(waking_end_), "", 1);
}

bool WakeUp::Sleep(int milliseconds) const {
  const int descriptor = static_cast<int>(sleeping_end_);
  pollfd look{descriptor, POLLIN, 0};
  ::poll(&look, 1, milliseconds);
  bool was_woken = false;
  char bytes[64];
  while (::read(descriptor, bytes, sizeof(bytes)) > 0) was_woken = true;
  return was_woken;
}

}  // namespace BrivonCtl
