// Loading a "brivon.ini" of 256 panels, against merely reading its bytes. The load stays below one
// millisecond.
#include "store/configuration_store.h"

#include <vector>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "measure.h"

namespace {

constexpr double kLimit = 1000;  // microseconds for a load

/// A program folder whose "brivon.ini" configures every panel, with the longest addresses.
class FullProgramFolder {
 public:
  FullProgramFolder() {
    Brivon1::SetProgramFolder(folder_.path());
    QByteArray ini = "; every panel of the line\r\n[Dimension Config]\r\n";
    for (int id = 0; id < Brivon1::kPanelIds; ++id) {
      ini += Brivon1::PanelKey(id) + "=12x300,Tri,192.168.100." + QByteArray::number(id) +
             ":21000\r\n";
    }
    ini +=
        "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=TCPIP\r\n"
        "[Language]\r\nLanguage=1\r\n";
    QFile file(Brivon1::ConfigurationPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(ini) != ini.size()) {
      qFatal("cannot write the configuration");
    }
  }
  ~FullProgramFolder() { Brivon1::SetProgramFolder(QString()); }
  FullProgramFolder(const FullProgramFolder&) = delete;
  FullProgramFolder& operator=(const FullProgramFolder&) = delete;

 private:
  QTemporaryDir folder_;
};

void ReadBytes(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read the configuration");
  benchmark::DoNotOptimize(file.readAll());
}

void LoadAgainstReading(benchmark::State& state) {
  const FullProgramFolder folder;
  const QString path = Brivon1::ConfigurationPath();
  std::vector<double> loads;
  std::vector<double> reads;
  for ([[maybe_unused]] const auto round : state) {
    reads.push_back(Microseconds([&] { ReadBytes(path); }));
    loads.push_back(Microseconds([] { Brivon1::LoadConfiguration(); }));
  }
  if (!Brivon1::Store().panels[255].IsConfigured()) state.SkipWithError("the load read nothing");
  const double load = Median(loads);
  const double read = Median(reads);
  state.counters["read_us"] = read;
  state.counters["ratio"] = load / read;
  Report(state, "load_us", load, kLimit);
}
BENCHMARK(LoadAgainstReading)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
