// The page message file (".msg"): a header, the page's size, and one line per row in which codes
// stand between the characters.
#pragma once

#include <optional>

#include <QString>

#include "base/file_failure.h"
#include "base/file_source.h"
#include "base/files.h"
#include "page/page_message.h"

namespace Brivon1 {

/// What a message file holds.
struct LoadedPage {
  Dimension dimension;
  PageRows rows;  ///< All cursors at column 0; the rows above dimension.rows are empty.
};

/// Whether a page of this size can be sent.
bool CanBeSent(const Dimension& dimension);

/// Saves the page, whole or not at all; `reason` as SaveWholeFile() takes it.
SaveResult SaveMessageFile(const QString& path, const PageMessage& page, QString* reason = nullptr);

/// Reads a page, or gives nothing where the file is none: no message header, a size of less than 1
/// row and less than 10 dot columns, a negative size or more than twelve rows, fewer row lines than
/// rows, or a row tag out of order. Rows are read whole, however long. `failure` receives why there
/// is nothing.
std::optional<LoadedPage> LoadMessageFile(const QString& path, FileFailure* failure = nullptr);

/// Why nothing of the file can be sent; of kind kNone where nothing is wrong with it.
FileFailure SendingFailure(const QString& path, const FileSource& files = Disk());

/// The failure of the page at `path` in the operator's language; empty for one of kind kNone.
QString MessageFileRemedy(const QString& path, const FileFailure& failure);

}  // namespace Brivon1
