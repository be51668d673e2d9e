#include "lines/descriptor_limit.h"

#include <sys/resource.h>

#include <algorithm>

namespace VirtualPanel {
namespace {

constexpr int kKept = 64;
constexpr int kKeptForALine = 256;

}  // namespace

int RaiseDescriptorLimit() {
  constexpr rlim_t kWanted = kMostDescriptors;
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return kKept;
  if (limit.rlim_cur < kWanted) {
    rlimit raised = limit;
    raised.rlim_cur = std::min(limit.rlim_max, kWanted);
    if (::setrlimit(RLIMIT_NOFILE, &raised) == 0) limit = raised;
  }
  return static_cast<int>(std::min(limit.rlim_cur, kWanted));
}

int MostConnections(int descriptors, int tcp_lines) {
  const int all = descriptors - kKept;
  return std::max({all / tcp_lines, all - (tcp_lines - 1) * kKeptForALine, 1});
}

}  // namespace VirtualPanel
