// The scrolling message file (".srl"): a header, and the whole message as one line in which codes
// stand between the characters.
#pragma once

#include <optional>

#include <QString>

#include "base/file_failure.h"
#include "base/files.h"
#include "row/page_row.h"

namespace Brivon1 {

/// Saves the message, whole or not at all; `reason` as SaveWholeFile() takes it.
SaveResult WriteScrollingMessage(const QString& path, const PageRow& message,
                                 QString* reason = nullptr);

/// Why nothing of the file at `path` can be read or sent, in the operator's language.
QString ScrollingFileRemedy(const QString& path, const FileFailure& failure);

/// Reads a message, or gives nothing where the file is none: no scrolling message header, or no
/// second line. The message is read whole, however long; its cursor stands at column 0 and reaches
/// every other one. What stands before the first code is red, normal and steady. `why`, where it is
/// not null, is told why there is none.
std::optional<PageRow> ReadScrollingMessage(const QString& path, FileFailure* why = nullptr);

}  // namespace Brivon1
