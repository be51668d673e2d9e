// A schedule file, line by line: what its editor and its transmission both read it by.
#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include "base/dimension.h"
#include "base/file_failure.h"
#include "base/file_source.h"
#include "base/files.h"

namespace Brivon1 {

inline constexpr int kScheduleHeadLines = 7;  ///< The lines above the sequences.
inline constexpr int kSequenceLines = 3;      ///< The lines of a sequence.

/// What stands above the sequences.
struct ScheduleHead {
  int weekday = 0;  ///< 0 (every day), 1 (Sunday) to 7 (Saturday).
  QByteArray hour;  ///< What stands right of the "=", unconverted.
  QByteArray minute;
  Dimension dimension;
  int sequences = 0;  ///< 1 to 32.
};

/// What follows a sequence's path.
struct SequenceDetails {
  qint16 delay = 0;  ///< Seconds.
  QByteArray feature;
};

class ScheduleReader {
 public:
  explicit ScheduleReader(const QString& path, const FileSource& files = Disk());

  /// Nothing where the file is no schedule: no such file, another header line, a weekday outside 0
  /// to 7, no sequences or more than 32, rows or columns of 0, or a file that ends before that.
  const std::optional<ScheduleHead>& Head() const { return head_; }

  /// Why Head() is nothing, or why the line was not there that was asked for last.
  FileFailure Failure() const { return head_ ? MissingLine(lines_) : failure_; }

  /// The number, from 1, of the line that was read last.
  int LineNumber() const { return lines_.LineNumber(); }

  /// The path line of the next sequence, or nothing where the file ends before it.
  std::optional<QByteArray> NextPath() { return lines_.Next(); }

  /// The two lines behind a path line, or nothing where the file ends before them.
  std::optional<SequenceDetails> NextDetails();

 private:
  std::optional<ScheduleHead> ReadHead(bool exists);
  std::nullopt_t Refuse(const FileFailure& failure);

  std::unique_ptr<QIODevice> file_;
  LineReader lines_;
  FileFailure failure_;
  const char* wrong_line_ = nullptr;
  std::optional<ScheduleHead> head_;
};

}  // namespace Brivon1
