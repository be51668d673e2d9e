// What callers do to the virtual panel: silent ones, slow ones, ones that never end a frame or
// never read. The program goes on serving its other lines, in bounded memory. The environment sets
// how hard it is tried: BRIVON_CALLERS connections, BRIVON_CALLER_MEGABYTES of endless frames and
// BRIVON_CALLER_PAUSE milliseconds between two bytes of a slow one.
#include "callers.h"

#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>

#include <QElapsedTimer>
#include <QSerialPort>

#include "program_fixture.h"
#include "support/sanitizers.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr bool kMemoryCounts = !kAddressSanitizer;  // the sanitizer's own is many times as much
constexpr qint64 kLongestWaitMs = kAddressSanitizer ? 5000 : 1000;

constexpr char kPoll[] = "<ID01><?>\r\n";
constexpr char kAnswer[] = "<ID01>\r\n";
constexpr int kUsualCallers = 500;
constexpr qint64 kMegabyte = qint64{1024} * 1024;

int FromEnvironment(const char* name, int usual) {
  bool is_number = false;
  const int number = qEnvironmentVariableIntValue(name, &is_number);
  return is_number ? number : usual;
}

/// What ten thousand callers wait for may take minutes.
template <typename Condition>
bool WaitLong(Condition condition) {
  bool holds = false;
  for (int tens = 0; tens < 18 && !holds; ++tens) holds = WaitUntil(condition);
  return holds;
}

class Callers : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    limit.rlim_cur = limit.rlim_max;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    ASSERT_GT(limit.rlim_cur, static_cast<rlim_t>(count_) + 100) << "BRIVON_CALLERS: too many";
  }

  /// With the usual number of them, no other line has waited long.
  void TearDown() override {
    if (count_ <= kUsualCallers) {
      EXPECT_LT(longest_, kLongestWaitMs) << "another line had to wait";
    }
    ProgramTest::TearDown();
  }

  /// The program with a TCP line for the callers and two other lines.
  void StartWithThreeLines() {
    const QString link = PathOf("panel");
    Start({u"--headless"_s, u"--tcp"_s, u"0"_s, u"--tcp"_s, u"0"_s, u"--pty"_s, link});
    const QRegularExpression line(u"^listening on tcp 127\\.0\\.0\\.1:(\\d+)$"_s,
                                  QRegularExpression::MultilineOption);
    auto found = line.globalMatch(output_);
    port_ = found.next().captured(1).toUShort();
    other_port_ = found.next().captured(1).toUShort();
    terminal_.setPortName(link);
    ASSERT_TRUE(terminal_.open(QIODevice::ReadWrite));
    AskTheOthers("nobody else");
    start_memory_ = Memory();
  }

  /// Polls over both other lines, a new connection and the terminal, and shows how long that took.
  void AskTheOthers(const char* meanwhile) {
    QElapsedTimer timer;
    timer.start();
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_s, other_port_);
    EXPECT_EQ(Exchange(&socket, kPoll), kAnswer) << meanwhile;
    const qint64 tcp = timer.restart();
    EXPECT_EQ(Exchange(&terminal_, kPoll), kAnswer) << meanwhile;
    const qint64 terminal = timer.elapsed();
    longest_ = std::max({longest_, tcp, terminal});
    std::printf("%-36s tcp %4lld ms, terminal %4lld ms, %6lld kB\n", meanwhile,
                static_cast<long long>(tcp), static_cast<long long>(terminal),
                static_cast<long long>(Memory()));
  }

  /// What the program takes, at its highest, in kilobytes.
  qint64 Memory() {
    QFile file(u"/proc/%1/status"_s.arg(process_.processId()));
    if (!file.open(QIODevice::ReadOnly)) return -1;
    const QByteArray status = file.readAll();
    const qsizetype at = status.indexOf("VmHWM:");
    return status.mid(at + 6, status.indexOf('k', at) - at - 6).trimmed().toLongLong();
  }

  /// Expects that it has taken no more since the start than `kilobytes`.
  void ExpectMemoryBelow(qint64 kilobytes) {
    if (!kMemoryCounts) return;
    EXPECT_GT(Memory(), 0);
    EXPECT_LT(Memory() - start_memory_, kilobytes);
  }

  /// What a connection costs in kilobytes, above what it is measured to cost, and what is held for
  /// all of them, with as much again for what the heap does not give back.
  static qint64 Allowed(qint64 callers) { return callers * 16 + 2 * 32 * 1024; }

  const int count_ = FromEnvironment("BRIVON_CALLERS", kUsualCallers);
  const int megabytes_ = FromEnvironment("BRIVON_CALLER_MEGABYTES", 32);
  const int pause_ = FromEnvironment("BRIVON_CALLER_PAUSE", 0);
  quint16 port_ = 0;
  quint16 other_port_ = 0;
  QSerialPort terminal_;
  qint64 start_memory_ = 0;
  qint64 longest_ = 0;
};

TEST_F(Callers, WhoSayNothingAndWhoSendAByteAtATimeAreAnsweredInTheEnd) {
  StartWithThreeLines();
  std::vector<Caller> callers = Call(port_, count_);
  AskTheOthers("connected, and silent");
  const std::string_view frame = kPoll;
  for (const char& byte : frame) {
    for (Caller& caller : callers) ASSERT_EQ(caller.Send({&byte, 1}), 1U);
    AskTheOthers("a byte of each");
    std::this_thread::sleep_for(std::chrono::milliseconds(pause_));
  }
  ASSERT_TRUE(WaitLong([&] {
    return std::all_of(callers.begin(), callers.end(),
                       [](Caller& caller) { return caller.Answer() == kAnswer; });
  }));
  ExpectMemoryBelow(Allowed(count_));
  callers.clear();
  AskTheOthers("all gone at once");
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(Callers, WhoNeverEndAFrameCostABoundedNumberOfBytes) {
  StartWithThreeLines();
  std::vector<Caller> callers = Call(port_, 20);
  std::atomic<bool> is_done = false;
  std::thread sender([&] {
    const std::string piece(65'536, 'x');
    qint64 sent = 0;
    while (sent < megabytes_ * kMegabyte) {
      for (Caller& caller : callers) sent += static_cast<qint64>(caller.Send(piece));
    }
    is_done = true;
  });
  do {
    AskTheOthers("frames without an end");
  } while (!is_done);
  sender.join();
  ExpectMemoryBelow(Allowed(20));
  // A line end is the end of it, and the next frame is a frame again.
  for (Caller& caller : callers) {
    EXPECT_TRUE(caller.IsConnected());
    const std::string end = std::string("\r\n") + kPoll;
    size_t sent = 0;
    ASSERT_TRUE(WaitUntil([&] {
      sent += caller.Send(std::string_view(end).substr(sent));
      return sent == end.size();
    }));
  }
  EXPECT_TRUE(WaitUntil([&] {
    return std::all_of(callers.begin(), callers.end(),
                       [](Caller& caller) { return caller.Answer() == kAnswer; });
  }));
}

TEST_F(Callers, WhoHoldMoreThanAllMayTogetherAreCutTheGreediestFirst) {
  StartWithThreeLines();
  std::vector<Caller> modest = Call(port_, 10);
  for (Caller& caller : modest) ASSERT_EQ(caller.Send("<ID01>"), 6U);
  // Together they would hold far more.
  std::vector<Caller> greedy = Call(port_, std::max(count_, 1200));
  const std::string most_of_a_frame(60'000, 'x');
  for (Caller& caller : greedy) caller.Send(most_of_a_frame);
  AskTheOthers("nearly a whole frame of each");
  ASSERT_TRUE(WaitUntil([&] {
    return std::any_of(greedy.begin(), greedy.end(), [](Caller& caller) {
      caller.Answer();
      return !caller.IsConnected();
    });
  }));
  for (Caller& caller : modest) ASSERT_EQ(caller.Send("<?>\r\n"), 5U);
  EXPECT_TRUE(WaitUntil([&] {
    return std::all_of(modest.begin(), modest.end(),
                       [](Caller& caller) { return caller.Answer() == kAnswer; });
  }));
  ExpectMemoryBelow(Allowed(static_cast<qint64>(modest.size() + greedy.size())));
}

TEST_F(Callers, WhoNeverReadTheirAnswersCostABoundedNumberOfBytes) {
  StartWithThreeLines();
  constexpr size_t kRounds = 20;
  constexpr size_t kPolls = 1000;
  std::vector<Caller> callers = Call(port_, 50);
  std::string polls;
  for (size_t i = 0; i < kPolls; ++i) polls += kPoll;
  for (size_t round = 0; round < kRounds; ++round) {
    for (Caller& caller : callers) {
      size_t sent = 0;
      ASSERT_TRUE(WaitUntil([&] {
        sent += caller.Send(std::string_view(polls).substr(sent));
        return sent == polls.size() || !caller.IsConnected();
      }));
      ASSERT_TRUE(caller.IsConnected());
    }
    AskTheOthers("polls whose answers nobody reads");
  }
  ExpectMemoryBelow(Allowed(50));
  // Each has been heard for a round at least, though the others never ended either.
  std::string answers;
  for (size_t i = 0; i < kPolls; ++i) answers += kAnswer;
  for (Caller& caller : callers) {
    ASSERT_TRUE(WaitUntil([&] { return caller.Answer().size() >= answers.size(); }));
    EXPECT_EQ(caller.Answer().substr(0, answers.size()), answers);
    EXPECT_TRUE(caller.IsConnected());
  }
}

TEST_F(Callers, MoreThanTheSystemAllowsAreCutAndTheOthersGoOn) {
  process_.setChildProcessModifier([] {
    const rlimit few{128, 128};
    ::setrlimit(RLIMIT_NOFILE, &few);
  });
  StartWithThreeLines();
  {
    // 64 descriptors are left to the two TCP lines: 32 each.
    std::vector<Caller> callers = Call(port_, count_);
    const auto connected = [&] {
      return std::count_if(callers.begin(), callers.end(), [](Caller& caller) {
        caller.Answer();
        return caller.IsConnected();
      });
    };
    EXPECT_TRUE(WaitUntil([&] { return connected() == 32; })) << connected();
    AskTheOthers("more callers than descriptors");
  }
  AskTheOthers("all gone at once");
  Caller next(port_);
  EXPECT_EQ(next.Send(kPoll), sizeof kPoll - 1);
  EXPECT_TRUE(WaitUntil([&] { return next.Answer() == kAnswer; }));
}

}  // namespace
}  // namespace VirtualPanel
