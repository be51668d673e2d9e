#include "schedule/schedule_file.h"

#include <QDir>
#include <QFileInfo>

#include "base/code_page.h"
#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "schedule/schedule_reader.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

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
      break;
  }
  return ScheduleSaveResult::kDriveNotAvailable;
}

/// Whether the file at `path` is found again by what a schedule holds of its name.
bool LeadsTo(const QByteArray& field, const QString& path) {
  const QString name = FieldPath(field);
  return name == path || FindFile(InProgramFolder(name)) == path;
}

}  // namespace

std::optional<Schedule> LoadScheduleFile(const QString& path, FileFailure* why) {
  ScheduleReader file(path);
  const auto refuse = [&] {
    if (why != nullptr) *why = file.Failure();
    return std::nullopt;
  };
  const std::optional<ScheduleHead>& head = file.Head();
  if (!head) return refuse();

  Schedule schedule;
  schedule.weekday = head->weekday;
  schedule.hour = head->hour;
  schedule.minute = head->minute;
  schedule.dimension = head->dimension;
  bool is_listed = true;
  while (is_listed && schedule.Count() < head->sequences) {
    const std::optional<QByteArray> path_line = file.NextPath();
    if (!path_line) return refuse();
    Sequence sequence;
    sequence.path = FixedField(*path_line, kPathField);
    is_listed = schedule.OfferFile(sequence.path);
    if (is_listed) {
      const auto details = file.NextDetails();
      if (!details) return refuse();
      sequence.delay = details->delay;
      sequence.feature = FixedField(details->feature, kFeatureField);
    }
    schedule.Append(sequence);
  }
  while (schedule.Count() < head->sequences) schedule.Append({});
  return schedule;
}

ScheduleSaveResult SaveScheduleFile(const QString& path, const Schedule& schedule) {
  if (!IsTime(schedule.hour, kLastHour)) return ScheduleSaveResult::kHourWrong;
  if (!IsTime(schedule.minute, kLastMinute)) return ScheduleSaveResult::kMinuteWrong;

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
  return ResultOf(SaveWholeFile(path, content));
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

QString MessageFileRefusal(const QString& path, Dimension dimension) {
  const std::optional<Dimension> file = IsMessageFile(path);
  if (!file) return u"Not Message File Format!"_s;
  if (*file != dimension) return u"Dimension not matched!"_s;
  const std::optional<QByteArray> field = PathField(path);
  if (!field || !LeadsTo(*field, path)) return u"Invalid path!"_s;
  return {};
}

}  // namespace Brivon1
