// Schedules: what was read, saved and read again is the same schedule, a save that is refused
// leaves the old file, and what is sent of one is whole frames.
#include <optional>

#include "base/text.h"
#include "fuzz/files.h"
#include "fuzz/frames.h"
#include "fuzz/must.h"
#include "fuzz/targets.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_transmission.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Fuzz {
namespace {

using Brivon1::Schedule;
using Brivon1::ScheduleSaveResult;

/// Pages that a schedule of the corpus may name.
void WritePages() {
  const QByteArray head = "*** Brivon Message File ***\r\nRow = 1\r\nCol = 96\r\n";
  WriteFile(u"a.msg"_s, head + "<L01><SA><CA>Drive\r\n");
  WriteFile(u"b.msg"_s, head + "<L01><SF><CB>safely\r\n");
}

void MustBeASchedule(const Schedule& schedule) {
  Must(schedule.weekday >= 0 && schedule.weekday <= Brivon1::kLastWeekday, "weekdays 0 to 7");
  Must(schedule.Count() >= 1 && schedule.Count() <= Brivon1::kMostSequences, "1 to 32 sequences");
  Must(schedule.dimension.rows != 0 && schedule.dimension.columns != 0, "no size of 0");
  Must(schedule.Files().Count() <= Brivon1::kMostDistinctFiles, "26 files at the most");
  for (const Brivon1::Sequence& sequence : schedule.Sequences()) {
    Must(sequence.path.size() == Brivon1::kPathField, "a path fills its field");
    Must(sequence.feature.size() == Brivon1::kFeatureField, "an effect fills its field");
  }
}

void MustComeBack(const Schedule& schedule) {
  const QByteArray before = "what stood there before";
  const QString path = WriteFile(u"saved.sch"_s, before);
  QString remedy;
  const ScheduleSaveResult result = Brivon1::SaveScheduleFile(path, schedule, &remedy);
  if (result != ScheduleSaveResult::kSaved) {
    Must(result == ScheduleSaveResult::kHourWrong || result == ScheduleSaveResult::kMinuteWrong,
         "nothing but its time keeps a schedule from being saved");
    Must(!remedy.isEmpty(), "the operator is told why a schedule is not saved");
    Must(ReadFile(u"saved.sch"_s) == before, "a refused save leaves the old file");
    return;
  }
  const auto again = Brivon1::LoadScheduleFile(path);
  Must(again.has_value(), "a schedule that was saved is read again");
  Must(again->weekday == schedule.weekday, "the weekday comes back");
  Must(again->hour == Brivon1::TrimBlanks(schedule.hour), "the hour comes back");
  Must(again->minute == Brivon1::TrimBlanks(schedule.minute), "the minute comes back");
  Must(again->dimension == schedule.dimension, "the size comes back");
  Must(again->Sequences() == schedule.Sequences(), "every sequence comes back");
  Must(again->Files().Count() == schedule.Files().Count(), "the list of files comes back");
}

/// An edit that is refused changes nothing, one that is taken back leaves what was there.
void MustBeEditable(Schedule schedule) {
  const QList<Brivon1::Sequence> before = schedule.Sequences();
  const int count = schedule.Count();
  schedule.Remove(count + 1);
  schedule.Remove(0);
  schedule.Replace(count + 1, {});
  Must(schedule.Sequences() == before, "a position that is none changes nothing");
  const Brivon1::Sequence first = before.first();
  schedule.Remove(1);
  Must(schedule.Count() == count - 1, "one less");
  schedule.Insert(1, first);
  Must(schedule.Count() == count && (count == 1 || schedule.Sequences() == before),
       "what was taken out and put back is as it was");
}

void MustBeFrames(const QString& path, const QByteArray& source, bool is_schedule) {
  constexpr int kId = 7;
  const auto refusal = Brivon1::CheckScheduleFile(path, u"J"_s);
  bool is_sent = false;
  int told = 0;
  const QList<QByteArray> frames = FramesOf(kId, Brivon1::kTri, [&](Brivon1::OpenLine& line) {
    is_sent = Brivon1::SendScheduleFile(line, path, kId, u"j"_s,
                                        [&](const Brivon1::Refusal& /*why*/) { ++told; });
    Must(is_sent || told == 1 || !line.refusal.isEmpty(), "a refusal is told");
  });
  Must(told <= 1, "at most one refusal is told");
  Must(!is_sent || !refusal, "what is refused is not sent");
  Must(!is_sent || is_schedule, "what cannot be read is not sent");
  Must(!refusal || frames.isEmpty(), "everything is checked before the first byte");
  for (const QByteArray& frame : frames) MustBeFrame(frame, kId, source);
  if (is_sent) Must(frames.last().startsWith("<ID07><TJ>"), "the schedule comes last");
}

}  // namespace

void CheckScheduleFile(const QByteArray& input) {
  const QString path = WriteFile(u"week.sch"_s, input);
  WritePages();
  Brivon1::FileFailure failure;
  const auto schedule = Brivon1::LoadScheduleFile(path, &failure);
  if (schedule) {
    MustBeASchedule(*schedule);
    MustComeBack(*schedule);
    MustBeEditable(*schedule);
  } else {
    Must(!Brivon1::ScheduleFileRemedy(path, failure).isEmpty(),
         "the operator is told why a schedule is refused");
    Must(failure.fault != Brivon1::FileFault::kNone, "a program is told why a schedule is refused");
  }
  MustBeFrames(path, input, schedule.has_value());
  Must(ReadFile(u"week.sch"_s) == input, "a file that is read stays as it is");
  Must(IsAlone(u"saved.sch"_s), "a save leaves one file");
}

}  // namespace Fuzz
