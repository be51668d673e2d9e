// From the start of the process to the main window drawn, against an empty window of the toolkit:
// both are started as processes, alternately, on the platform that QT_QPA_PLATFORM names
// ("offscreen" unless told otherwise).
#include <vector>

#include <QCoreApplication>
#include <QProcess>

#include <benchmark/benchmark.h>

#include "measure.h"

namespace {

constexpr double kMostOfEmpty = 1.3;

double StartTime(const char* program) {
  return Microseconds([&] {
    QProcess process;
    process.start(QString::fromLocal8Bit(program), QStringList());
    if (!process.waitForFinished(30000) || process.exitCode() != 0) qFatal("%s failed", program);
  });
}

void StartToMainWindow(benchmark::State& state) {
  StartTime(START_BRIVON);  // fills the system's caches
  StartTime(START_EMPTY);
  std::vector<double> brivon;
  std::vector<double> empty;
  for ([[maybe_unused]] const auto round : state) {
    empty.push_back(StartTime(START_EMPTY));
    brivon.push_back(StartTime(START_BRIVON));
  }
  const double ratio = Median(brivon) / Median(empty);
  state.counters["brivon_ms"] = Median(brivon) / 1000;
  state.counters["empty_ms"] = Median(empty) / 1000;
  state.counters["ratio"] = ratio;
  state.counters["limit"] = kMostOfEmpty;
  if (ratio > kMostOfEmpty) state.SkipWithError("too slow beside an empty window");
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
