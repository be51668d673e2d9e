#include "schedule/schedule_reader.h"

#include "base/file_checks.h"
#include "base/text.h"
#include "schedule/schedule.h"

namespace Brivon1 {

ScheduleReader::ScheduleReader(const QString& path, const FileSource& files)
    : file_(files.Device(path)), lines_(*file_), head_(ReadHead(files.Exists(path))) {}

std::optional<ScheduleHead> ScheduleReader::ReadHead(bool exists) {
  if (!exists) return Refuse({FileFault::kNoFile, 0, {}});
  if (!file_->open(QIODevice::ReadOnly)) return Refuse({FileFault::kNotReadable, 0, {}});
  const std::optional<QByteArray> header = lines_.Next();
  if (lines_.IsLineTooLong()) return Refuse(MissingLine(lines_));
  if (!header || TrimBlanks(*header) != kScheduleHeader) {
    return Refuse({FileFault::kHeader, 1, {}});
  }

  const auto expect = [this](bool is_right, const char* name) {
    if (!is_right && wrong_line_ == nullptr) wrong_line_ = name;
  };
  bool is_complete = true;
  const auto next_value = [&](const char* name) {
    const std::optional<QByteArray> line = lines_.Next();
    is_complete = is_complete && line.has_value();
    expect(line.has_value(), name);
    return line ? ValueAfterEquals(*line) : QByteArray();
  };
  ScheduleHead head;
  head.weekday = LeadingNumber16(next_value("Week ="));
  expect(head.weekday >= 0 && head.weekday <= kLastWeekday, "Week =");
  head.hour = next_value("Hour =");
  head.minute = next_value("Min =");
  head.dimension.rows = LeadingNumber16(next_value("Row ="));
  expect(head.dimension.rows != 0, "Row =");
  head.dimension.columns = LeadingNumber16(next_value("Col ="));
  expect(head.dimension.columns != 0, "Col =");
  head.sequences = LeadingNumber16(next_value("No of Sequence ="));
  expect(head.sequences >= 1 && head.sequences <= kMostSequences, "No of Sequence =");
  if (!is_complete) return Refuse(MissingLine(lines_));
  const auto refuse = [this](FileFault fault, int line, int found) {
    return Refuse({fault, line, QByteArray::number(found)});
  };
  if (head.weekday < 0 || head.weekday > kLastWeekday) {
    return refuse(FileFault::kWeekday, 2, head.weekday);
  }
  if (head.dimension.rows == 0) return refuse(FileFault::kRows, 5, 0);
  if (head.dimension.columns == 0) return refuse(FileFault::kColumns, 6, 0);
  if (head.sequences < 1 || head.sequences > kMostSequences) {
    return refuse(FileFault::kSequences, 7, head.sequences);
  }
  return head;
}

std::nullopt_t ScheduleReader::Refuse(const FileFailure& failure) {
  failure_ = failure;
  failure_.key = wrong_line_;
  return std::nullopt;
}

std::optional<SequenceDetails> ScheduleReader::NextDetails() {
  const std::optional<QByteArray> delay = lines_.Next();
  const std::optional<QByteArray> feature = lines_.Next();
  if (!delay || !feature) return std::nullopt;
  return SequenceDetails{LeadingNumber16(*delay), *feature};
}

}  // namespace Brivon1
