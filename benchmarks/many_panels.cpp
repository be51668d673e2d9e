// brivonctl at 1 to 256 panels, each behind a TCP port of its own on loopback: how much longer many
// take than one, the memory of the process, and its processor time while panels that never answer
// are waited for.
#include <sys/resource.h>

#include <algorithm>
#include <memory>
#include <vector>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "engine/panel_engine.h"
#include "lines/tcp_line.h"
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
  explicit Panel(int id) : engine({{id, kRows, 192, true}}), line(&engine) {
    if (!line.Listen()) qFatal("cannot listen on loopback");
  }

  VirtualPanel::PanelEngine engine;
  VirtualPanel::TcpLine line;
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
             "=12x192,Tri,127.0.0.1:" + QByteArray::number(panels_.back()->line.Port()) + "\r\n";
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

/// Runs brivonctl while the panels of this process answer it.
Figures Run(const Site& site, const QStringList& words) {
  rusage before{};
  rusage after{};
  ::getrusage(RUSAGE_CHILDREN, &before);
  QProcess process;
  QEventLoop loop;
  QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
  QElapsedTimer clock;
  clock.start();
  process.start(QStringLiteral(BRIVONCTL),
                words + QStringList{u"--to"_s, site.Panels(), u"--quiet"_s, u"--jobs"_s, u"256"_s,
                                    u"--folder"_s, site.Folder()});
  loop.exec();
  const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
  ::getrusage(RUSAGE_CHILDREN, &after);
  return {seconds, ProcessorSeconds(after) - ProcessorSeconds(before),
          static_cast<double>(after.ru_maxrss) / 1024.0, process.exitCode()};
}

double SecondsForOne() {
  static const double seconds = [] {
    const Site site(1);
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
  const Site site(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const Figures figures = Run(site, {u"send"_s, u"page"_s, site.Page(), u"--page"_s, u"7"_s});
    if (figures.status != 0) state.SkipWithError("a panel has not got it");
    state.counters["s"] = figures.seconds;
    state.counters["MiB"] = figures.mebibytes;
    state.counters["MiB_limit"] = kMostMemory;
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
