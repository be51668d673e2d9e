// What a person sees at a terminal.
#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include <gtest/gtest.h>

#include "brivonctl/site.h"
#include "support/wait_until.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char kInterrupt = '\x03';  // the key that a terminal makes a signal of

/// Runs the program at a terminal of that size and returns everything that it has shown there. It
/// is interrupted once it has shown `awaited`, if anything is awaited.
QByteArray Shown(const QStringList& words, const QList<QByteArray>& environment, winsize size,
                 const QByteArray& awaited = {}) {
  std::vector<QByteArray> texts = {BRIVONCTL};
  for (const QString& word : words) texts.push_back(word.toLocal8Bit());
  std::vector<char*> arguments;
  for (QByteArray& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);
  std::vector<char*> variables;
  QList<QByteArray> own = environment;
  for (QByteArray& variable : own) variables.push_back(variable.data());
  variables.push_back(nullptr);

  int terminal = -1;
  const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
  if (child == 0) {
    ::execve(BRIVONCTL, arguments.data(), variables.data());
    ::_exit(127);
  }
  ::fcntl(terminal, F_SETFL, O_NONBLOCK);
  QByteArray shown;
  bool is_interrupted = awaited.isEmpty();
  int status = -1;
  EXPECT_TRUE(WaitUntil([&] {
    const bool has_ended = ::waitpid(child, &status, WNOHANG) == child;
    char bytes[4096];
    for (ssize_t count = 0; (count = ::read(terminal, bytes, sizeof bytes)) > 0;) {
      shown.append(bytes, count);
    }
    if (!is_interrupted && shown.contains(awaited)) {
      is_interrupted = ::write(terminal, &kInterrupt, 1) == 1;
    }
    return has_ended;
  }));
  ::close(terminal);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), awaited.isEmpty() ? 1 : 130);
  return shown;
}

class BrivonctlTerminal : public testing::Test {
 protected:
  BrivonctlTerminal() {
    site_.Close(2);
    site_.Fail(1, {.late_ms = 400});
  }

  QByteArray ShownWith(const QList<QByteArray>& environment, winsize size = {10, 40, 0, 0},
                       const QByteArray& awaited = {}) const {
    return Shown({u"send"_s, u"page"_s, site_.Page(), u"--page"_s, u"7"_s, u"--to"_s, u"all"_s,
                  u"--folder"_s, site_.Folder().Path({})},
                 environment, size, awaited);
  }

  Site site_{2};
};

TEST_F(BrivonctlTerminal, APanelThatMovesHasALineAndTheTableHasColours) {
  const QByteArray shown = ShownWith({"TERM=xterm", "LC_ALL=C.UTF-8"});
  EXPECT_TRUE(shown.contains("ID001 Row 1 of 2, attempt 1 of 5\r\n")) << shown.toStdString();
  EXPECT_TRUE(shown.contains("0 of 2 done, 1 failed, ")) << shown.toStdString();
  EXPECT_TRUE(shown.contains("\x1b[J")) << shown.toStdString();
  EXPECT_TRUE(shown.contains("ID001  \x1b[32mok       \x1b[0mTransmission finished!\r\n"))
      << shown.toStdString();
  EXPECT_TRUE(shown.contains("ID002  \x1b[31mfailed   \x1b[0mCannot create TCP link!\r\n"))
      << shown.toStdString();
}

TEST_F(BrivonctlTerminal, WhoeverInterruptsItReadsThatTheAttemptsEnd) {
  site_.Fail(1, {.silent = true});
  const QByteArray shown =
      ShownWith({"TERM=xterm", "LC_ALL=C.UTF-8"}, {10, 80, 0, 0}, "ID001 Row 1 of 2");
  EXPECT_TRUE(shown.contains(" s, stopping after the attempts in progress\r\n"))
      << shown.toStdString();
  // It stands in the total, and in no line of its own.
  EXPECT_FALSE(shown.contains("\nstopping")) << shown.toStdString();
  EXPECT_TRUE(shown.contains("ID001  \x1b[33mstopped  \x1b[0mAborted! ")) << shown.toStdString();
}

TEST_F(BrivonctlTerminal, OneThatDoesNotKnowItsSizeHasTheUsualOne) {
  const QByteArray shown = ShownWith({"TERM=xterm", "LC_ALL=C.UTF-8", "NO_COLOR=1"}, {});
  EXPECT_TRUE(shown.contains("ID001 Row 1 of 2, attempt 1 of 5\r\n")) << shown.toStdString();
  EXPECT_FALSE(shown.contains("and 1 more")) << shown.toStdString();
}

TEST_F(BrivonctlTerminal, OneWithoutANameIsNone) {
  const QByteArray shown = ShownWith({"LC_ALL=C.UTF-8"});
  EXPECT_FALSE(shown.contains('\x1b')) << shown.toStdString();
}

TEST_F(BrivonctlTerminal, WithoutColoursThereAreNone) {
  const QByteArray shown = ShownWith({"TERM=xterm", "LC_ALL=C.UTF-8", "NO_COLOR=1"});
  EXPECT_TRUE(shown.contains("ID001 Row 1 of 2, attempt 1 of 5\r\n")) << shown.toStdString();
  EXPECT_FALSE(shown.contains("\x1b[3")) << shown.toStdString();
}

TEST_F(BrivonctlTerminal, OfADumbTerminalTheCursorStaysWhereItIs) {
  const QByteArray shown = ShownWith({"TERM=dumb", "LC_ALL=C.UTF-8"});
  EXPECT_FALSE(shown.contains('\x1b')) << shown.toStdString();
  EXPECT_TRUE(shown.contains("ID001 ok Transmission finished!\r\n")) << shown.toStdString();
}

}  // namespace
