// Reading and saving the system's files. Reading is bounded, because any bytes may stand in a file;
// a save is whole or does not happen, because the old file is all that an operator has.
#pragma once

#include <optional>

#include <QByteArray>
#include <QIODevice>
#include <QString>

namespace Brivon1 {

/// Shorter files than this hold no header line and are no file of this system.
inline constexpr qint64 kShortestFile = 30;

/// The longest line, in bytes, that is read; a file with a longer one is refused.
inline constexpr qint64 kLongestLine = 1 << 20;

/// No file has a longer path, in characters; what may be longer is cut before it is looked for.
inline constexpr qsizetype kLongestPath = 4096;

/// Reads a text file line by line. A line ends with CR LF or LF, the last one also with the file.
class LineReader {
 public:
  /// `device` is open for reading and outlives the reader.
  explicit LineReader(QIODevice& device) : device_(device) {}

  /// The next line without its end, or nothing at the end of the file, after a line of more than
  /// kLongestLine bytes, and after a read error.
  std::optional<QByteArray> Next();

  /// The number, from 1, of the line that Next() gave last or of the one that it did not give; 0
  /// before the first.
  int LineNumber() const { return line_number_; }

  /// Whether it was a line of more than kLongestLine bytes that ended the reading.
  bool IsLineTooLong() const { return is_line_too_long_; }

 private:
  QIODevice& device_;
  int line_number_ = 0;
  bool ended_ = false;
  bool is_line_too_long_ = false;
};

/// Whether `path` names an ordinary file (or a link to one); folders, devices and pipes are none.
bool FileExists(const QString& path);

/// The file that `path` names, whatever form its letters have: systems write the name "é" in one
/// character or in two, and a code page keeps but one of them. `path` itself where that is a file,
/// and where there is none in any form.
QString FindFile(const QString& path);

/// How a save ended.
enum class SaveResult {
  kSaved,
  kInvalidPath,        ///< No such folder, no permission, a folder in place of the file.
  kDriveNotAvailable,  ///< The bytes could not be written: a full, failing or read-only disk.
  kLocked,             ///< Another program is saving it (base/file_lock.h).
};

/// Replaces the file at `path` by `content`, whole: it is written beside the file, flushed, and
/// renamed over it. On any failure the old file stays as it was. A link stays, its target is
/// replaced. A replaced file keeps its mode, and as far as this user may give files away its owner
/// and group. Its other names are cut off: a hard link to it stays with the old content. What a
/// killed program has left of an earlier save of that file is removed. `reason` receives why the
/// system has refused it, in English.
SaveResult SaveWholeFile(const QString& path, const QByteArray& content, QString* reason = nullptr);

/// Makes a folder and those above it, as far as they are not there. `reason` as SaveWholeFile()
/// takes it.
SaveResult MakeFolder(const QString& path, QString* reason = nullptr);

/// The English message for a failed save, "Invalid path!" or "Drive not available!"; empty for a
/// save that succeeded.
QString SaveFailureText(SaveResult result);

}  // namespace Brivon1
