// Looks a scrolling message file through.
#pragma once

#include <QString>

#include "files/file_report.h"

namespace BrivonCtl {

/// Adds the length and the problems of the scrolling message file at `path`.
void CheckScrolling(const QString& path, FileReport* report);

}  // namespace BrivonCtl
