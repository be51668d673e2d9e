// What a serial port is to the rest of the system and to itself where something goes wrong, carried
// by each of the adapters.
#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include "panel_line/serial_link.h"
#include "port_kinds.h"
#include "support/raw_terminal.h"
#include "support/sanitizers.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

// Lets the program open `room` more files, as long as it lives.
class FewFiles {
 public:
  explicit FewFiles(int room) {
    getrlimit(RLIMIT_NOFILE, &before_);
    rlimit few = before_;
    const int next = dup(STDIN_FILENO);
    close(next);
    few.rlim_cur = static_cast<rlim_t>(next + room);
    setrlimit(RLIMIT_NOFILE, &few);
  }
  ~FewFiles() { setrlimit(RLIMIT_NOFILE, &before_); }

  FewFiles(const FewFiles&) = delete;
  FewFiles& operator=(const FewFiles&) = delete;

 private:
  rlimit before_{};
};

class SerialPortTest : public testing::TestWithParam<Ports::PortKind> {
 protected:
  RawTerminal terminal_;
  std::unique_ptr<Ports::Port> port_ = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(Ports, SerialPortTest, Ports::kPortKinds, Ports::PortKindName);

TEST_P(SerialPortTest, WhereNoMoreFilesCanBeOpenedThePortSaysSo) {
  if (kAddressSanitizer) {
    GTEST_SKIP() << "The sanitizers open files of their own to look at an exception.";
  }
  constexpr int kMostFiles = 20;
  int room = 0;
  for (bool opened = false; !opened && room < kMostFiles; ++room) {
    const FewFiles few(room);
    opened = port_->Open(terminal_.Device(), 9600);
    EXPECT_EQ(port_->ErrorString().isEmpty(), opened) << room;
    EXPECT_EQ(port_->IsOpen(), opened) << room;
  }
  EXPECT_GT(room, 1) << "a port takes a file at least";
  EXPECT_LT(room, kMostFiles);
}

TEST_P(SerialPortTest, AProgramThatIsStartedMeanwhileDoesNotKeepThePort) {
  ASSERT_TRUE(port_->Open(terminal_.Device(), 9600));
  int own = 0;
  for (int file = 3; file < 1000; ++file) {
    const QString name = QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(file));
    if (name != terminal_.Device()) continue;
    ++own;
    EXPECT_EQ(fcntl(file, F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
  }
  EXPECT_EQ(own, 1);
}

TEST_P(SerialPortTest, ACopyOfTheProgramDoesNotKeepThePort) {
  ASSERT_TRUE(port_->Open(terminal_.Device(), 9600));
  const pid_t copy = fork();
  if (copy == 0) {
    for (;;) pause();
  }
  ASSERT_GT(copy, 0);
  port_->Close();
  EXPECT_TRUE(port_->Open(terminal_.Device(), 9600)) << port_->ErrorString().toStdString();
  kill(copy, SIGKILL);
  waitpid(copy, nullptr, 0);
}

TEST_P(SerialPortTest, WhatIsGivenUpOverAndOverIsNoLoss) {
  ASSERT_TRUE(port_->Open(terminal_.Device(), 9600));
  for (int time = 0; time < 30; ++time) {
    port_->Write("x");
    port_->Discard();
  }
  QTest::qWait(0);
  EXPECT_FALSE(port_->IsLost()) << port_->ErrorString().toStdString();
  EXPECT_TRUE(port_->IsOpen());
}

TEST_P(SerialPortTest, WhatWaitedIsHeardOfWhereTheNextFrameTakesItAlong) {
  SerialLink link(nullptr, std::move(port_));
  ASSERT_TRUE(link.Open(terminal_.Device(), "9600,N,8,1"));
  link.Write(QByteArray(100'000, 'x'));
  ASSERT_GT(link.Unsent(), 0);
  for (int frame = 0; frame < 1000 && link.Unsent() > 0; ++frame) {
    terminal_.Received();
    link.Write("y");
  }
  ASSERT_EQ(link.Unsent(), 0);
  int happened = 0;
  QObject::connect(&link, &SerialLink::Happened, [&] { ++happened; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return happened > 0; }));
}

TEST(AsioPort, ALossThatWasNotToldYetIsOneAlsoWhenThePortIsClosed) {
  RawTerminal terminal;
  Ports::AsioPort port;
  ASSERT_TRUE(port.Open(terminal.Device(), 9600));
  terminal.Unplug();
  QElapsedTimer since;
  since.start();
  // No event is handled.
  while (!port.IsLost() && since.elapsed() < 60'000) QThread::msleep(1);
  ASSERT_TRUE(port.IsLost());
  port.Close();
  EXPECT_TRUE(port.IsLost());
  EXPECT_FALSE(port.ErrorString().isEmpty());
  const RawTerminal other;
  ASSERT_TRUE(port.Open(other.Device(), 9600));
  EXPECT_FALSE(port.IsLost());
}

TEST(AsioPort, APortThatCannotHaveItsSpeedIsLeftToOthers) {
  const RawTerminal terminal;
  const QByteArray name = terminal.Device().toLocal8Bit();
  const int look = open(name.constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_GE(look, 0);
  Ports::AsioPort port;
  EXPECT_FALSE(port.Open(terminal.Device(), 12345));
  EXPECT_FALSE(port.ErrorString().isEmpty());
  int is_exclusive = -1;
  EXPECT_EQ(ioctl(look, TIOCGEXCL, &is_exclusive), 0);
  EXPECT_EQ(is_exclusive, 0);
  close(look);
}

}  // namespace
}  // namespace Brivon1
