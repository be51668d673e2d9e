// brivonctl at 1 to 256 panels, each behind a TCP port of its own on loopback: how much longer many
// take than one, the memory of the process, and its processor time while panels that never answer
// are waited for.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "engine/frame.h"
#include "engine/panel_engine.h"
#include "measure.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 12;
constexpr double kMostOfOne = 1.2;
constexpr double kMostMemory = 64;         // MiB
constexpr double kMostProcessorShare = 5;  // per cent of one processor

/// A panel with a port of its own.
struct Panel {
  explicit Panel(int id) : engine({{id, kRows, 192, true}}) {}

  VirtualPanel::PanelEngine engine;
  VirtualPanel::FrameSplitter splitter;  // of the connection that it has
};

/// The lines of all panels in one thread that costs next to nothing: it shares its processors with
/// what is measured.
class Lines {
 public:
  Lines() : poll_(::epoll_create1(EPOLL_CLOEXEC)), end_(::eventfd(0, EFD_CLOEXEC)) {
    Watch(end_, nullptr);
  }
  ~Lines() {
    for (const auto& place : places_) ::close(place->descriptor);
    ::close(end_);
    ::close(poll_);
  }
  Lines(const Lines&) = delete;
  Lines& operator=(const Lines&) = delete;

  /// Returns the port.
  int Listen(Panel* panel) {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* any = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof(address);
    if (::bind(listener, any, size) != 0 || ::listen(listener, 1) != 0 ||
        ::getsockname(listener, any, &size) != 0) {
      qFatal("cannot listen on loopback");
    }
    places_.push_back(std::make_unique<Place>(Place{listener, panel, true}));
    Watch(listener, places_.back().get());
    return ntohs(address.sin_port);
  }

  /// Serves the panels until End() is called.
  void Serve() {
    std::array<epoll_event, 64> events{};
    while (true) {
      const int count = ::epoll_wait(poll_, events.data(), static_cast<int>(events.size()), -1);
      for (int i = 0; i < count; ++i) {
        auto* place = static_cast<Place*>(events[static_cast<std::size_t>(i)].data.ptr);
        if (place == nullptr) return;
        place->is_listener ? Accept(*place) : Answer(*place);
      }
    }
  }

  void End() {
    const std::uint64_t one = 1;
    if (::write(end_, &one, sizeof(one)) != sizeof(one)) qFatal("cannot end the panels");
  }

  /// Between two Serve().
  void Rest() {
    std::uint64_t count = 0;
    if (::read(end_, &count, sizeof(count)) != sizeof(count)) qFatal("the panels did not end");
  }

 private:
  struct Place {
    int descriptor;
    Panel* panel;
    bool is_listener;
  };

  void Watch(int descriptor, Place* place) const {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.ptr = place;
    if (::epoll_ctl(poll_, EPOLL_CTL_ADD, descriptor, &event) != 0) qFatal("cannot watch a line");
  }

  void Accept(const Place& listener) {
    const int connection = ::accept4(listener.descriptor, nullptr, nullptr, SOCK_CLOEXEC);
    const int one = 1;
    ::setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &one, sizeof(one));
    listener.panel->splitter = {};
    places_.push_back(std::make_unique<Place>(Place{connection, listener.panel, false}));
    Watch(connection, places_.back().get());
  }

  void Answer(const Place& place) const {
    std::array<char, 4096> bytes{};
    const ssize_t size = ::recv(place.descriptor, bytes.data(), bytes.size(), 0);
    if (size <= 0) {
      ::epoll_ctl(poll_, EPOLL_CTL_DEL, place.descriptor, nullptr);
      ::shutdown(place.descriptor, SHUT_RDWR);  // closed with all others
      return;
    }
    Panel& panel = *place.panel;
    for (const VirtualPanel::Answer& answer : panel.engine.Receive(
             &panel.splitter, QByteArrayView(bytes.data(), size), QStringLiteral("tcp"))) {
      const auto length = static_cast<std::size_t>(answer.bytes.size());
      if (length > 0) ::send(place.descriptor, answer.bytes.constData(), length, MSG_NOSIGNAL);
    }
  }

  int poll_;
  int end_;
  std::vector<std::unique_ptr<Place>> places_;
};

/// Panels, the configuration that names them, and a page for them. The 256th is ID 0, to which
/// everything is sent and nothing is answered.
class Site {
 public:
  explicit Site(int count) : first_(count == Brivon1::kPanelIds ? 0 : 1), count_(count) {
    QByteArray ini = "[Dimension Config]\r\n";
    for (int id = first_; id < first_ + count_; ++id) {
      panels_.push_back(std::make_unique<Panel>(std::max(id, 1)));
      ini += "ID" + QByteArray::number(id).rightJustified(3, '0') +
             "=12x192,Tri,127.0.0.1:" + QByteArray::number(lines_.Listen(panels_.back().get())) +
             "\r\n";
    }
    Write(u"brivon.ini"_s, ini + "[Communication]\r\nSendMode=TCPIP\r\nDelay Period=300\r\n");
    QByteArray page = "*** Brivon Message File ***\r\nRow = 12\r\nCol = 192\r\n";
    for (int row = 1; row <= kRows; ++row) {
      page += "<L" + QByteArray::number(row).rightJustified(2, '0') +
              "><SA><CA>A row of thirty-two characters!\r\n";
    }
    Write(u"page.msg"_s, page);
  }

  void Fail(const VirtualPanel::Faults& faults) {
    for (const auto& panel : panels_) panel->engine.SetFaults(faults);
  }

  QString Panels() const {
    return (first_ == 0 ? u"0,"_s : QString()) + u"1-%1"_s.arg(first_ + count_ - 1);
  }
  QString Folder() const { return folder_.path(); }
  Lines& PanelLines() { return lines_; }
  QString Page() const { return folder_.filePath(u"page.msg"_s); }

 private:
  void Write(const QString& name, const QByteArray& content) const {
    QFile file(folder_.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
      qFatal("cannot write a file");
    }
  }

  int first_;
  int count_;
  QTemporaryDir folder_;
  std::vector<std::unique_ptr<Panel>> panels_;
  Lines lines_;
};

struct Figures {
  double seconds;
  double processor_seconds;
  double mebibytes;  ///< The most that any brivonctl has had so far.
  int status;
};

double ProcessorSeconds(const rusage& usage) {
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Runs brivonctl while the panels of a thread answer it.
Figures Run(Site& site, const QStringList& words) {
  rusage before{};
  rusage after{};
  ::getrusage(RUSAGE_CHILDREN, &before);
  std::thread panels([&site] { site.PanelLines().Serve(); });
  QProcess process;
  QElapsedTimer clock;
  clock.start();
  process.start(QStringLiteral(BRIVONCTL),
                words + QStringList{u"--to"_s, site.Panels(), u"--quiet"_s, u"--jobs"_s, u"256"_s,
                                    u"--folder"_s, site.Folder()});
  process.waitForFinished(-1);
  const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
  ::getrusage(RUSAGE_CHILDREN, &after);
  site.PanelLines().End();
  panels.join();
  site.PanelLines().Rest();
  return {seconds, ProcessorSeconds(after) - ProcessorSeconds(before),
          static_cast<double>(after.ru_maxrss) / 1024.0, process.exitCode()};
}

double SecondsForOne() {
  static const double seconds = [] {
    Site site(1);
    std::vector<double> all;
    for (int i = 0; i < 3; ++i) {
      all.push_back(Run(site, {u"send"_s, u"page"_s, site.Page(), u"--page"_s, u"7"_s}).seconds);
    }
    return Median(all);
  }();
  return seconds;
}

/// A page of twelve rows to so many panels.
void SendPage(benchmark::State& state) {
  const double one = SecondsForOne();
  Site site(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const Figures figures = Run(site, {u"send"_s, u"page"_s, site.Page(), u"--page"_s, u"7"_s});
    if (figures.status != 0) state.SkipWithError("a panel has not got it");
    state.counters["s"] = figures.seconds;
    state.counters["MiB"] = figures.mebibytes;
    state.counters["MiB_limit"] = kMostMemory;
    state.counters["cpu_s"] = figures.processor_seconds;
    Report(state, "of_one", figures.seconds / one, kMostOfOne);
    if (figures.mebibytes > kMostMemory) state.SetLabel("BEYOND ITS MEMORY");
  }
}

/// A question to so many panels that never answer.
void WaitForSilence(benchmark::State& state) {
  Site site(static_cast<int>(state.range(0)));
  VirtualPanel::Faults faults;
  faults.silent = true;
  site.Fail(faults);
  for (auto _ : state) {
    const Figures figures = Run(site, {u"poll"_s});
    if (figures.status != 1) state.SkipWithError("a silent panel has answered");
    state.counters["MiB"] = figures.mebibytes;
    Report(state, "percent", 100 * figures.processor_seconds / figures.seconds,
           kMostProcessorShare);
  }
}

constexpr int kMost = Brivon1::kPanelIds;

BENCHMARK(SendPage)->Arg(1)->Arg(4)->Arg(16)->Arg(64)->Arg(128)->Arg(kMost)->Iterations(1)->Unit(
    benchmark::kMillisecond);
BENCHMARK(WaitForSilence)
    ->Arg(1)
    ->Arg(64)
    ->Arg(kMost)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
