// Looks a schedule file through, and the message files that it names.
#pragma once

#include <QString>

#include "files/file_report.h"

namespace BrivonCtl {

/// Adds the size, the times, the steps, the message files and the problems of the schedule file at
/// `path`.
void CheckSchedule(const QString& path, FileReport* report);

}  // namespace BrivonCtl
