#include "schedule/schedule_reader.h"

#include "base/file_checks.h"
#include "base/text.h"
#include "schedule/schedule.h"

namespace Brivon1 {

ScheduleReader::ScheduleReader(const QString& path)
    : file_(path), lines_(file_), head_(ReadHead()) {}

std::optional<ScheduleHead> ScheduleReader::ReadHead() {
  if (!FileExists(file_.fileName()) || !file_.open(QIODevice::ReadOnly)) return std::nullopt;
  const std::optional<QByteArray> header = lines_.Next();
  if (!header || TrimBlanks(*header) != kScheduleHeader) return std::nullopt;

  const auto expect = [this](bool is_right, const char* name) {
    if (!is_right && wrong_line_ == nullptr) wrong_line_ = name;
  };
  const auto next_value = [&](const char* name) {
    const std::optional<QByteArray> line = lines_.Next();
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
  if (wrong_line_ != nullptr) return std::nullopt;
  return head;
}

std::optional<SequenceDetails> ScheduleReader::NextDetails() {
  const std::optional<QByteArray> delay = lines_.Next();
  const std::optional<QByteArray> feature = lines_.Next();
  if (!delay || !feature) return std::nullopt;
  return SequenceDetails{LeadingNumber16(*delay), *feature};
}

}  // namespace Brivon1
