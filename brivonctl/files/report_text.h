// A report in the words of the terminal, and as a line of JSON.
#pragma once

#include <QByteArray>
#include <QString>

#include "files/file_report.h"

namespace BrivonCtl {

/// A block of lines: what the file is and whether it is taken, then a line for each problem.
QString ReportText(const FileReport& report);

/// The lines of JSON, each with its end: at the beginning,
QByteArray StartJson(int files);

/// an object with "event" "file" for each,
QByteArray ReportJson(const FileReport& report);

struct CheckSummary {
  int files = 0;
  int refused = 0;
  int warnings = 0;
  QString first;  ///< The first refused file, and why it is.
};

/// and at the end, with the program's exit status.
QByteArray SummaryJson(const CheckSummary& summary, int status);

}  // namespace BrivonCtl
