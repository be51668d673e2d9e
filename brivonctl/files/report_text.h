// A report in the words of the terminal, and as a line of JSON.
#pragma once

#include <QByteArray>
#include <QString>

#include "files/file_report.h"

namespace BrivonCtl {

/// A block of lines: what the file is and whether it is taken, then a line for each problem.
QString ReportText(const FileReport& report);

/// One line, with its end: an object with "event" "file".
QByteArray ReportJson(const FileReport& report);

/// The same of the end: how many files there were, how many were refused, and the warnings.
QByteArray SummaryJson(int files, int refused, int warnings);

}  // namespace BrivonCtl
