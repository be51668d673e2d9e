// A disk without room, for the time of a test.
#pragma once

#include <sys/resource.h>

#include <csignal>

/// While it lives, the system writes the first `room` bytes of a file and refuses all others, for
/// every user; a save meets a real short write.
class FullDisk {
 public:
  explicit FullDisk(rlim_t room) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_limit_);
    const rlimit limit{room, old_limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }

  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &old_limit_);
    std::signal(SIGXFSZ, old_handler_);
  }

  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*old_handler_)(int);
  rlimit old_limit_{};
};
