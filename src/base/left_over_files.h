// What a save that was killed leaves beside its file: how it is called, and how the next save of
// that file removes it.
#pragma once

#include <QByteArray>

namespace Brivon1 {

/// The folder of a path, with the "/" behind it; "." for a name alone.
QByteArray FolderOf(const QByteArray& path);

/// What the file that is to replace `target` is called while it is written:
/// "page.msg.~brivon-QxAdPk~". No editor and no version control names its own files like that. A
/// name that has no room for it is cut before it.
QByteArray LeftOverName(const QByteArray& target, const QByteArray& letters);

/// The same with letters that nobody can foresee.
QByteArray SomeLeftOverName(const QByteArray& target);

/// Removes the files beside `target` that killed saves of it have left. Stays: what has any other
/// name, what belongs neither to this user nor to the owner of `target`, what has a further name,
/// what is no ordinary file, what was changed within the last five minutes, and what a living
/// program is about to put in the place of `target`.
void RemoveLeftOverFiles(const QByteArray& target);

}  // namespace Brivon1
