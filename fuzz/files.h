// A program folder for the targets, whose readers take files. Name a folder in memory in TMPDIR,
// and no disk is worn out.
#pragma once

#include <QByteArray>
#include <QString>

namespace Fuzz {

/// The full path of a file in the folder, which stands for the program's own from the first call
/// on. It goes when the program ends.
QString PathOf(const QString& name);

/// Gives a file of the folder this content and returns its full path. It is written over: nothing
/// that a save would do is relied on.
QString WriteFile(const QString& name, const QByteArray& content);

/// The bytes of a file in the folder; empty where there is none.
QByteArray ReadFile(const QString& name);

/// Whether saves of a file in the folder have left nothing beside it.
bool IsAlone(const QString& name);

}  // namespace Fuzz
