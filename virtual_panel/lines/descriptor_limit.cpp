#include "lines/descriptor_limit.h"

#include <algorithm>

namespace VirtualPanel {
namespace {

constexpr int kKeptForALine = 256;

}  // namespace

int MostConnections(int descriptors, int tcp_lines) {
  const int all = descriptors - kKeptDescriptors;
  return std::max({all / tcp_lines, all - (tcp_lines - 1) * kKeptForALine, 1});
}

}  // namespace VirtualPanel
