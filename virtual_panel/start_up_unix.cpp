#include "virtual_panel/start_up.h"

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

int signal_sockets[2] = {-1, -1};

void PassSignalOn(int /*number*/) {
  const char byte = 1;
  [[maybe_unused]] const ssize_t size = ::write(signal_sockets[0], &byte, 1);
}

}  // namespace

void OpenStreams() {}

bool HasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

void QuitOnSignals(QCoreApplication* application) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signal_sockets) != 0) return;
  auto* notifier = new QSocketNotifier(signal_sockets[1], QSocketNotifier::Read, application);
  QObject::connect(notifier, &QSocketNotifier::activated, application, &QCoreApplication::quit);
  struct sigaction action = {};
  action.sa_handler = PassSignalOn;
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
  // Whoever started the program may stop listening to it.
  action.sa_handler = SIG_IGN;
  ::sigaction(SIGPIPE, &action, nullptr);
}

QString PtyHelp() { return u"Make a pseudo-terminal and a symbolic link to it."_s; }

}  // namespace VirtualPanel
