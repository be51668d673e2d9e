// The icon of a program, as its windows show it.
#pragma once

#include <QIcon>
#include <QString>

namespace Brivon1 {

/// The icon that the build put into the program under this name, in all its sizes; an empty one
/// under another name.
QIcon ProgramIcon(const QString& name);

}  // namespace Brivon1
