// A disk without room, for the time of a test.
#pragma once

#include <sys/resource.h>

#include <csignal>

/// While it lives, the system writes the first bytes of a file and refuses all others, for every
/// user; a save meets a real short write.
class NoRoom {
 public:
  NoRoom() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small{kBytes, limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }

  ~NoRoom() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, handler_);
  }

  NoRoom(const NoRoom&) = delete;
  NoRoom& operator=(const NoRoom&) = delete;

 private:
  static constexpr rlim_t kBytes = 20;

  void (*handler_)(int);
  rlimit limit_{};
};
