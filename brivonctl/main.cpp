// The program's start. What it sets up for its many threads must stand before the first of them.

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#ifdef __GLIBC__
#include <malloc.h>
#include <pthread.h>
#endif

#include <QCoreApplication>

#include "brivonctl/program.h"

using namespace Qt::StringLiterals;

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

int main(int argc, char** argv) {
  OpenClosedStreams();
  ::signal(SIGPIPE, SIG_IGN);  // who reads the output may stop; the panels get theirs all the same
  KeepThreadsSmall();
  int count = 1;  // the program's name alone: the toolkit has no say in the command line
  QCoreApplication application(count, argv);
  QCoreApplication::setApplicationName(u"brivonctl"_s);
  return BrivonCtl::RunProgram(argc, argv);
}
