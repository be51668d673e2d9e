// The three file-type checks: does a file begin as a message, schedule or scrolling file does, and
// for which panel dimension was it made?
#pragma once

#include <optional>

#include <QByteArray>
#include <QFile>
#include <QString>

#include "base/dimension.h"
#include "base/files.h"

namespace Brivon1 {

inline constexpr const char* kMessageHeader = "*** Brivon Message File ***";
inline constexpr const char* kScheduleHeader = "*** Brivon Schedule File ***";
inline constexpr const char* kScrollingHeader = "*** Brivon Shift Message File ***";

/// The dimension of a page message file, or nothing where `path` names none: a missing file, one of
/// fewer than 30 bytes, or another header line. The dimension's range is not checked.
std::optional<Dimension> IsMessageFile(const QString& path);

/// The same for a schedule file.
std::optional<Dimension> IsScheduleFile(const QString& path);

/// Whether `path` names a scrolling message file.
bool IsScrollingFile(const QString& path);

/// The text of a scrolling message file, codes included: its second line. Nothing where `path`
/// names no such file or where it has no second line.
std::optional<QByteArray> ScrollingFileText(const QString& path);

/// A page message file, opened and read up to its row lines.
class MessageFileReader {
 public:
  explicit MessageFileReader(const QString& path);

  /// What IsMessageFile() says of the file.
  const std::optional<Dimension>& FileDimension() const { return dimension_; }

  /// The next row line, or nothing when there is none.
  std::optional<QByteArray> NextRowLine();

  /// Whether it was too long a line that ended the row lines.
  bool IsLineTooLong() const { return lines_.IsLineTooLong(); }

 private:
  QFile file_;
  LineReader lines_;
  std::optional<Dimension> dimension_;
};

}  // namespace Brivon1
