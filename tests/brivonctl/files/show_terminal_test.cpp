// "brivonctl show" in a real terminal.
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "brivonctl/files/checked_files.h"

using namespace Qt::StringLiterals;

namespace {

class ShowTerminal : public CheckedFiles {
 protected:
  void SetUp() override {
    folder_.Write(u"a.msg"_s, Page(1, "<L01><SA><CB>II\r\n").replace("96", "12"));
  }

  /// What a terminal of so many columns receives. `variables` are set there: "TERM=xterm".
  std::string ShownIn(unsigned short columns, const QByteArrayList& variables) {
    const QByteArray path = folder_.Path(u"a.msg"_s).toLocal8Bit();
    winsize size{24, columns, 0, 0};
    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
      for (const char* name : {"NO_COLOR", "COLORTERM", "TERM"}) ::unsetenv(name);
      for (const QByteArray& variable : variables) {
        const qsizetype equals = variable.indexOf('=');
        ::setenv(variable.left(equals).constData(), variable.mid(equals + 1).constData(), 1);
      }
      ::execl(BRIVONCTL_PROGRAM, "brivonctl", "show", path.constData(), nullptr);
      ::_exit(127);
    }
    std::string shown;
    std::array<char, 4096> portion;
    ssize_t count = 0;
    // The terminal's end is told as an error.
    while ((count = ::read(terminal, portion.data(), portion.size())) > 0) {
      shown.append(portion.data(), static_cast<std::size_t>(count));
    }
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    ::close(terminal);
    return shown;
  }
};

TEST_F(ShowTerminal, ItsWidthDecidesHowManyDotsShareACharacter) {
  EXPECT_EQ(ShownIn(80, {"TERM=xterm", "LC_ALL=C.UTF-8", "NO_COLOR=1"}),
            " ▀█▀   ▀█▀  \r\n  █     █   \r\n  █     █   \r\n ▀▀▀   ▀▀▀  \r\n");
  EXPECT_EQ(ShownIn(10, {"TERM=xterm", "LC_ALL=C.UTF-8", "NO_COLOR=1"}), "⠈⡏ ⠈⡏ \r\n⠠⠧ ⠠⠧ \r\n");
}

TEST_F(ShowTerminal, ItsEnvironmentDecidesOnTheColours) {
  EXPECT_NE(ShownIn(80, {"TERM=xterm", "LC_ALL=C.UTF-8"}).find("\x1B[0;38;5;46;48;5;235m▀"),
            std::string::npos);
  for (const char* every : {"COLORTERM=truecolor", "COLORTERM=24bit"}) {
    EXPECT_NE(ShownIn(80, {"TERM=xterm", "LC_ALL=C.UTF-8", every})
                  .find("\x1B[0;38;2;64;232;44;48;2;38;32;31m▀"),
              std::string::npos)
        << every;
  }
}

TEST_F(ShowTerminal, OneThatShowsNoBlocksGetsLetters) {
  const std::string cut = ".gg\r\n..g\r\n..g\r\n..g >\r\n..g\r\n..g\r\n.gg\r\n...\r\n";
  EXPECT_EQ(ShownIn(5, {"TERM=dumb", "LC_ALL=C.UTF-8"}), cut);
  EXPECT_EQ(ShownIn(5, {"TERM=xterm", "LC_ALL=C"}), cut);
  EXPECT_EQ(ShownIn(5, {"TERM=xterm", "LC_ALL=xx_YY.UTF-8"}), cut);  // which nobody has installed
  EXPECT_EQ(ShownIn(5, {"LC_ALL=C.UTF-8"}), cut);
}

}  // namespace
