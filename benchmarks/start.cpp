// From the start of the process to the main window shown, against an empty window of the toolkit:
// both are started as processes, alternately, on the platform that QT_QPA_PLATFORM names
// ("offscreen" unless told otherwise). Beside it stands the time until the window has been drawn,
// which for every window with a text in it includes loading a font.
#include <vector>

#include <QCoreApplication>
#include <QProcess>

#include <benchmark/benchmark.h>

#include "measure.h"

namespace {

constexpr double kMostOfEmpty = 1.3;

struct StartTime {
  double shown;  // milliseconds
  double drawn;
};

StartTime Start(const char* program) {
  const auto start = std::chrono::steady_clock::now().time_since_epoch().count();
  QProcess process;
  process.start(QString::fromLocal8Bit(program), QStringList());
  if (!process.waitForFinished(30000) || process.exitCode() != 0) qFatal("%s failed", program);
  const QList<QByteArray> times = process.readAllStandardOutput().split('\n');
  const auto milliseconds = [&](qsizetype line) {
    return static_cast<double>(times.value(line).toLongLong() - start) / 1e6;
  };
  return {milliseconds(0), milliseconds(1)};
}

void StartToMainWindow(benchmark::State& state) {
  Start(START_BRIVON);  // fills the system's caches
  Start(START_EMPTY);
  std::vector<double> shown[2];
  std::vector<double> drawn[2];
  for ([[maybe_unused]] const auto round : state) {
    for (const int which : {0, 1}) {
      const StartTime time = Start(which == 0 ? START_EMPTY : START_BRIVON);
      shown[which].push_back(time.shown);
      drawn[which].push_back(time.drawn);
    }
  }
  state.counters["empty_ms"] = Median(shown[0]);
  state.counters["brivon_ms"] = Median(shown[1]);
  state.counters["drawn_ratio"] = Median(drawn[1]) / Median(drawn[0]);
  Report(state, "ratio", Median(shown[1]) / Median(shown[0]), kMostOfEmpty);
}
BENCHMARK(StartToMainWindow)->Iterations(41)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
