#include "monkey/hang_watch.h"

#include <execinfo.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>

namespace {

constexpr int kLook = 50;  // ms
constexpr qint64 kSilentLooks = 60000 / kLook;
constexpr int kDeepest = 100;

void ShowStack(int /*signal*/) {
  void* places[kDeepest];
  backtrace_symbols_fd(places, backtrace(places, kDeepest), STDERR_FILENO);
  _exit(3);
}

qint64 WorkingTime(pthread_t thread) {
  clockid_t clock;
  timespec time{};
  if (pthread_getcpuclockid(thread, &clock) != 0 || clock_gettime(clock, &time) != 0) return 0;
  return qint64{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

}  // namespace

HangWatch::HangWatch(int limit_ms) : limit_ms_(limit_ms) {
  std::signal(SIGUSR2, ShowStack);
  void* place;
  backtrace(&place, 1);  // loads what it needs, which a signal's handler must not
  thread_ = std::thread([this] { Watch(); });
}

HangWatch::~HangWatch() {
  ends_ = true;
  thread_.join();
}

void HangWatch::Tell(const QByteArray& doing) {
  const std::lock_guard lock(telling_);
  doing_ = doing;
}

void HangWatch::Watch() {
  quint64 seen = 0;
  qint64 since = 0;
  qint64 looks = 0;
  while (!ends_) {
    std::this_thread::sleep_for(std::chrono::milliseconds(kLook));
    const quint64 beats = beats_;
    const qint64 worked = WorkingTime(watched_);
    if (beats != seen || beats == 0) {
      seen = beats;
      since = worked;
      looks = 0;
      continue;
    }
    if (worked - since < limit_ms_ && ++looks < kSilentLooks) continue;
    const std::lock_guard lock(telling_);
    std::fprintf(stderr, "FAILED: hang: no event is handled for %lld ms of work, at: %s\n",
                 static_cast<long long>(worked - since), doing_.constData());
    pthread_kill(watched_, SIGUSR2);
    return;
  }
}
