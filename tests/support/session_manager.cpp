#include "support/session_manager.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

#include <QTest>

#include "support/session_server.h"

namespace {

constexpr int kPatience = 30000;  // milliseconds that a busy machine may take for an answer

[[noreturn]] void Fail(const char* reason) {
  perror(reason);
  _exit(1);
}

/// The bytes up to a line end that another process writes to `descriptor`.
QByteArray ReadLine(int descriptor) {
  QByteArray line;
  for (char byte = 0; read(descriptor, &byte, 1) == 1 && byte != '\n';) line += byte;
  return line;
}

}  // namespace

XServer::XServer() {
  int ends[2];
  if (pipe(ends) != 0) Fail("pipe");
  process_ = fork();
  if (process_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    close(ends[0]);
    const QByteArray number = QByteArray::number(ends[1]);
    execlp("Xvfb", "Xvfb", "-displayfd", number.constData(), "-nolisten", "tcp", nullptr);
    Fail("Xvfb");
  }
  close(ends[1]);
  const QByteArray display = ReadLine(ends[0]);
  close(ends[0]);
  if (display.isEmpty()) qFatal("no X server");
  qputenv("DISPLAY", ":" + display);
}

XServer::~XServer() {
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
}

SessionManager::SessionManager() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) Fail("socketpair");
  process_ = fork();
  if (process_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    close(ends[0]);
    RunSessionServer(ends[1]);
  }
  close(ends[1]);
  control_ = ends[0];
  const QByteArray address = ReadLine(control_);
  if (address.isEmpty()) qFatal("no session manager");
  qputenv("SESSION_MANAGER", address);
}

SessionManager::~SessionManager() {
  close(control_);
  waitpid(process_, nullptr, 0);
}

void SessionManager::Send(char order) const {
  if (write(control_, &order, 1) != 1) qFatal("the session manager is gone");
}

QByteArray SessionManager::AskToEnd(Questions questions) {
  Send(questions == Questions::kAllowed ? kAskWithQuestions : kAskWithoutQuestions);
  QByteArray said;
  const auto is_answered = [&] {
    char bytes[64];
    const ssize_t count = recv(control_, bytes, sizeof bytes, MSG_DONTWAIT);
    if (count > 0) said.append(bytes, count);
    return said.endsWith("ready\n") || said.endsWith("failed\n");
  };
  if (!QTest::qWaitFor(is_answered, kPatience)) said += "no answer";
  return said.trimmed().replace('\n', ' ');
}

void SessionManager::End() { Send(kEnd); }

void SessionManager::GoOn() { Send(kGoOn); }
