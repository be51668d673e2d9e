#include "orders/crew.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include <QEventLoop>

namespace BrivonCtl {

Crew::Crew(const Assignment& assignment, const QList<PanelsOfALine>& lines, int jobs,
           EventQueue& queue)
    : assignment_(assignment), lines_(lines), queue_(queue) {
  const auto count = std::min<qsizetype>(jobs, lines_.size());
  threads_.reserve(static_cast<std::size_t>(count));
  try {
    for (qsizetype i = 0; i < count; ++i) threads_.emplace_back([this] { Work(); });
  } catch (const std::system_error&) {
    // The system gives no more threads; the lines are left to those that there are.
  }
}

Crew::~Crew() {
  for (std::thread& thread : threads_) thread.join();
}

const PanelsOfALine* Crew::NextLine() {
  const std::lock_guard lock(mutex_);
  return next_line_ < lines_.size() ? &lines_.at(next_line_++) : nullptr;
}

void Crew::Work() {
  const QEventLoop loop;  // gives the thread what sockets and timers live by
  StoppablePorts ports(stop_);
  const Tell tell = [this](Happening happening) { queue_.Tell(std::move(happening)); };
  Transmitter transmitter(assignment_, ports.Ports(), tell);
  while (const PanelsOfALine* panels = NextLine()) transmitter.Serve(*panels);
}

}  // namespace BrivonCtl
