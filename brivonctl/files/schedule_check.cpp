#include "files/schedule_check.h"

#include <algorithm>

#include <QFileInfo>
#include <QLocale>

#include "base/code_page.h"
#include "base/file_checks.h"
#include "base/text.h"
#include "files/file_check.h"
#include "files/schedule_steps.h"
#include "language/display_feature.h"
#include "schedule/delay_field.h"
#include "schedule/schedule.h"
#include "schedule/schedule_file.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr int kHourLine = 3;
constexpr int kMinuteLine = 4;

QString SizeText(Brivon1::Dimension dimension) {
  return u"%1 rows x %2 columns"_s.arg(dimension.rows).arg(dimension.columns);
}

QString FailureText(const Brivon1::FileFailure& failure) {
  const QString found = QString::fromLatin1(failure.found);
  switch (failure.fault) {
    case Brivon1::FileFault::kWeekday:
      return u"day %1; expected was 0 (every day), or 1 (Sunday) to 7 (Saturday)"_s.arg(found);
    case Brivon1::FileFault::kRows:
      return u"0 rows; expected were those of a panel"_s;
    case Brivon1::FileFault::kColumns:
      return u"0 dot columns; expected were those of a panel"_s;
    case Brivon1::FileFault::kSequences:
      return u"%1 steps; a schedule has 1 to %2"_s.arg(found).arg(Brivon1::kMostSequences);
    case Brivon1::FileFault::kEndsEarly:
      return u"the line is missing: the file ends before its last step does"_s;
    default:
      return CommonFailureText(failure);
  }
}

/// Whether the editor would take the text as an hour or minute, and it is one.
bool IsTime(const QByteArray& text, int last) {
  const QByteArray time = Brivon1::TrimBlanks(text);
  const bool is_number = !time.isEmpty() && std::all_of(time.begin(), time.end(), [](char c) {
    return c >= '0' && c <= '9';
  });
  return time == Brivon1::kEveryTime || (is_number && Brivon1::LeadingNumber16(time) <= last);
}

QString TimesText(const Brivon1::ScheduleHead& head) {
  const auto part = [](const QByteArray& text, const QString& every, const QString& one) {
    const QByteArray time = Brivon1::TrimBlanks(text);
    return time == Brivon1::kEveryTime ? every : one + Quoted(time).replace(u'"', QString());
  };
  constexpr int kSunday = 7;  // of the toolkit's days
  const QString day = head.weekday == 0
                          ? u"every day"_s
                          : QLocale::c().dayName(head.weekday == 1 ? kSunday : head.weekday - 1);
  return QStringList{day, part(head.hour, u"every hour"_s, u"hour "_s),
                     part(head.minute, u"every minute"_s, u"minute "_s)}
      .join(u", "_s);
}

void CheckTimes(const Brivon1::ScheduleHead& head, FileReport* report) {
  constexpr int kLastHour = 23;
  constexpr int kLastMinute = 59;
  if (!IsTime(head.hour, kLastHour)) {
    report->Warn(kHourLine,
                 u"hour %1, which panels are sent as it stands; expected was 0 to %2 or **"_s
                     .arg(Quoted(head.hour))
                     .arg(kLastHour));
  }
  if (!IsTime(head.minute, kLastMinute)) {
    report->Warn(kMinuteLine,
                 u"minute %1, which panels are sent as it stands; expected was 0 to %2 or **"_s
                     .arg(Quoted(head.minute))
                     .arg(kLastMinute));
  }
}

/// A message file as a schedule of this dimension needs it.
FileReport CheckNamedFile(const QString& name, Brivon1::Dimension dimension) {
  FileReport report;
  report.path = name;
  if (name.isEmpty()) {
    report.Refuse(0, u"no message file is named here"_s);
    return report;
  }
  const QString file = NamedFile(name);
  const FileKind kind = KindOf(file);
  if (kind == FileKind::kSchedule || kind == FileKind::kScrolling) {
    report.kind = kind;
    report.Refuse(1, u"this is no page message, and a schedule shows those alone"_s);
    return report;
  }
  report = CheckFile(file);
  report.path = name;
  if (report.dimension && *report.dimension != dimension) {
    report.Refuse(2, u"the page has %1, the schedule is for %2"_s.arg(SizeText(*report.dimension),
                                                                      SizeText(dimension)));
  }
  return report;
}

/// What the editor and the panel do with a step that hardly anybody means.
void CheckDetails(const ScheduleStep& step, const Brivon1::FeatureNames& features,
                  FileReport* report) {
  if (step.path.size() > Brivon1::kPathField) {
    report->Warn(step.line,
                 u"a path of %1 characters; the editor cuts it to %2"_s.arg(step.path.size())
                     .arg(Brivon1::kPathField));
  }
  if (!step.is_complete) return;
  if (step.details.delay < Brivon1::kShortestDelay || step.details.delay > Brivon1::kLongestDelay) {
    report->Warn(step.line + 1, u"a delay of %1 s; expected was %2 to %3"_s.arg(step.details.delay)
                                    .arg(Brivon1::kShortestDelay)
                                    .arg(Brivon1::kLongestDelay));
  }
  const QString feature = Brivon1::CodePage::System().ToText(step.details.feature).trimmed();
  const bool is_known = features.Code(feature) != u'A' ||
                        feature.compare("Appear"_L1, Qt::CaseInsensitive) == 0 ||
                        feature == features.Entry(0).value_or(QString()).trimmed();
  if (!is_known) {
    report->Warn(step.line + 2, u"there is no entry effect %1; the panel takes Appear"_s.arg(
                                    Quoted(Brivon1::TrimBlanks(step.details.feature))));
  }
}

/// Of two files whose names differ in capital letters alone, the first is shown for both.
void CheckLetters(const ScheduleStep& step, const ScheduleStep& first, FileReport* report) {
  if (step.name == first.name) return;
  // Windows takes both names for one file.
  const QFileInfo file(NamedFile(step.name));
  if (!file.exists() || file == QFileInfo(NamedFile(first.name))) return;
  report->Warn(step.line,
               u"this page is never shown: the name differs from that of line %1 in "
               "capital letters alone, and that page is shown in its place"_s.arg(first.line));
}

void CheckSteps(const QList<ScheduleStep>& steps, Brivon1::Dimension dimension,
                FileReport* report) {
  const Brivon1::FeatureNames features;
  const bool names_files = std::any_of(
      steps.begin(), steps.end(), [](const ScheduleStep& step) { return !step.name.isEmpty(); });
  if (!names_files) {
    report->Warn(0, u"no step names a message file: the schedule cannot be sent"_s);
  }
  QList<ScheduleStep> firsts;
  Brivon1::DistinctFiles listed;  // as the editor lists them
  for (const ScheduleStep& step : steps) {
    if (!listed.Offer(Brivon1::FixedField(step.path, Brivon1::kPathField))) {
      report->Warn(step.line,
                   u"more than %1 different message files: the editor reads nothing from "
                   "here on, and the schedule cannot be sent"_s.arg(Brivon1::kMostDistinctFiles));
      return;
    }
    CheckDetails(step, features, report);
    if (step.place < firsts.size()) {
      CheckLetters(step, firsts[step.place], report);
      continue;
    }
    firsts.append(step);
    if (firsts.size() == Brivon1::kPagesOfALetter + 1) {
      report->Warn(step.line,
                   u"more than %1 different message files: this one takes the place of "
                   "the next schedule letter's first page"_s.arg(Brivon1::kPagesOfALetter));
    }
    if (names_files) report->files.push_back({step.line, CheckNamedFile(step.name, dimension)});
  }
}

}  // namespace

void CheckSchedule(const QString& path, FileReport* report) {
  report->dimension = Brivon1::IsScheduleFile(path);
  Brivon1::FileFailure failure;
  Brivon1::ScheduleReader file(path);
  if (!Brivon1::LoadScheduleFile(path, &failure) || !file.Head()) {
    report->Refuse(failure.line, FailureText(failure));
    return;
  }
  const Brivon1::ScheduleHead& head = *file.Head();
  report->steps = head.sequences;
  report->times = TimesText(head);
  CheckTimes(head, report);
  const QList<ScheduleStep> steps = ReadSteps(&file);
  CheckSteps(steps, head.dimension, report);
  const auto behind = file.NextPath();
  if (behind && !Brivon1::TrimBlanks(*behind).isEmpty()) {
    report->Warn(
        file.LineNumber(),
        u"this and what follows is not read, and never shown: by line 7 there are %1 steps"_s.arg(
            head.sequences));
  }
}

}  // namespace BrivonCtl
