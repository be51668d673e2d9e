// A page of twelve rows to a panel that answers at once, over TCP loopback and over a
// pseudo-terminal, against a bare blocking loop that exchanges the same frames; and the processor
// time of a send to a panel that never answers. The pauses that the protocol demands are not part
// of the figures: no "Delay Period" is configured, and a connection is made once, beforehand.
#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <pty.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "measure.h"
#include "page/message_transmission.h"
#include "panel_line/framing.h"
#include "panel_line/panel_connection.h"
#include "panel_line/window_ports.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 12;
constexpr int kPanel = 1;
constexpr double kMostOfBare = 1.5;
constexpr double kMostProcessorShare = 0.01;
constexpr const char* kAcknowledgement = "<ID01>\r\n";
constexpr std::size_t kAckLength = 8;

void WriteAll(int line, const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(line, bytes, size);
    if (written <= 0) return;
    bytes += written;
    size -= static_cast<std::size_t>(written);
  }
}

/// A panel in a thread of its own that acknowledges every line end at once, with nothing between
/// the system call that reads and the one that writes.
class PromptPanel {
 public:
  explicit PromptPanel(int line) : line_(line), thread_([this] { Answer(); }) {}

  ~PromptPanel() {
    stop_ = true;
    thread_.join();
    ::close(line_);
  }

  PromptPanel(const PromptPanel&) = delete;
  PromptPanel& operator=(const PromptPanel&) = delete;

 private:
  void Answer() {
    char bytes[4096];
    while (!stop_) {
      pollfd ready{line_, POLLIN, 0};
      if (::poll(&ready, 1, 50) <= 0) continue;
      const ssize_t size = ::read(line_, bytes, sizeof bytes);
      for (ssize_t i = 0; i < size; ++i) {
        if (bytes[i] == '\n') WriteAll(line_, kAcknowledgement, kAckLength);
      }
    }
  }

  int line_;
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

struct PseudoTerminal {
  PseudoTerminal() {
    char name_buffer[128];
    termios raw{};
    ::cfmakeraw(&raw);
    if (::openpty(&master, &slave, name_buffer, &raw, nullptr) != 0) qFatal("no pseudo-terminal");
    name = QString::fromLatin1(name_buffer);
  }

  int master;
  int slave;
  QString name;
};

/// A folder with a page file of twelve rows.
class PageFolder {
 public:
  PageFolder() {
    QByteArray page = "*** Brivon Message File ***\r\nRow = 12\r\nCol = 192\r\n";
    for (int row = 1; row <= kRows; ++row) {
      page += "<L" + QByteArray::number(row).rightJustified(2, '0') +
              "><SA><CA>A row of thirty-two characters!\r\n";
    }
    QFile file(Path());
    if (!file.open(QIODevice::WriteOnly) || file.write(page) != page.size()) {
      qFatal("cannot write the page");
    }
  }

  QString Path() const { return folder_.filePath(u"page.msg"_s); }

 private:
  QTemporaryDir folder_;
};

Brivon1::Configuration OnePanel() {
  Brivon1::Configuration configuration;
  configuration.panels[kPanel] = {kRows, 192, Brivon1::kTri, "127.0.0.1:1"};
  configuration.baud_rate = 9600;
  configuration.com_port = 2;
  return configuration;
}

bool SendPage(Brivon1::PanelConnection& connection, const Brivon1::Configuration& configuration,
              const QString& path) {
  Brivon1::OpenLine line{connection.Link(), connection.Timer(), connection.Clock(), configuration,
                         [](const QString&) {}};
  return Brivon1::SendMessageFile(line, path, kPanel, "001", {kRows, 192});
}

/// The same frames by blocking system calls and nothing else.
void ExchangeBare(int line, const QList<QByteArray>& frames) {
  char answer[kAckLength];
  for (const QByteArray& frame : frames) {
    WriteAll(line, frame.constData(), static_cast<std::size_t>(frame.size()));
    for (std::size_t have = 0; have < kAckLength;) {
      const ssize_t size = ::read(line, answer + have, kAckLength - have);
      if (size <= 0) qFatal("the bare line is lost");
      have += static_cast<std::size_t>(size);
    }
  }
}

/// Measures both ways alternately and reports their ratio.
void Compare(benchmark::State& state, Brivon1::PanelConnection& connection,
             const Brivon1::Configuration& configuration, int bare_line) {
  const PageFolder page;
  const auto frames =
      Brivon1::MessageFrames(page.Path(), kPanel, "001", {kRows, 192}, Brivon1::kTri);
  std::vector<double> brivon;
  std::vector<double> bare;
  bool all_sent = frames.has_value();
  for ([[maybe_unused]] const auto round : state) {
    bare.push_back(Microseconds([&] { ExchangeBare(bare_line, *frames); }));
    brivon.push_back(Microseconds([&] {
      if (!SendPage(connection, configuration, page.Path())) all_sent = false;
    }));
  }
  if (!all_sent) state.SkipWithError("a page was not acknowledged");
  // The limit is for rounds in which the machine did nothing else; the medians are printed too.
  const double ratio = Undisturbed(brivon) / Undisturbed(bare);
  state.counters["brivon_us"] = Undisturbed(brivon);
  state.counters["bare_us"] = Undisturbed(bare);
  state.counters["median_ratio"] = Median(brivon) / Median(bare);
  Report(state, "ratio", ratio, kMostOfBare);
}

/// A port on loopback whose connections are plain descriptors.
class LoopbackPort {
 public:
  LoopbackPort() : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = Address(0);
    socklen_t size = sizeof address;
    if (::bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        ::listen(listener_, 4) != 0 ||
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
      qFatal("cannot listen");
    }
    port = ntohs(address.sin_port);
  }

  ~LoopbackPort() { ::close(listener_); }

  LoopbackPort(const LoopbackPort&) = delete;
  LoopbackPort& operator=(const LoopbackPort&) = delete;

  int Connect() const {
    const int line = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = Address(port);
    if (::connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
      qFatal("cannot connect");
    }
    return WithoutDelay(line);
  }

  int Accept() const { return WithoutDelay(::accept(listener_, nullptr, nullptr)); }

  quint16 port;

 private:
  static sockaddr_in Address(quint16 number) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(number);
    return address;
  }

  static int WithoutDelay(int line) {
    const int on = 1;
    ::setsockopt(line, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return line;
  }

  int listener_;
};

void PageOverTcp(benchmark::State& state) {
  const LoopbackPort port;
  const int bare_line = port.Connect();
  const PromptPanel bare_panel(port.Accept());
  const Brivon1::Configuration configuration = OnePanel();
  Brivon1::WindowPorts ports(nullptr);
  Brivon1::PanelConnection connection(ports.Ports());
  if (!connection.Open(Brivon1::SendMode::kTcp, configuration, {"127.0.0.1", port.port})) {
    qFatal("cannot connect");
  }
  const PromptPanel panel(port.Accept());
  Compare(state, connection, configuration, bare_line);
  ::close(bare_line);
}
BENCHMARK(PageOverTcp)->Iterations(400)->Unit(benchmark::kMicrosecond);

void PageOverAPseudoTerminal(benchmark::State& state) {
  const PseudoTerminal bare;
  const PseudoTerminal line;
  Brivon1::Configuration configuration = OnePanel();
  configuration.serial_devices[2] = line.name.toLatin1();
  Brivon1::WindowPorts ports(nullptr);
  Brivon1::PanelConnection connection(ports.Ports());
  if (!connection.Open(Brivon1::SendMode::kSerial, configuration, {})) qFatal("cannot open");
  {
    const PromptPanel bare_panel(bare.master);
    const PromptPanel panel(line.master);
    Compare(state, connection, configuration, bare.slave);
    connection.Close();
  }
  ::close(bare.slave);
  ::close(line.slave);
}
BENCHMARK(PageOverAPseudoTerminal)->Iterations(400)->Unit(benchmark::kMicrosecond);

double ProcessorSeconds() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void SendToASilentPanel(benchmark::State& state) {
  const PageFolder page;
  const PseudoTerminal line;
  Brivon1::Configuration configuration = OnePanel();
  configuration.serial_devices[2] = line.name.toLatin1();
  Brivon1::WindowPorts ports(nullptr);
  Brivon1::PanelConnection connection(ports.Ports());
  if (!connection.Open(Brivon1::SendMode::kSerial, configuration, {})) qFatal("cannot open");
  double waited = 0;
  double processor = 0;
  for ([[maybe_unused]] const auto round : state) {
    const double before = ProcessorSeconds();
    waited += Microseconds([&] { SendPage(connection, configuration, page.Path()); }) / 1e6;
    processor += ProcessorSeconds() - before;
  }
  connection.Close();
  ::close(line.master);
  ::close(line.slave);
  state.counters["waited_s"] = waited;
  state.counters["processor_s"] = processor;
  Report(state, "ratio", processor / waited, kMostProcessorShare);
}
BENCHMARK(SendToASilentPanel)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Both ends of both ways share one processor: where the system puts a thread, and how long
  // another processor takes to wake, differs from moment to moment by more than what is compared
  // here.
  cpu_set_t one_processor;
  CPU_ZERO(&one_processor);
  CPU_SET(sched_getcpu(), &one_processor);
  if (sched_setaffinity(0, sizeof one_processor, &one_processor) != 0) qWarning("not kept apart");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
