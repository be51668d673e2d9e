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

  bool is_complete = true;
  const auto next_value = [&] {
    const std::optional<QByteArray> line = lines_.Next();
    is_complete = is_complete && line.has_value();
    return line ? ValueAfterEquals(*line) : QByteArray();
  };
  ScheduleHead head;
  head.weekday = LeadingNumber16(next_value());
  head.hour = next_value();
  head.minute = next_value();
  head.dimension.rows = LeadingNumber16(next_value());
  head.dimension.columns = LeadingNumber16(next_value());
  head.sequences = LeadingNumber16(next_value());
  const bool is_valid = head.weekday >= 0 && head.weekday <= kLastWeekday && head.sequences >= 1 &&
                        head.sequences <= kMostSequences && head.dimension.rows != 0 &&
                        head.dimension.columns != 0;
  if (!is_complete || !is_valid) return std::nullopt;
  return head;
}

std::optional<SequenceDetails> ScheduleReader::NextDetails() {
  const std::optional<QByteArray> delay = lines_.Next();
  const std::optional<QByteArray> feature = lines_.Next();
  if (!delay || !feature) return std::nullopt;
  return SequenceDetails{LeadingNumber16(*delay), *feature};
}

}  // namespace Brivon1
