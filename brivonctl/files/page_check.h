// Looks a page message file through.
#pragma once

#include <QString>

#include "files/file_report.h"

namespace BrivonCtl {

/// Adds the size and the problems of the page message file at `path`.
void CheckPage(const QString& path, FileReport* report);

}  // namespace BrivonCtl
