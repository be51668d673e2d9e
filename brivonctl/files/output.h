// What goes to standard output: the result alone.
#pragma once

#include <QByteArray>

namespace BrivonCtl {

/// Writes it at once. False, after a line on standard error, where it could not be written.
bool Print(const QByteArray& bytes);

}  // namespace BrivonCtl
