// A file that is open for lines at its end, and that may be moved away meanwhile.
#pragma once

#include <QFile>
#include <QString>

namespace VirtualPanel {

// Opens it at its end, or makes it. Nothing of it is buffered, so that what could not be written is
// known at once. False, with the system's reason in *reason, if it fails.
bool OpenAtEnd(const QString& path, QFile* file, QString* reason);

// Whether the file that is open is the one that has this name now.
bool IsFileAt(const QFile& file, const QString& path);

}  // namespace VirtualPanel
