// Looks a file through as Brivon reads it: what Brivon accepts is accepted, whatever the file's
// name. Any bytes give a report, in bounded time.
#pragma once

#include <QString>

#include "base/file_failure.h"
#include "files/file_report.h"

namespace BrivonCtl {

/// What the file at `path` is and what is wrong with it. The message files of a schedule are looked
/// through too, from the program's folder on.
FileReport CheckFile(const QString& path);

/// The kind of file that stands at `path`, by its first line.
FileKind KindOf(const QString& path);

/// Why there is no file to be read at `path`, a missing one, a folder or one that the system keeps
/// back; empty where there is one.
QString WhyUnreadable(const QString& path);

/// What is wrong where a reader found its file to fail, in words that do not depend on the kind of
/// file; empty for any other failure.
QString CommonFailureText(const Brivon1::FileFailure& failure);

/// What the first line of a page, schedule or scrolling message is, for one who wrote another.
QString ExpectedHeaders();

}  // namespace BrivonCtl
