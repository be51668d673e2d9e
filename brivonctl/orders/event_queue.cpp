#include "orders/event_queue.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <utility>

namespace BrivonCtl {

EventQueue::EventQueue() {
  if (::pipe2(ends_, O_CLOEXEC | O_NONBLOCK) != 0) ends_[0] = ends_[1] = -1;
}

EventQueue::~EventQueue() {
  if (!IsOpen()) return;
  ::close(ends_[0]);
  ::close(ends_[1]);
}

void EventQueue::Tell(Happening happening) {
  bool was_empty = false;
  {
    const std::lock_guard lock(mutex_);
    was_empty = happenings_.empty();
    happenings_.push_back(std::move(happening));
  }
  // A full pipe wakes as well as one more byte would.
  if (was_empty) [[maybe_unused]]
    const auto size = ::write(ends_[1], "", 1);
}

std::vector<Happening> EventQueue::TakeAll() {
  const std::lock_guard lock(mutex_);
  return std::exchange(happenings_, {});
}

void EventQueue::Wait(int milliseconds) {
  pollfd look{ends_[0], POLLIN, 0};
  ::poll(&look, 1, milliseconds);
  char bytes[64];
  while (::read(ends_[0], bytes, sizeof(bytes)) > 0) {
  }
}

}  // namespace BrivonCtl
