// What Windows makes of the names of files, wherever the program runs.
#pragma once

#include <string>

#include <QByteArray>
#include <QStringView>

namespace Brivon1 {

/// The absolute `path`, in UTF-8 and with slashes, as Windows' own functions take it, however long
/// it is.
std::wstring WidePath(const QByteArray& path);

/// Whether a file's name stands for a device, whatever folder it is in and whatever its suffix:
/// "nul.msg" is no file, and what is written to it is lost.
bool IsDeviceName(QStringView name);

}  // namespace Brivon1
