// The three file-type checks: does a file begin as a message, schedule or scrolling file does, and
// for which panel dimension was it made?
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

inline constexpr const char* kMessageHeader = "*** Brivon Message File ***";
inline constexpr const char* kScheduleHeader = "*** Brivon Schedule File ***";
inline constexpr const char* kScrollingHeader = "*** Brivon Shift Message File ***";

inline constexpr int kPageHeadLines = 3;  ///< The lines of a page above its rows.
inline constexpr int kScrollingLines = 2;

/// The dimension of a page message file, or nothing where `path` names none: a missing file, one of
/// fewer than 30 bytes, or another header line. The dimension's range is not checked.
std::optional<Dimension> IsMessageFile(const QString& path, const FileSource& files = Disk());

/// The same for a schedule file.
std::optional<Dimension> IsScheduleFile(const QString& path, const FileSource& files = Disk());

/// Whether `path` names a scrolling message file.
bool IsScrollingFile(const QString& path, const FileSource& files = Disk());

/// The text of a scrolling message file, codes included: its second line. Nothing where `path`
/// names no such file or where it has no second line.
/// `why`, where it is not null, is told why there is none.
std::optional<QByteArray> ScrollingFileText(const QString& path, FileFailure* why = nullptr,
                                            const FileSource& files = Disk());

/// A page message file, opened and read up to its row lines.
class MessageFileReader {
 public:
  explicit MessageFileReader(const QString& path, const FileSource& files = Disk());

  /// What IsMessageFile() says of the file.
  const std::optional<Dimension>& FileDimension() const { return dimension_; }

  /// The next row line, or nothing when there is none.
  std::optional<QByteArray> NextRowLine();

  /// The number, from 1, of the line that was read last.
  int LineNumber() const { return lines_.LineNumber(); }

  /// Why FileDimension() is nothing, or why NextRowLine() gave nothing.
  FileFailure Failure() const { return dimension_ ? MissingLine(lines_) : failure_; }

 private:
  std::unique_ptr<QIODevice> file_;
  LineReader lines_;
  FileFailure failure_;
  std::optional<Dimension> dimension_;
};

}  // namespace Brivon1
