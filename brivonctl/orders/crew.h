// The threads that carry out an order, one for each line in progress. They share nothing but the
// assignment, which nobody changes, and tell everything to a queue.
#pragma once

#include <cstddef>
#include <mutex>
#include <thread>
#include <vector>

#include "orders/event_queue.h"
#include "orders/stoppable_ports.h"
#include "orders/transmitter.h"

namespace BrivonCtl {

class Crew {
 public:
  /// Begins at once, with at most `jobs` lines side by side, fewer where the system gives fewer
  /// threads. `queue` outlives the crew.
  Crew(const Assignment& assignment, const QList<PanelsOfALine>& lines, int jobs,
       EventQueue& queue);

  /// Waits for the threads.
  ~Crew();

  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;

  /// Whether the system has given no thread at all: nothing will happen.
  bool IsEmpty() const { return threads_.empty(); }

  /// Ends every transmission after the attempt in progress. The panels that are left are told as
  /// stopped.
  void Stop() { stop_ = true; }

 private:
  void Work();
  const PanelsOfALine* NextLine();

  const Assignment assignment_;
  const QList<PanelsOfALine> lines_;
  EventQueue& queue_;
  StopFlag stop_ = false;
  std::mutex mutex_;
  qsizetype next_line_ = 0;
  std::vector<std::thread> threads_;
};

}  // namespace BrivonCtl
