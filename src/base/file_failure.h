// Why a reader takes a file for none of its kind, and where in the file. The windows make a
// sentence of it for their operator, brivonctl one with its line for whoever has to mend the file.
#pragma once

#include <QByteArray>

#include "base/dimension.h"
#include "base/files.h"

namespace Brivon1 {

enum class FileFault {
  kNone,
  kNoFile,       ///< Nothing of that name, or a folder, a device or a pipe.
  kNotReadable,  ///< The system does not let this user read it.
  kTooShort,     ///< Fewer than kShortestFile bytes.
  kHeader,       ///< Another first line.
  kEndsEarly,    ///< The line was expected and is not there.
  kLongLine,     ///< The line has more than kLongestLine bytes.
  kRows,         ///< A number of rows that is none of this kind of file.
  kColumns,      ///< The same of dot columns.
  kRowTag,       ///< The tag of another row.
  kWeekday,
  kSequences,  ///< A number of sequences that no schedule has.
};

struct FileFailure {
  FileFault fault = FileFault::kNone;
  int line = 0;      ///< From 1; 0 where the file as a whole is meant.
  QByteArray found;  ///< What stands there, where a value or a tag is refused.
  int number = 0;    ///< The row or step that is not right, from 1; 0 where it is none of them.
  int count = 0;     ///< How many there should be.
  const char* key = nullptr;  ///< How the line above the steps begins that is not right.
  Dimension dimension = {};   ///< Of a page whose size is not right.
};

/// The failure of a file that has no line where `lines` did not give one.
inline FileFailure MissingLine(const LineReader& lines) {
  return {
      lines.IsLineTooLong() ? FileFault::kLongLine : FileFault::kEndsEarly, lines.LineNumber(), {}};
}

}  // namespace Brivon1
