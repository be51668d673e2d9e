// Appending to a file that other processes append to at the same time.
#pragma once

#include <QByteArray>
#include <QString>

namespace BrivonCtl {

inline constexpr auto kNoOrdinaryFile = "no ordinary file";

/// Opens the file as for a line, makes it where there is none, and closes it. Returns why it cannot
/// be, or an empty text.
QString TryAppending(const QString& path);

/// Appends the bytes, whole or not at all, behind a line end of its own where the file ends within
/// a line that somebody else could not finish. Returns why not, or an empty text.
QString AppendWhole(const QString& path, const QByteArray& bytes);

}  // namespace BrivonCtl
