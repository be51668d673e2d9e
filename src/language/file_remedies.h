// Why a file cannot be opened or saved, and what to do about it, in the operator's language: what
// stands below the messages about files.
#pragma once

#include <QString>

#include "base/files.h"

namespace Brivon1 {

/// The kinds of files that an operator chooses.
enum class FileSort { kPage, kSchedule, kScrolling };

/// About a path that names no file.
QString MissingFileRemedy(const QString& path);

/// About a file that does not begin as one of `wanted` does: what it is instead. Empty where it
/// begins so.
QString WrongKindRemedy(const QString& path, FileSort wanted);

/// About a file with a line that is too long to be read.
QString LongLineRemedy(const QString& path);

/// About a save to `path` that has ended with `result`, for which the system gives `reason`. Empty
/// for one that succeeded.
QString SaveRemedy(const QString& path, SaveResult result, const QString& reason);

/// About a path of `size` characters, of which `possible` can be kept.
QString LongPathRemedy(qsizetype size, qsizetype possible);

}  // namespace Brivon1
