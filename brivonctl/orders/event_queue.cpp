#include "orders/event_queue.h"

#include <utility>

namespace BrivonCtl {

void EventQueue::Tell(Happening happening) {
  bool was_empty = false;
  {
    const std::lock_guard lock(mutex_);
    was_empty = happenings_.empty();
    happenings_.push_back(std::move(happening));
  }
  if (was_empty) wake_up_.Wake();
}

std::vector<Happening> EventQueue::TakeAll() {
  const std::lock_guard lock(mutex_);
  return std::exchange(happenings_, {});
}

}  // namespace BrivonCtl
