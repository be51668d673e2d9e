#include "schedule/schedule_file.h"

#include <QDir>
#include <QFileInfo>

#include "base/code_page.h"
#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "language/file_remedies.h"
#include "language/module_language.h"
#include "schedule/schedule_reader.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateMessage;

constexpr qint16 kLastHour = 23;
constexpr qint16 kLastMinute = 59;

bool IsTime(const QByteArray& text, qint16 last) {
  if (TrimBlanks(text) == kEveryTime) return true;
  const qint16 number = LeadingNumber16(text);
  return number >= 0 && number <= last;
}

QByteArray NumberLine(const char* key, int number) {
  return key + QByteArray::number(number) + "\r\n";
}

ScheduleSaveResult ResultOf(SaveResult result) {
  switch (result) {
    case SaveResult::kSaved:
      return ScheduleSaveResult::kSaved;
    case SaveResult::kInvalidPath:
      return ScheduleSaveResult::kInvalidPath;
    case SaveResult::kDriveNotAvailable:
    case SaveResult::kLocked:
      break;
  }
  return ScheduleSaveResult::kDriveNotAvailable;
}

/// Whether the file at `path` is found again by what a schedule holds of its name.
bool LeadsTo(const QByteArray& field, const QString& path) {
  const QString name = FieldPath(field);
  return name == path || FindFile(InProgramFolder(name)) == path;
}

void Tell(QString* remedy, const QString& text) {
  if (remedy != nullptr) *remedy = text;
}

/// Why PathField() or LeadsTo() refuses `path`.
QString PathRemedy(const QString& path) {
  const std::optional<QByteArray> bytes = CodePage::System().ToBytes(path);
  const QString rename = u'\n' + TranslateMessage(u"Move or rename the file."_s);
  if (!bytes) {
    return TranslateMessage(u"%1 has characters that the code page does not have."_s).arg(path) +
           rename;
  }
  if (bytes->size() > kPathField) return LongPathRemedy(bytes->size(), kPathField) + rename;
  return TranslateMessage(u"A schedule cannot hold the name %1."_s).arg(path) + rename;
}

}  // namespace

QString ScheduleFileRemedy(const QString& path, const FileFailure& failure) {
  if (failure.fault == FileFault::kLongLine) return LongLineRemedy(path);
  if (failure.key != nullptr) {
    return TranslateMessage(u"The line \"%1\" of %2 is missing or holds no possible number."_s)
        .arg(QString::fromLatin1(failure.key), path);
  }
  if (failure.fault != FileFault::kEndsEarly) return WrongKindRemedy(path, FileSort::kSchedule);
  return TranslateMessage(u"%1 ends early: message %2 of %3 is missing."_s)
      .arg(path, QString::number(failure.number), QString::number(failure.count));
}

std::optional<Schedule> LoadScheduleFile(const QString& path, FileFailure* failure,
                                         const FileSource& files) {
  ScheduleReader file(path, files);
  const std::optional<ScheduleHead>& head = file.Head();
  const auto refuse = [&](int sequence) {
    if (failure == nullptr) return std::nullopt;
    *failure = file.Failure();
    failure->number = sequence;
    failure->count = head ? head->sequences : 0;
    return std::nullopt;
  };
  if (!head) return refuse(0);

  Schedule schedule;
  schedule.weekday = head->weekday;
  schedule.hour = head->hour;
  schedule.minute = head->minute;
  schedule.dimension = head->dimension;
  bool is_listed = true;
  while (is_listed && schedule.Count() < head->sequences) {
    const std::optional<QByteArray> path_line = file.NextPath();
    if (!path_line) return refuse(schedule.Count() + 1);
    Sequence sequence;
    sequence.path = FixedField(*path_line, kPathField);
    is_listed = schedule.OfferFile(sequence.path);
    if (is_listed) {
      const auto details = file.NextDetails();
      if (!details) return refuse(schedule.Count() + 1);
      sequence.delay = details->delay;
      sequence.feature = FixedField(details->feature, kFeatureField);
    }
    schedule.Append(sequence);
  }
  while (schedule.Count() < head->sequences) schedule.Append({});
  return schedule;
}

ScheduleSaveResult SaveScheduleFile(const QString& path, const Schedule& schedule,
                                    QString* remedy) {
  const auto refuse_time = [remedy](ScheduleSaveResult result, qint16 last) {
    Tell(remedy, TranslateMessage(u"Enter a number from 0 to %1, or ** for all."_s).arg(last));
    return result;
  };
  if (!IsTime(schedule.hour, kLastHour)) {
    return refuse_time(ScheduleSaveResult::kHourWrong, kLastHour);
  }
  if (!IsTime(schedule.minute, kLastMinute)) {
    return refuse_time(ScheduleSaveResult::kMinuteWrong, kLastMinute);
  }

  QByteArray content = QByteArray(kScheduleHeader) + "\r\n";
  content += NumberLine("Week =", schedule.weekday);
  content += "Hour =" + TrimBlanks(schedule.hour) + "\r\n";
  content += "Min =" + TrimBlanks(schedule.minute) + "\r\n";
  content += NumberLine("Row =", schedule.dimension.rows);
  content += NumberLine("Col =", schedule.dimension.columns);
  content += NumberLine("No of Sequence =", schedule.Count());
  for (const Sequence& sequence : schedule.Sequences()) {
    content += sequence.path + "\r\n";
    content += NumberLine("", sequence.delay);
    content += sequence.feature + "\r\n";
  }
  QString reason;
  const SaveResult result = SaveWholeFile(path, content, &reason);
  Tell(remedy, SaveRemedy(path, result, reason));
  return ResultOf(result);
}

QString SaveFailureText(ScheduleSaveResult result) {
  switch (result) {
    case ScheduleSaveResult::kSaved:
      return {};
    case ScheduleSaveResult::kHourWrong:
      return u"Hour Format Wrong!"_s;
    case ScheduleSaveResult::kMinuteWrong:
      return u"Minute Format Wrong!"_s;
    case ScheduleSaveResult::kInvalidPath:
      return SaveFailureText(SaveResult::kInvalidPath);
    case ScheduleSaveResult::kDriveNotAvailable:
      return SaveFailureText(SaveResult::kDriveNotAvailable);
  }
  return {};
}

QString SaveFailureTextWhenSending(ScheduleSaveResult result) {
  switch (result) {
    case ScheduleSaveResult::kInvalidPath:
      return u"Path Not Valid"_s;
    case ScheduleSaveResult::kDriveNotAvailable:
      return u"Drive Not Available!"_s;
    case ScheduleSaveResult::kSaved:
    case ScheduleSaveResult::kHourWrong:
    case ScheduleSaveResult::kMinuteWrong:
      return SaveFailureText(result);
  }
  return {};
}

QString SendingRefusal(const QString& path) {
  if (FileExists(path)) return {};
  const bool has_folder = QFileInfo(path).absoluteDir().exists();
  return has_folder ? u"File not found"_s : u"Path Not Valid"_s;
}

std::optional<QByteArray> PathField(const QString& path) {
  const std::optional<QByteArray> bytes = CodePage::System().ToBytes(path);
  if (!bytes || bytes->size() > kPathField || TrimBlanks(*bytes) != *bytes ||
      bytes->contains('\r') || bytes->contains('\n')) {
    return std::nullopt;
  }
  return FixedField(*bytes, kPathField);
}

QString FieldPath(const QByteArray& field) { return CodePage::System().ToText(TrimBlanks(field)); }

QString MessageFileRefusal(const QString& path, Dimension dimension, QString* remedy) {
  const std::optional<Dimension> file = IsMessageFile(path);
  if (!file) {
    Tell(remedy, WrongKindRemedy(path, FileSort::kPage));
    return u"Not Message File Format!"_s;
  }
  if (*file != dimension) {
    Tell(remedy, StepRemedy(*file, dimension));
    return u"Dimension not matched!"_s;
  }
  const std::optional<QByteArray> field = PathField(path);
  if (!field || !LeadsTo(*field, path)) {
    Tell(remedy, PathRemedy(path));
    return u"Invalid path!"_s;
  }
  return {};
}

QString StepRemedy(Dimension page, Dimension schedule) {
  const auto size = [](Dimension of) { return u"%1x%2"_s.arg(of.rows).arg(of.columns); };
  return TranslateMessage(u"The page is %1, the schedule is %2."_s).arg(size(page), size(schedule));
}

}  // namespace Brivon1
