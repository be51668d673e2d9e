// A file that a killed program has left behind: how a save tells it from one that is still being
// written. Paths are as the system has them on Unix, and in UTF-8 on Windows.
#pragma once

#include <QByteArray>

namespace Brivon1 {

/// The most bytes that a name in `folder` may have; not above 0 where the system does not say.
qsizetype LongestNameIn(const QByteArray& folder);

/// Removes the file at `path`, which was to replace `target`. Stays: what belongs neither to this
/// user nor to the owner of `target` (Windows asks its own permissions instead), what has a further
/// name, what is no ordinary file, what was changed within the last five minutes, and what a living
/// program has locked.
void RemoveIfAbandoned(const QByteArray& path, const QByteArray& target);

}  // namespace Brivon1
