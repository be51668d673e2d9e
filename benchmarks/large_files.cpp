// What the largest files cost that the program takes: changes to a "brivon.ini" of 4 MiB, against
// merely reading and writing its bytes, and a schedule of lines of a megabyte each, against merely
// reading them. Times grow with the size of the file and with nothing else.
#include <vector>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "config/configuration_draft.h"
#include "measure.h"
#include "schedule/schedule.h"
#include "schedule/schedule_transmission.h"
#include "store/ini_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kChangeLimit = 50;     // milliseconds
constexpr double kScheduleLimit = 500;  // milliseconds
constexpr qsizetype kLargestIni = 4 << 20;
constexpr int kRepetitions = 20000;

class FolderOfOneFile {
 public:
  explicit FolderOfOneFile(const QByteArray& content) { Write(content); }

  QString Path() const { return folder_.filePath(u"file"_s); }

  QByteArray Read() const {
    QFile file(Path());
    if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read the file");
    return file.readAll();
  }

  void Write(const QByteArray& content) const {
    QFile file(Path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
      qFatal("cannot write the file");
    }
  }

 private:
  QTemporaryDir folder_;
};

/// A "brivon.ini" of 4 MiB, or just so much less that `room` bytes still have their place. It
/// consists of short lines around a section of panels that holds `panels`.
QByteArray LargeIni(const QByteArray& panels, qsizetype room) {
  const auto append_lines = [](QByteArray& content, qsizetype size) {
    for (int line = 0; content.size() < size - 20; ++line) {
      content += "key" + QByteArray::number(line) + "=a remark\r\n";
    }
  };
  const qsizetype size = kLargestIni - room;
  QByteArray content = "[Before]\r\n";
  append_lines(content, (size - panels.size()) / 2);
  content += "[Dimension Config]\r\n" + panels + "[Behind]\r\n";
  append_lines(content, size);
  return content;
}

QByteArray EveryPanel() {
  QByteArray lines;
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    lines += Brivon1::PanelKey(id) + "=12x300,Tri,192.168.100.100:21000\r\n";
  }
  return lines;
}

/// Measures from the old file on the disk to the new one's bytes, as often as `state` wants.
/// `change` changes the file; `changed` says of the new bytes whether it did.
template <typename Change, typename Changed>
void ReportChange(benchmark::State& state, const QByteArray& content, const Change& change,
                  const Changed& changed) {
  const FolderOfOneFile folder(content);
  std::vector<double> changes;
  std::vector<double> copies;
  for ([[maybe_unused]] const auto round : state) {
    copies.push_back(Microseconds([&] { folder.Write(folder.Read()); }) / 1000);
    QByteArray after;
    changes.push_back(Microseconds([&] {
                        std::optional<Brivon1::IniFile> file =
                            Brivon1::IniFile::Read(folder.Path());
                        change(file.value());
                        after = file->Content();
                      }) /
                      1000);
    if (!changed(after)) state.SkipWithError("the file was not changed as it should be");
  }
  state.counters["copy_ms"] = Median(copies);
  state.counters["ratio"] = Median(changes) / Median(copies);
  Report(state, "change_ms", Median(changes), kChangeLimit);
}

void ARepeatedKeyRemoved(benchmark::State& state) {
  QByteArray repetitions;
  for (int i = 0; i < kRepetitions; ++i) repetitions += "ID001=1x96,Mono\r\n";
  ReportChange(
      state, LargeIni(repetitions, 0),
      [](Brivon1::IniFile& file) { file.RemoveKey(Brivon1::kDimensionSection, "ID001"); },
      [](const QByteArray& after) { return !after.contains("ID001"); });
}
BENCHMARK(ARepeatedKeyRemoved)->Unit(benchmark::kMillisecond);

/// The working copy of a store of no panels to which all have been added.
Brivon1::ConfigurationDraft AllAdded() {
  Brivon1::ConfigurationDraft draft{Brivon1::Configuration()};
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    draft.Add(
        {QString::number(id), u"12"_s, u"300"_s, Brivon1::kTri, u"192.168.100.100"_s, u"21000"_s});
  }
  return draft;
}

void EveryPanelAdded(benchmark::State& state) {
  const QByteArray panels = EveryPanel();
  const Brivon1::ConfigurationDraft draft = AllAdded();
  ReportChange(
      state, LargeIni({}, panels.size() + 100), [&](Brivon1::IniFile& file) { draft.Apply(file); },
      [&](const QByteArray& after) { return after.contains(panels); });
}
BENCHMARK(EveryPanelAdded)->Unit(benchmark::kMillisecond);

void EveryPanelRemoved(benchmark::State& state) {
  const QByteArray content = LargeIni(EveryPanel(), 0);
  Brivon1::ConfigurationDraft draft{Brivon1::ReadConfiguration(Brivon1::IniFile(content))};
  for (int id = 0; id < Brivon1::kPanelIds; ++id) draft.Remove(id);
  ReportChange(
      state, content, [&](Brivon1::IniFile& file) { draft.Apply(file); },
      [](const QByteArray& after) { return !after.contains("ID000") && !after.contains("ID255"); });
}
BENCHMARK(EveryPanelRemoved)->Unit(benchmark::kMillisecond);

/// A line that nothing is sent over.
class NoLink : public Brivon1::PanelLink {
 public:
  void Write(const QByteArray& /*bytes*/) override { qFatal("nothing is to be sent"); }
  qint64 Unsent() const override { return 0; }
  int Speed() const override { return 9600; }
  QByteArray ReadAvailable() override { return {}; }
  bool IsLost() const override { return false; }
  void Close() override {}
  QString FailureReason() const override { return {}; }
};

class NoTimer : public Brivon1::TickTimer {
 public:
  void Enable() override {}
  void Disable() override {}
  bool WaitForEvent() override { return false; }
  void ProcessEvents() override {}
};

class NoClock : public Brivon1::MillisecondClock {
 public:
  qint64 Milliseconds() const override { return 0; }
  bool WaitForEvent(qint64 /*at_most*/) override { return false; }
};

/// A schedule whose every path and feature is as long as a line may be, of letters that upper case
/// makes two of. Its paths differ in their first letters.
QByteArray EndlessSchedule() {
  QByteArray content =
      "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =**\r\nMin =**\r\nRow =1\r\nCol =96\r\n"
      "No of Sequence =32\r\n";
  for (int i = 0; i < Brivon1::kMostSequences; ++i) {
    const QByteArray name = QByteArray::number(i % 26).rightJustified(2, '0');
    content += name + QByteArray(Brivon1::kLongestLine - name.size(), '\xDF') + "\r\n1\r\n" +
               QByteArray(Brivon1::kLongestLine, '\xDF') + "\r\n";
  }
  return content;
}

void AnEndlessScheduleRefused(benchmark::State& state) {
  const FolderOfOneFile folder(EndlessSchedule());
  Brivon1::SetProgramFolder(QDir::tempPath());
  NoLink link;
  NoTimer timer;
  NoClock clock;
  const Brivon1::Configuration configuration;
  Brivon1::OpenLine line{link, timer, clock, configuration, [](const QString&) {}};
  std::vector<double> reads;
  std::vector<double> sends;
  for ([[maybe_unused]] const auto round : state) {
    reads.push_back(Microseconds([&] { benchmark::DoNotOptimize(folder.Read()); }) / 1000);
    QString shown;
    sends.push_back(Microseconds([&] {
                      Brivon1::SendScheduleFile(
                          line, folder.Path(), 1, u"A"_s,
                          [&](const Brivon1::Refusal& refusal) { shown = refusal.text; });
                    }) /
                    1000);
    if (!shown.startsWith(u"File not found: 00"_s)) {
      state.SkipWithError("the schedule was not read to its end");
    }
  }
  state.counters["read_ms"] = Median(reads);
  state.counters["ratio"] = Median(sends) / Median(reads);
  Report(state, "refusal_ms", Median(sends), kScheduleLimit);
}
BENCHMARK(AnEndlessScheduleRefused)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
