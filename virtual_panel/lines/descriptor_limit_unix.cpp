#include "lines/descriptor_limit.h"

#include <sys/resource.h>

#include <algorithm>

namespace VirtualPanel {

int RaiseDescriptorLimit() {
  constexpr rlim_t kWanted = kMostDescriptors;
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return kKeptDescriptors;
  if (limit.rlim_cur < kWanted) {
    rlimit raised = limit;
    raised.rlim_cur = std::min(limit.rlim_max, kWanted);
    if (::setrlimit(RLIMIT_NOFILE, &raised) == 0) limit = raised;
  }
  return static_cast<int>(std::min(limit.rlim_cur, kWanted));
}

}  // namespace VirtualPanel
