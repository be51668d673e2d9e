#include "support/full_disk.h"

#include <sys/resource.h>

#include <csignal>

namespace {

void (*old_handler)(int) = nullptr;
rlimit old_limit{};

}  // namespace

FullDisk::FullDisk(qint64 room) {
  old_handler = std::signal(SIGXFSZ, SIG_IGN);
  getrlimit(RLIMIT_FSIZE, &old_limit);
  const rlimit limit{static_cast<rlim_t>(room), old_limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk() {
  setrlimit(RLIMIT_FSIZE, &old_limit);
  std::signal(SIGXFSZ, old_handler);
}
