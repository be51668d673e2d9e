#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>
#ifdef __GLIBC__
#include <malloc.h>
#include <pthread.h>
#endif

#include <algorithm>

#include <QByteArray>

#include "brivonctl/start_up.h"

namespace BrivonCtl {
namespace {

/// A standard stream that was closed would be the next file that is opened, and what is printed
/// would land there.
void OpenClosedStreams() {
  int descriptor = ::open("/dev/null", O_RDWR);
  while (descriptor >= STDIN_FILENO && descriptor <= STDERR_FILENO) {
    descriptor = ::open("/dev/null", O_RDWR);
  }
  if (descriptor >= 0) ::close(descriptor);
}

/// Hundreds of threads that wait need little room each.
void KeepThreadsSmall() {
  // An event loop of GLib costs more than the toolkit's own, and nothing here needs it.
  qputenv("QT_NO_GLIB", "1");
#ifdef __GLIBC__
  constexpr std::size_t kStack = std::size_t{512} * 1024;
  mallopt(M_ARENA_MAX, 2);
  pthread_attr_t attributes;
  if (pthread_attr_init(&attributes) != 0) return;
  pthread_attr_setstacksize(&attributes, kStack);
  pthread_setattr_default_np(&attributes);
  pthread_attr_destroy(&attributes);
#endif
}

}  // namespace

void PrepareProcess() {
  OpenClosedStreams();
  ::signal(SIGPIPE, SIG_IGN);  // who reads the output may stop; the panels get theirs all the same
  KeepThreadsSmall();
}

/// They need descriptors; the system is asked for as many as it may give.
int JobsThatFit(int jobs) {
  constexpr rlim_t kForThreads = 4;  // a socket, the one that takes its place, two to wake it
  constexpr rlim_t kForProgram = 64;
  rlimit limit = {};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return jobs;
  const rlim_t wanted = static_cast<rlim_t>(jobs) * kForThreads + kForProgram;
  if (limit.rlim_cur < wanted) {
    limit.rlim_cur = std::min(wanted, limit.rlim_max);
    ::setrlimit(RLIMIT_NOFILE, &limit);
  }
  if (limit.rlim_cur >= wanted) return jobs;
  const rlim_t left = limit.rlim_cur > kForProgram ? limit.rlim_cur - kForProgram : 0;
  return std::max(1, static_cast<int>(left / kForThreads));
}

}  // namespace BrivonCtl
