// Sending a page message file to one panel over an open link, one acknowledged frame a row.
#pragma once

#include <optional>

#include <QByteArray>
#include <QList>
#include <QString>

#include "base/dimension.h"
#include "base/file_source.h"
#include "panel_line/transmission.h"

namespace Brivon1 {

/// The frames that carry the rows of a page message file to panel `id` as page `page`, in row
/// order, or nothing for a file that is refused: no message file, made for another dimension than
/// `panel`, rows outside 1 to 12, columns below 5, or fewer row lines than rows. For `colour_type`
/// kMono the colour codes are taken out.
std::optional<QList<QByteArray>> MessageFrames(const QString& path, int id, const QByteArray& page,
                                               Dimension panel, qint16 colour_type,
                                               const FileSource& files = Disk());

/// Sends a page message file to panel `id` as page `page` (the digits as they go on the wire).
/// Every frame is built before the first byte leaves. True when all rows were acknowledged; false
/// for a refused file, with nothing sent, and at the first row without an acknowledgement, with no
/// further row sent. Shows no message. The line's progress tells the row that it has come to.
bool SendMessageFile(OpenLine& line, const QString& path, int id, const QByteArray& page,
                     Dimension panel);

}  // namespace Brivon1
